#include "VeskoLinux/desktop/X11ClipboardReader.h"

#include <poll.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vesko {

namespace {

constexpr std::size_t mostForms = 32;
constexpr std::string_view plainText = "text/plain", utf8Text = "UTF8_STRING";
constexpr std::string_view secretMark = "x-kde-passwordManagerHint";

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <class T>
using ReplyOf = std::unique_ptr<T, FreeReply>;

// Thrown where there is nothing that could be given back.
struct NothingToRead { };

class Conversation {
public:
    Conversation(std::size_t limit, std::chrono::milliseconds patience)
        : m_room(limit)
        , m_end(std::chrono::steady_clock::now() + patience)
    {
        int screen = 0;
        m_connection.reset(xcb_connect(nullptr, &screen));
        if (xcb_connection_has_error(m_connection.get()))
            throw NothingToRead();
        auto screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get()));
        for (; screens.rem > 1 && screen > 0; --screen)
            xcb_screen_next(&screens);
        m_window = xcb_generate_id(m_connection.get());
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(m_connection.get(), XCB_COPY_FROM_PARENT, m_window, screens.data->root, 0,
            0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
            &events);
        m_clipboard = atom("CLIPBOARD");
        m_place = atom("VESKO_CLIPBOARD");
        m_incremental = atom("INCR");
    }

    ClipboardContent content()
    {
        const auto owner = ReplyOf<xcb_get_selection_owner_reply_t>(xcb_get_selection_owner_reply(
            m_connection.get(), xcb_get_selection_owner(m_connection.get(), m_clipboard), nullptr));
        if (!owner || owner->owner == XCB_NONE)
            throw NothingToRead();
        ClipboardContent content;
        for (const auto& form : forms())
            if (auto bytes = converted(atom(form)))
                content.emplace_back(
                    form == utf8Text ? plainText : std::string_view(form), std::move(*bytes));
        return content;
    }

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    xcb_atom_t atom(std::string_view name)
    {
        const auto reply
            = ReplyOf<xcb_intern_atom_reply_t>(xcb_intern_atom_reply(m_connection.get(),
                xcb_intern_atom(m_connection.get(), 0, std::uint16_t(name.size()), name.data()),
                nullptr));
        if (!reply)
            throw NothingToRead();
        return reply->atom;
    }

    // The same in another form is left out. The mark goes with it by which managers know what they
    // are not to write down.
    std::vector<std::string> forms()
    {
        const auto targets = converted(atom("TARGETS"));
        if (!targets)
            return {};
        std::vector<xcb_atom_t> atoms(
            std::min(targets->size() / sizeof(xcb_atom_t), mostForms * 2));
        std::memcpy(atoms.data(), targets->data(), atoms.size() * sizeof(xcb_atom_t));
        std::vector<std::string> names;
        for (const auto one : atoms)
            names.push_back(name(one));
        const auto offered
            = [&](std::string_view form) { return std::ranges::find(names, form) != names.end(); };
        const bool hasUtf8 = offered(utf8Text);
        const auto firstPicture = std::ranges::find_if(
            names, [](const auto& form) { return form.starts_with("image/"); });
        const std::string picture = offered("image/png") ? "image/png"
            : firstPicture != names.end()                ? *firstPicture
                                                         : std::string();
        std::vector<std::string> chosen;
        for (const auto& form : names) {
            const bool wanted = form == utf8Text || form == secretMark
                || (form.contains('/') && !(hasUtf8 && form.starts_with(plainText))
                    && (!form.starts_with("image/") || form == picture));
            if (wanted && std::ranges::find(chosen, form) == chosen.end()
                && chosen.size() < mostForms)
                chosen.push_back(form);
        }
        return chosen;
    }

    std::string name(xcb_atom_t one)
    {
        const auto reply = ReplyOf<xcb_get_atom_name_reply_t>(xcb_get_atom_name_reply(
            m_connection.get(), xcb_get_atom_name(m_connection.get(), one), nullptr));
        if (!reply)
            return {};
        return { xcb_get_atom_name_name(reply.get()),
            std::size_t(xcb_get_atom_name_name_length(reply.get())) };
    }

    // Nothing if the owner doesn't give that form after all.
    std::optional<std::string> converted(xcb_atom_t form)
    {
        xcb_convert_selection(
            m_connection.get(), m_window, m_clipboard, form, m_place, XCB_CURRENT_TIME);
        for (;;) {
            const auto event = next();
            if ((event->response_type & 0x7F) != XCB_SELECTION_NOTIFY)
                continue;
            const auto& told = reinterpret_cast<const xcb_selection_notify_event_t&>(*event);
            if (told.target != form)
                continue;
            if (told.property == XCB_NONE)
                return std::nullopt;
            break;
        }
        bool incremental = false;
        std::string bytes = take(incremental);
        if (!incremental)
            return bytes;
        for (bytes.clear();;) {
            const auto event = next();
            if ((event->response_type & 0x7F) != XCB_PROPERTY_NOTIFY)
                continue;
            const auto& told = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
            if (told.atom != m_place || told.state != XCB_PROPERTY_NEW_VALUE)
                continue;
            const auto more = take(incremental);
            if (more.empty())
                return bytes;
            bytes += more;
        }
    }

    // What was put into our property, which is empty then: that asks for more, if there is more.
    std::string take(bool& incremental)
    {
        constexpr std::uint32_t word = 4;
        const auto most = std::uint32_t(m_room / word + 1);
        const auto reply
            = ReplyOf<xcb_get_property_reply_t>(xcb_get_property_reply(m_connection.get(),
                xcb_get_property(
                    m_connection.get(), 1, m_window, m_place, XCB_GET_PROPERTY_TYPE_ANY, 0, most),
                nullptr));
        if (!reply)
            throw NothingToRead();
        incremental = reply->type == m_incremental;
        const auto size = std::size_t(xcb_get_property_value_length(reply.get()));
        if (reply->bytes_after > 0 || size > m_room)
            throw NothingToRead();
        if (!incremental)
            m_room -= size;
        return { static_cast<const char*>(xcb_get_property_value(reply.get())), size };
    }

    ReplyOf<xcb_generic_event_t> next()
    {
        xcb_flush(m_connection.get());
        for (;;) {
            if (auto event = ReplyOf<xcb_generic_event_t>(xcb_poll_for_event(m_connection.get())))
                return event;
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(
                m_end - std::chrono::steady_clock::now());
            pollfd server{ xcb_get_file_descriptor(m_connection.get()), POLLIN, 0 };
            if (left.count() <= 0 || xcb_connection_has_error(m_connection.get())
                || ::poll(&server, 1, int(left.count())) < 0)
                throw NothingToRead();
        }
    }

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    std::size_t m_room; // bytes
    std::chrono::steady_clock::time_point m_end;
    xcb_window_t m_window = XCB_NONE;
    xcb_atom_t m_clipboard = XCB_NONE, m_place = XCB_NONE, m_incremental = XCB_NONE;
};

} // namespace

ClipboardContent readX11Clipboard(std::size_t limit, std::chrono::milliseconds patience)
{
    try {
        return Conversation(limit, patience).content();
    } catch (const NothingToRead&) {
        return {};
    }
}

} // namespace vesko

#include "VeskoLinux/command/Bus.h"

#include <poll.h>

#include <array>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace vesko {

namespace {

constexpr const char* name = "app.vesko.Vesko";
constexpr const char* path = "/app/vesko/Vesko";
constexpr const char* interface = "app.vesko.Vesko";

constexpr int patience = 30000; // milliseconds: a start waits for the library, and the microphone

using Message = std::unique_ptr<DBusMessage, decltype(&dbus_message_unref)>;

class Error {
public:
    Error() { dbus_error_init(&m_error); }
    Error(const Error&) = delete;
    Error& operator=(const Error&) = delete;
    ~Error() { dbus_error_free(&m_error); }

    DBusError* operator&() { return &m_error; }
    bool is(const char* what) const { return dbus_error_has_name(&m_error, what) != 0; }
    bool saysAbsent() const
    {
        return is(DBUS_ERROR_SERVICE_UNKNOWN) || is(DBUS_ERROR_NAME_HAS_NO_OWNER);
    }

private:
    DBusError m_error;
};

Message ask(DBusConnection* connection, const char* method, Error& error)
{
    const Message call(
        dbus_message_new_method_call(name, path, interface, method), &dbus_message_unref);
    if (!call)
        throw std::bad_alloc();
    dbus_message_set_auto_start(call.get(), false);
    return { dbus_connection_send_with_reply_and_block(connection, call.get(), patience, &error),
        &dbus_message_unref };
}

int millisecondsUntil(std::chrono::steady_clock::time_point end)
{
    using std::chrono::milliseconds;
    const auto left = std::chrono::ceil<milliseconds>(end - std::chrono::steady_clock::now());
    return left > milliseconds(0) ? static_cast<int>(left.count()) : 0;
}

} // namespace

Bus::Bus()
{
    Error error;
    m_connection = dbus_bus_get(DBUS_BUS_SESSION, &error);
    if (!m_connection)
        throw std::runtime_error("there is no session bus");
    dbus_connection_set_exit_on_disconnect(m_connection, false);
}

Bus::~Bus()
{
    dbus_connection_unref(m_connection);
}

Bus::Outcome Bus::call(const char* method) const
{
    Error error;
    if (ask(m_connection, method, error))
        return Outcome::done;
    if (error.saysAbsent())
        return Outcome::absent;
    return error.is("app.vesko.Vesko.Error.NotNow") ? Outcome::notNow : Outcome::failed;
}

ProgramStatus Bus::status() const
{
    Error error;
    const auto reply = ask(m_connection, "Status", error);
    const char* state = nullptr;
    const char* title = nullptr;
    double elapsed = 0;
    if (reply
        && dbus_message_get_args(reply.get(), &error, DBUS_TYPE_STRING, &state, DBUS_TYPE_STRING,
            &title, DBUS_TYPE_DOUBLE, &elapsed, DBUS_TYPE_INVALID))
        return { state, title, elapsed };
    return {};
}

bool Bus::isThere() const
{
    return dbus_bus_name_has_owner(m_connection, name, nullptr) != 0;
}

void Bus::listen() const
{
    // Without waiting for an answer: the bus does what it is asked one after the other.
    dbus_bus_add_match(m_connection,
        "type='signal',sender='org.freedesktop.DBus',member='NameOwnerChanged',"
        "arg0='app.vesko.Vesko'",
        nullptr);
    dbus_bus_add_match(m_connection,
        "type='signal',sender='app.vesko.Vesko',interface='app.vesko.Vesko',"
        "member='StateChanged'",
        nullptr);
}

Bus::Heard Bus::wait(int other, short events, int milliseconds) const
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    int socket = -1;
    dbus_connection_get_unix_fd(m_connection, &socket);
    while (true) {
        while (const Message message{
            dbus_connection_pop_message(m_connection), &dbus_message_unref }) {
            const char* state = nullptr;
            const char* title = nullptr;
            if (dbus_message_is_signal(message.get(), DBUS_INTERFACE_DBUS, "NameOwnerChanged"))
                return { Heard::owner, {} };
            if (dbus_message_is_signal(message.get(), interface, "StateChanged")
                && dbus_message_get_args(message.get(), nullptr, DBUS_TYPE_STRING, &state,
                    DBUS_TYPE_STRING, &title, DBUS_TYPE_INVALID))
                return { Heard::report, { state, title, 0 } };
        }
        if (!dbus_connection_get_is_connected(m_connection))
            return { Heard::busEnded, {} };
        std::array<pollfd, 2> places{ { { socket, POLLIN, 0 }, { other, events, 0 } } };
        const int ready
            = poll(places.data(), places.size(), milliseconds < 0 ? -1 : millisecondsUntil(end));
        if (ready == 0)
            return { Heard::nothing, {} };
        if (places[1].revents != 0)
            return { Heard::stranger, {} };
        dbus_connection_read_write(m_connection, 0);
    }
}

} // namespace vesko

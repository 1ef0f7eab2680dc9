#include "VeskoLinux/accessibility/FlatText.h"

#include "VeskoLinux/accessibility/FocusSearch.h"

#include <QDBusArgument>
#include <QMap>

#include <atspi/atspi-constants.h>

#include <algorithm>
#include <vector>

namespace vesko {
namespace {

constexpr int depthLimit = 8;
constexpr std::size_t elementLimit = 256; // in one text

struct Inside {
    AtspiAddress address;
    QString text;
    std::optional<std::int64_t> caret;
    bool block = false; // stands on lines of its own
};

// The elements that stand as characters in their parent's text; a leaf of plain text doesn't.
Task<std::vector<Inside>> elementsIn(AtspiBus& bus, AtspiAddress parent, AtspiInquiry inquiry)
{
    FocusSearch search(bus);
    const auto addresses = co_await search.addressesIn({ std::move(parent) }, inquiry);
    const auto kinds = co_await search.kindsOf(addresses, inquiry);
    std::vector<Inside> found;
    std::vector<AtspiCall> lengths, carets, attributes, texts;
    for (std::size_t index = 0; index < addresses.size(); ++index) {
        if (!kinds[index] || kinds[index]->role == ATSPI_ROLE_STATIC)
            continue;
        const AtspiAddress& child = addresses[index];
        found.push_back({ .address = child, .text = {}, .caret = {} });
        lengths.push_back(bus.property(child, atspi::text, "CharacterCount", inquiry));
        carets.push_back(bus.property(child, atspi::text, "CaretOffset", inquiry));
        attributes.push_back(bus.call(child, atspi::accessible, "GetAttributes", "a{ss}", inquiry));
    }
    for (std::size_t index = 0; index < found.size(); ++index) {
        const auto length = atspi::count(co_await lengths[index]).value_or(0);
        texts.push_back(bus.call(found[index].address, atspi::text, "GetText", "s", inquiry,
            { 0, int(std::min<std::int64_t>(length, FieldText::limit)) }));
        const auto caret = atspi::count(co_await carets[index]);
        const auto named = co_await attributes[index];
        const auto display = named
            ? qdbus_cast<QMap<QString, QString>>(named->first()).value(QStringLiteral("display"))
            : QString();
        found[index].caret = caret;
        found[index].block = !display.startsWith(QLatin1String("inline"));
    }
    for (std::size_t index = 0; index < found.size(); ++index) {
        if (const auto text = co_await texts[index])
            found[index].text = text->first().toString();
    }
    co_return found;
}

class Flattening {
public:
    Flattening(AtspiBus& bus, AtspiInquiry inquiry)
        : m_bus(bus)
        , m_inquiry(inquiry)
    {
    }

    Task<bool> add(AtspiAddress element, QString own, std::optional<std::int64_t> caret, int depth)
    {
        std::vector<Inside> inside;
        if (holdsElements(own)) {
            if (depth == depthLimit)
                co_return false;
            inside = co_await elementsIn(m_bus, std::move(element), m_inquiry);
            m_elements += inside.size();
            if (std::ssize(inside) != own.count(QChar::ObjectReplacementCharacter)
                || m_elements > elementLimit)
                co_return false;
        }
        std::size_t next = 0;
        for (qsizetype at = 0; at <= own.size(); ++at) {
            if (caret == at && !m_flat.caret)
                m_flat.caret = m_flat.text.size();
            if (at == own.size() || m_flat.text.size() > FieldText::limit)
                continue;
            if (own[at] != QChar::ObjectReplacementCharacter)
                m_flat.text += own[at];
            else if (!co_await addInside(inside[next++], caret == at, depth))
                co_return false;
        }
        co_return true;
    }

    FlatText takeResult() { return std::move(m_flat); }

private:
    Task<bool> addInside(Inside element, bool withCaret, int depth)
    {
        if (element.block && !m_flat.text.isEmpty() && !m_flat.text.endsWith(u'\n'))
            m_flat.text += u'\n';
        // The end of an empty paragraph's line is no line of its own.
        if (element.block && element.text.endsWith(u'\n'))
            element.text.chop(1);
        if (withCaret)
            m_flat.caret.reset();
        co_return co_await add(element.address, element.text,
            withCaret ? element.caret.value_or(0) : std::optional<std::int64_t>(), depth + 1);
    }

    AtspiBus& m_bus;
    AtspiInquiry m_inquiry;
    FlatText m_flat;
    std::size_t m_elements = 0;
};

} // namespace

bool holdsElements(const QString& text)
{
    return text.contains(QChar::ObjectReplacementCharacter);
}

Task<std::optional<FlatText>> FlatText::of(AtspiBus& bus, AtspiAddress element, QString own,
    std::optional<std::int64_t> caret, AtspiInquiry inquiry)
{
    Flattening flattening(bus, inquiry);
    if (!co_await flattening.add(std::move(element), std::move(own), caret, 0)
        || inquiry.unanswered())
        co_return std::nullopt;
    co_return flattening.takeResult();
}

} // namespace vesko

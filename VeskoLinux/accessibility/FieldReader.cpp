#include "VeskoLinux/accessibility/FieldReader.h"

#include "VeskoLinux/accessibility/FlatText.h"
#include "VeskoLinux/accessibility/TerminalEcho.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QMap>

#include <atspi/atspi-constants.h>

#include <algorithm>
#include <memory>

namespace vesko {
namespace {

// Browsers name the kind of input; the others have no search field apart from others.
bool isSearch(const QVariantList& attributes)
{
    const auto named = qdbus_cast<QMap<QString, QString>>(attributes.first());
    return named.value(QStringLiteral("text-input-type")) == QStringLiteral("search")
        || named.value(QStringLiteral("xml-roles")) == QStringLiteral("searchbox");
}

} // namespace

bool FieldProbe::focused() const
{
    return kind.is(ATSPI_STATE_FOCUSED);
}

Task<std::optional<FieldProbe>> FieldReader::probe(AtspiAddress element, AtspiInquiry inquiry)
{
    auto states = m_bus.call(element, atspi::accessible, "GetState", "au", inquiry);
    auto role = m_bus.call(element, atspi::accessible, "GetRole", "u", inquiry);
    auto attributes = m_bus.call(element, atspi::accessible, "GetAttributes", "a{ss}", inquiry);
    auto length = m_bus.property(element, atspi::text, "CharacterCount", inquiry);
    auto caret = m_bus.property(element, atspi::text, "CaretOffset", inquiry);
    auto selections = m_bus.call(element, atspi::text, "GetNSelections", "i", inquiry);
    auto selection = m_bus.call(element, atspi::text, "GetSelection", "ii", inquiry, { 0 });

    const auto bits = co_await states;
    const auto number = co_await role;
    if (!bits || !number)
        co_return std::nullopt;
    FieldProbe probe;
    probe.kind = atspi::kind(*bits, *number);
    if (probe.kind.is(ATSPI_STATE_DEFUNCT))
        co_return std::nullopt;
    if (const auto named = co_await attributes)
        probe.search = isSearch(*named);
    probe.length = atspi::count(co_await length);
    probe.caret = atspi::count(co_await caret);
    const auto count = co_await selections;
    const auto range = co_await selection;
    if (count && count->first().toInt() > 0 && range)
        probe.selection.emplace(range->at(0).toInt(), range->at(1).toInt());
    co_return probe;
}

Task<> FieldReader::describe(FieldReading& reading, AtspiAddress element, FieldProbe probe,
    std::int32_t process, AtspiInquiry inquiry)
{
    auto program
        = m_bus.property({ element.service, atspi::rootPath }, atspi::accessible, "Name", inquiry);
    const AtspiInquiry first = inquiry.next();
    auto document = co_await documentOf(element, probe.kind, first);
    const bool secret = co_await hidden(element, probe, process, first);
    if (first.unanswered()) { // which field it is, or whether it is a password
        reading.elements = false;
        co_return;
    }
    reading.element
        = std::make_shared<AtspiElement>(element, std::move(document), probe.kind.terminal());
    reading.focused = probe.focused();
    reading.role = fieldRole(probe.kind, probe.search);
    const auto asked = std::min<std::int64_t>(probe.length.value_or(0), FieldText::limit);
    std::optional<QString> value;
    if (secret)
        reading.subrole = "AXSecureTextField"; // and its text is never asked for
    else if (probe.length && asked == 0)
        value.emplace();
    else if (probe.length) {
        const auto text
            = co_await m_bus.call(element, atspi::text, "GetText", "s", inquiry, { 0, int(asked) });
        if (text)
            value = text->first().toString();
        else
            reading.elements = false;
    } else if (inquiry.unanswered())
        reading.elements = false;
    if (!reading.role) {
        const auto name
            = co_await m_bus.call(element, atspi::accessible, "GetRoleName", "s", inquiry);
        if (name)
            reading.role = name->first().toString().toStdString();
    }
    if (value && holdsElements(*value)) {
        const AtspiInquiry ofParts = inquiry.next();
        const auto flat = co_await FlatText::of(m_bus, element, *value, probe.caret, ofParts);
        if (ofParts.unanswered())
            reading.elements = false;
        if (flat) {
            value = flat->text;
            probe.caret = flat->caret;
            // What is selected is told in characters of which each may be a paragraph.
            probe.selection.reset();
        }
    }
    // An emptied editor keeps the end of its last line.
    if (value == QStringLiteral("\n")) {
        value = QString();
        probe.caret = 0;
        probe.selection.reset();
    }
    const FieldText text(value.value_or(QString()), value ? asked : 0);
    if (value)
        reading.value = text.value();
    if (probe.selection && probe.selection->first >= 0 && probe.selection->second >= 0)
        reading.selection = text.range(probe.selection->first, probe.selection->second);
    else if (probe.caret)
        reading.selection = text.range(*probe.caret, *probe.caret);
    // A program whose accessibility has just begun doesn't know the cursor of the field that has
    // the keyboard. What is written in it goes on at the end.
    else if (probe.kind.focusedField() && probe.kind.is(ATSPI_STATE_EDITABLE) && value)
        reading.selection = TextRange{ std::int64_t(value->size()), 0 };
    if (const auto name = co_await program)
        reading.program
            = qvariant_cast<QDBusVariant>(name->first()).variant().toString().toStdString();
}

// Whether what is typed there can't be seen by the user either.
Task<bool> FieldReader::hidden(
    AtspiAddress element, FieldProbe probe, std::int32_t process, AtspiInquiry inquiry)
{
    if (probe.kind.password())
        co_return true;
    if (probe.kind.terminal())
        co_return terminalHidesWhatIsTyped(process);
    if (probe.kind.is(ATSPI_STATE_MULTI_LINE) || probe.length.value_or(0) == 0)
        co_return false;
    // Some toolkits give a hidden text to who asks for the text, and only here what is shown.
    const auto line = co_await m_bus.call(element, atspi::text, "GetStringAtOffset", "sii", inquiry,
        { 0, uint(ATSPI_TEXT_GRANULARITY_LINE) });
    co_return line&& hidesLetters(line->first().toString());
}

Task<std::optional<AtspiAddress>> FieldReader::documentOf(
    AtspiAddress element, AtspiKind kind, AtspiInquiry inquiry)
{
    if (kind.role != ATSPI_ROLE_PARAGRAPH && kind.role != ATSPI_ROLE_HEADING)
        co_return std::nullopt;
    const auto reply = co_await m_bus.property(element, atspi::accessible, "Parent", inquiry);
    if (!reply)
        co_return std::nullopt;
    const auto value = reply->first().value<QDBusVariant>().variant();
    if (!value.canConvert<QDBusArgument>())
        co_return std::nullopt;
    const auto parent = atspi::address(value.value<QDBusArgument>());
    const auto role = co_await m_bus.call(parent, atspi::accessible, "GetRole", "u", inquiry);
    if (role && role->first().toUInt() == ATSPI_ROLE_DOCUMENT_TEXT)
        co_return parent;
    co_return std::nullopt;
}

} // namespace vesko

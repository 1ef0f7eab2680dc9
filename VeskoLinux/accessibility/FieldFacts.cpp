#include "VeskoLinux/accessibility/FieldFacts.h"

#include <atspi/atspi-constants.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace vesko {

bool AtspiKind::password() const
{
    return role == ATSPI_ROLE_PASSWORD_TEXT;
}

bool AtspiKind::terminal() const
{
    return role == ATSPI_ROLE_TERMINAL;
}

bool AtspiKind::focusedField() const
{
    if (!is(ATSPI_STATE_FOCUSED) || !is(ATSPI_STATE_FOCUSABLE))
        return false;
    return is(ATSPI_STATE_EDITABLE) || role == ATSPI_ROLE_TEXT || role == ATSPI_ROLE_ENTRY
        || password() || terminal();
}

bool AtspiKind::frameOnly() const
{
    switch (role) {
    case ATSPI_ROLE_CANVAS:
    case ATSPI_ROLE_DRAWING_AREA:
    case ATSPI_ROLE_FILLER:
    case ATSPI_ROLE_FRAME:
    case ATSPI_ROLE_PANEL:
    case ATSPI_ROLE_UNKNOWN:
    case ATSPI_ROLE_WINDOW:
        return !is(ATSPI_STATE_EDITABLE);
    default:
        return false;
    }
}

std::optional<std::size_t> strongestFocus(std::span<const std::optional<AtspiKind>> heard)
{
    constexpr std::array<bool (*)(const AtspiKind&), 3> ranks{
        [](const AtspiKind& kind) { return kind.focusedField(); },
        [](const AtspiKind& kind) {
            return kind.is(ATSPI_STATE_FOCUSED) && kind.is(ATSPI_STATE_FOCUSABLE);
        },
        [](const AtspiKind& kind) { return kind.is(ATSPI_STATE_FOCUSABLE); },
    };
    for (const auto has : ranks) {
        for (std::size_t index = heard.size(); index-- > 0;) {
            if (heard[index] && !heard[index]->is(ATSPI_STATE_DEFUNCT) && has(*heard[index]))
                return index;
        }
    }
    return std::nullopt;
}

bool hidesLetters(const QString& line)
{
    // What toolkits show for a letter that they hide.
    constexpr std::u16string_view masks = u"\u25CF\u2022\u2731\u273A*";
    return !line.isEmpty() && masks.contains(line.front().unicode())
        && std::ranges::all_of(line, [&](QChar each) { return each == line.front(); });
}

std::optional<std::string> fieldRole(const AtspiKind& kind, bool search)
{
    if (kind.password())
        return "AXTextField";
    if (kind.terminal())
        return "AXTextArea";
    if (!kind.is(ATSPI_STATE_EDITABLE))
        return std::nullopt;
    switch (kind.role) {
    case ATSPI_ROLE_COMBO_BOX:
        return "AXComboBox";
    case ATSPI_ROLE_ENTRY:
        if (search)
            return "AXSearchField";
        return kind.is(ATSPI_STATE_MULTI_LINE) ? "AXTextArea" : "AXTextField";
    case ATSPI_ROLE_TEXT:
        if (search)
            return "AXSearchField";
        return kind.is(ATSPI_STATE_SINGLE_LINE) ? "AXTextField" : "AXTextArea";
    case ATSPI_ROLE_AUTOCOMPLETE:
    case ATSPI_ROLE_EDITBAR:
        return "AXTextField";
    // What a page or an office program lets the user write in.
    case ATSPI_ROLE_BLOCK_QUOTE:
    case ATSPI_ROLE_COMMENT:
    case ATSPI_ROLE_DOCUMENT_EMAIL:
    case ATSPI_ROLE_DOCUMENT_FRAME:
    case ATSPI_ROLE_DOCUMENT_TEXT:
    case ATSPI_ROLE_DOCUMENT_WEB:
    case ATSPI_ROLE_HEADING:
    case ATSPI_ROLE_PANEL:
    case ATSPI_ROLE_PARAGRAPH:
    case ATSPI_ROLE_SECTION:
    case ATSPI_ROLE_STATIC:
        return "AXTextArea";
    default:
        return std::nullopt;
    }
}

FieldText::FieldText(QString text, std::int64_t asked)
    : m_text(std::move(text))
    , m_countsCharacters(m_text.size() != asked)
{
}

std::string FieldText::value() const
{
    QStringView text(m_text);
    if (text.size() > limit) {
        // One unit more rather than half a character.
        text.truncate(text[limit - 1].isHighSurrogate() ? limit + 1 : limit);
    }
    return text.toUtf8().toStdString();
}

TextRange FieldText::range(std::int64_t start, std::int64_t end) const
{
    const auto location = units(std::min(start, end));
    return { location, units(std::max(start, end)) - location };
}

std::int64_t FieldText::units(std::int64_t offset) const
{
    if (!m_countsCharacters)
        return offset;
    qsizetype unit = 0;
    std::int64_t character = 0;
    for (; character < offset && unit < m_text.size(); ++character)
        unit += m_text[unit].isHighSurrogate() ? 2 : 1;
    return unit + (offset - character);
}

} // namespace vesko

#include "VeskoApp/insertion/FocusDestination.h"

#include "VeskoCore/base/Localized.h"
#include "VeskoCore/base/Text.h"
#include "VeskoCore/insertion/InsertionContext.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <algorithm>
#include <array>

namespace vesko {

namespace {

Q_LOGGING_CATEGORY(insertionLog, "app.vesko.mac.insertion")

constexpr std::size_t longestWatched = 32'768; // UTF-16 units
constexpr std::string_view secureSubrole = "AXSecureTextField";
constexpr std::array<std::string_view, 4> writableRoles{
    "AXTextField",
    "AXTextArea",
    "AXComboBox",
    "AXSearchField",
};

bool isWritable(const std::optional<std::string>& role)
{
    return role && std::ranges::find(writableRoles, *role) != writableRoles.end();
}

const char* shown(const std::optional<std::string>& role)
{
    return role ? role->c_str() : "-";
}

std::string joined(const std::vector<std::string>& tokens)
{
    std::string text;
    for (const auto& token : tokens)
        text += (text.empty() ? "" : ",") + token;
    return text;
}

std::optional<FocusDestination> skipped(
    const char* reason, const std::optional<std::string>& role = {})
{
    qCInfo(insertionLog, "capture_skipped reason=%s role=%s", reason, shown(role));
    return std::nullopt;
}

std::vector<std::string> refused(
    std::vector<std::string> reasons, const std::optional<std::string>& role = {})
{
    qCInfo(insertionLog, "paste_refused reasons=%s role=%s", joined(reasons).c_str(), shown(role));
    return reasons;
}

} // namespace

std::optional<FocusDestination> FocusDestination::from(const FieldReading& reading, Date at)
{
    if (!reading.trusted)
        return skipped("accessibility");
    if (!reading.seesFrontmost) {
        skipped("not_seen");
        FocusDestination unseen;
        unseen.capturedAt = at;
        return unseen;
    }
    if (!reading.frontmost || *reading.frontmost == QCoreApplication::applicationPid())
        return skipped("vesko_frontmost");
    if (!reading.element)
        return skipped("no_focused_element");
    if (!reading.selection)
        return skipped("no_cursor", reading.role);
    // A password is no text value: its text is never read.
    if (reading.subrole == secureSubrole)
        return skipped("secure_field", reading.role);
    if (!reading.value)
        return skipped("no_text_value", reading.role);
    qCInfo(insertionLog, "capture_ok role=%s", shown(reading.role));
    return FocusDestination{
        *reading.frontmost,
        reading.element,
        *reading.selection,
        *reading.value,
        at,
    };
}

Task<std::vector<std::string>> FocusDestination::attemptPaste(
    FocusedField& fields, PasteKeystroke& keystroke, const Clock& clock) const
{
    if (!element)
        co_return refused({ "not_seen" });
    // A shortcut key that is still held keeps the field from having the focus.
    co_await keystroke.keysReleased();
    const FieldReading reading = co_await fields.read(pid);
    if (!reading.element)
        co_return refused({ "field_changed" });
    if (!reading.seesFrontmost)
        co_return refused({ "not_seen" }, reading.role);
    if (!reading.selection)
        co_return refused({ "no_cursor" });

    const InsertionContext context{
        .sameApplication = reading.frontmost == pid,
        .sameElement = reading.element->equals(*element),
        .sameSelection = reading.selection == selection,
        .unchangedValue = reading.value == originalValue,
        .writable = isWritable(reading.role),
        .secure = reading.subrole == secureSubrole,
        .trusted = reading.trusted,
        .elapsed = clock.now().since(capturedAt),
    };
    if (!context.permitsPaste())
        co_return refused(context.blockers(), reading.role);
    if (!co_await keystroke.send(*reading.element))
        co_return refused({ "event_failed" }, reading.role);
    qCInfo(insertionLog, "paste_sent role=%s notes=%s", shown(reading.role),
        joined(context.notes()).c_str());
    co_return std::vector<std::string>{};
}

Task<std::optional<std::string>> FocusDestination::currentValueIfFocused(FocusedField& fields) const
{
    FieldReading reading = co_await fields.read(pid);
    const bool focused = reading.trusted && reading.frontmost == pid && reading.element
        && reading.element->equals(*element);
    if (!focused || reading.subrole == secureSubrole || !reading.value
        || utf16Length(*reading.value) > longestWatched)
        co_return std::nullopt;
    co_return std::move(reading.value);
}

std::string pasteMessage(const std::vector<std::string>& reasons)
{
    const std::string first = reasons.empty() ? "" : reasons.front();
    if (first == "accessibility")
        return L10N_KEY("Vesko",
            "Copied. Allow Accessibility for Vesko in System Settings to paste automatically.");
    if (first == "no_field")
        return L10N_KEY("Vesko",
            "Copied. No text field was focused when you started. Paste it with Command V.");
    if (first == "not_seen")
        return L10N_KEY("Vesko",
            "Copied. Vesko could not see which field was in use, so it did not paste. Paste it "
            "with Command V.");
    if (first == "app_changed" || first == "field_changed")
        return L10N_KEY("Vesko",
            "Copied. You moved to another field, so Vesko did not paste. Paste it with Command V.");
    if (first == "not_writable" || first == "no_cursor" || first == "no_text_value")
        return L10N_KEY("Vesko",
            "Copied. This field does not accept automatic paste. Paste it with Command V.");
    if (first == "too_late")
        return L10N_KEY("Vesko",
            "Copied. More than two minutes passed, so Vesko did not paste. Paste it with Command "
            "V.");
    return L10N_KEY("Vesko", "Copied. Paste it when you are ready.");
}

} // namespace vesko

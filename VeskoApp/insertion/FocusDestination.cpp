#include "VeskoApp/insertion/FocusDestination.h"

#include "VeskoApp/async/Sleep.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/base/Text.h"
#include "VeskoCore/insertion/InsertionContext.h"
#include "VeskoCore/insertion/PasteTrace.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <algorithm>
#include <array>

namespace vesko {

namespace {

Q_LOGGING_CATEGORY(insertionLog, "app.vesko.insertion")

constexpr std::size_t longestWatched = 32'768; // UTF-16 units
constexpr std::string_view objectCharacter = "\uFFFC"; // for something that could not be read
constexpr double proofTime = 0.5; // seconds
constexpr double proofInterval = 0.02; // seconds
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

std::vector<std::string> refused(
    std::vector<std::string> reasons, const std::optional<std::string>& role = {})
{
    qCInfo(insertionLog, "paste_refused reasons=%s role=%s", joined(reasons).c_str(), shown(role));
    return reasons;
}

} // namespace

std::string FocusDestination::reasonAgainst(const FieldReading& reading)
{
    if (!reading.trusted)
        return "accessibility";
    if (!reading.seesFrontmost)
        return "front_unknown";
    if (!reading.frontmost)
        return "no_active_window";
    if (*reading.frontmost == QCoreApplication::applicationPid())
        return "vesko_frontmost";
    if (!reading.element)
        return reading.elements ? "no_focused_element" : "no_elements";
    if (!reading.selection)
        return "no_cursor";
    // A password is no text value: its text is never read.
    if (reading.subrole == secureSubrole)
        return "secure_field";
    return reading.value ? "" : "no_text_value";
}

std::optional<FocusDestination> FocusDestination::from(const FieldReading& reading, Date at)
{
    if (const std::string reason = reasonAgainst(reading); !reason.empty()) {
        const bool ofTheField = reason != "accessibility" && reason != "front_unknown"
            && reason != "no_active_window" && reason != "vesko_frontmost" && reading.element;
        qCInfo(insertionLog, "capture_skipped reason=%s role=%s", reason.c_str(),
            ofTheField ? shown(reading.role) : "-");
        return std::nullopt;
    }
    qCInfo(insertionLog, "capture_ok role=%s", shown(reading.role));
    return FocusDestination{
        .pid = *reading.frontmost,
        .element = reading.element,
        .selection = *reading.selection,
        .originalValue = *reading.value,
        .capturedAt = at,
    };
}

Task<std::vector<std::string>> FocusDestination::attemptPaste(
    FocusedField& fields, PasteKeystroke& keystroke, const Clock& clock)
{
    // A shortcut key that is still held keeps the field from having the focus.
    co_await keystroke.keysReleased();
    const FieldReading reading = co_await fields.read(pid);
    if (!reading.element)
        co_return refused({ reading.trusted ? "field_changed" : "accessibility" });
    if (!reading.seesFrontmost)
        co_return refused({ "front_unknown" }, reading.role);
    if (!reading.selection)
        co_return refused({ "no_cursor" });
    // Whoever takes the keyboard takes the focus from the field, to which the user is still true.
    if (!reading.focused && reading.element->equals(*element))
        if (const auto taken = keystroke.keyboardTaken())
            co_return refused({ *taken }, reading.role);

    const InsertionContext context{
        .sameApplication = reading.frontmost == pid,
        // What had the focus last is good enough to begin with, but not to write into.
        .sameElement = reading.focused && reading.element->equals(*element),
        .sameSelection = reading.selection == selection,
        .unchangedValue = reading.value == originalValue,
        .writable = isWritable(reading.role),
        .secure = reading.subrole == secureSubrole,
        .trusted = reading.trusted,
        .elapsed = clock.now().since(capturedAt),
    };
    if (!context.permitsPaste())
        co_return refused(context.blockers(), reading.role);
    if (const auto obstacle = co_await keystroke.send(*reading.element))
        co_return refused({ *obstacle }, reading.role);
    beforePaste = reading;
    qCInfo(insertionLog, "paste_sent role=%s notes=%s", shown(reading.role),
        joined(context.notes()).c_str());
    co_return std::vector<std::string>{};
}

Task<PasteProof> FocusDestination::lookForPaste(
    FocusedField& fields, EventClock& clock, std::string text) const
{
    const double end = clock.uptime() + proofTime;
    for (;;) {
        const FieldReading now = co_await fields.read(pid);
        if (!tells(now))
            co_return PasteProof::unknown;
        const bool changed
            = now.value != beforePaste->value || now.selection != beforePaste->selection;
        // What stands in a terminal is cut and framed by what runs in it.
        if (changed && (element->isTerminal() || showsPasted(*now.value, text)))
            co_return PasteProof::seen;
        if (clock.uptime() >= end) {
            qCInfo(insertionLog, "paste_not_seen role=%s", shown(now.role));
            co_return PasteProof::notSeen;
        }
        co_await sleepFor(clock, proofInterval);
    }
}

// Whether a paste would show in this reading.
bool FocusDestination::tells(const FieldReading& now) const
{
    return beforePaste && beforePaste->value && now.element && now.element->equals(*element)
        && now.value && utf16Length(*now.value) <= longestWatched
        && !now.value->contains(objectCharacter);
}

Task<std::expected<std::string, FocusDestination::Unread>> FocusDestination::currentValueIfFocused(
    FocusedField& fields) const
{
    FieldReading reading = co_await fields.read(pid);
    const bool inFront = reading.trusted && reading.frontmost == pid;
    const bool same = reading.element && reading.element->equals(*element);
    if (inFront && !reading.elements && (same || !reading.element)
        && reading.subrole != secureSubrole)
        co_return std::unexpected(Unread::silent);
    if (!inFront || !same || reading.subrole == secureSubrole || !reading.value
        || utf16Length(*reading.value) > longestWatched)
        co_return std::unexpected(Unread::left);
    co_return *std::move(reading.value);
}

std::string pasteMessage(const std::vector<std::string>& reasons)
{
    const std::string first = reasons.empty() ? "" : reasons.front();
    if (first == "accessibility")
        return L10N_KEY("Vesko",
            "Copied. Allow Accessibility for Vesko in System Settings to paste automatically.");
    if (first == "no_field" || first == "no_focused_element")
        return L10N_KEY("Vesko",
            "Copied. No text field was focused when you started. Paste it with Command V.");
    if (first == "no_active_window")
        return L10N_KEY("Vesko",
            "Copied. No active window was known when you started, so Vesko did not paste. Paste it "
            "with Command V.");
    if (first == "front_unknown")
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
    if (first == "session_locked")
        return L10N_KEY("Vesko",
            "Copied. The session was locked, so Vesko did not paste. Paste it with Command V.");
    if (first == "keyboard_grabbed")
        return L10N_KEY("Vesko",
            "Copied. Another program was holding the keyboard, so Vesko did not paste. Paste it "
            "with Command V.");
    if (first == "keys_held")
        return L10N_KEY("Vesko",
            "Copied. A key was held down, so Vesko did not paste. Paste it with Command V.");
    if (first == "modifiers_latched")
        return L10N_KEY("Vesko",
            "Copied. Shift, Alt or another such key was latched or locked, so Vesko did not paste. "
            "Paste it with Command V.");
    if (first == "slow_keys")
        return L10N_KEY("Vesko",
            "Copied. Slow keys are switched on in the desktop's settings, so Vesko can't paste. "
            "Paste it with Command V.");
    if (first == "vesko_frontmost")
        return L10N_KEY("Vesko",
            "Copied. You started in Vesko itself, not in another program. Paste it with Command "
            "V.");
    if (first == "no_elements")
        return L10N_KEY("Vesko",
            "Copied. This program does not show its text fields to Vesko. Paste it with Command V "
            "or the program's own shortcut.");
    if (first == "secure_field")
        return L10N_KEY(
            "Vesko", "Copied. Vesko does not paste where letters are hidden, as in a password.");
    if (first == "still_asked")
        return L10N_KEY("Vesko",
            "Copied. The desktop was still asking you whether Vesko may press the keys that paste. "
            "Paste it with Command V.");
    if (first == "not_allowed")
        return L10N_KEY("Vesko",
            "Copied. Vesko was not allowed to press the keys that paste. Paste it with Command V.");
    if (first == "event_failed")
        return L10N_KEY(
            "Vesko", "Copied. The paste shortcut could not be sent. Paste it with Command V.");
    if (first == "not_seen")
        return L10N_KEY("Vesko",
            "Copied. Paste was sent, but the field does not show the text. If it is missing, paste "
            "it with Command V.");
    return L10N_KEY("Vesko", "Copied. Paste it when you are ready.");
}

} // namespace vesko

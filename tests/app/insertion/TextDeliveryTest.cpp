// What becomes of a dictation's text: the clipboard always, the starting field if it is safe.

#include "tests/app/AppModelTest.h"

#include <QCoreApplication>

namespace vesko {

namespace {

constexpr const char* pasted = "Copied. Paste sent to the original field.";
constexpr const char* noField
    = "Copied. No text field was focused when you started. Paste it with Command V.";
constexpr const char* otherField
    = "Copied. You moved to another field, so Vesko did not paste. Paste it with Command V.";
constexpr const char* unsupported
    = "Copied. This field does not accept automatic paste. Paste it with Command V.";
constexpr const char* tooLate
    = "Copied. More than two minutes passed, so Vesko did not paste. Paste it with Command V.";
constexpr const char* accessibility
    = "Copied. Allow Accessibility for Vesko in System Settings to paste automatically.";
constexpr const char* hidden
    = "Copied. Vesko does not paste where letters are hidden, as in a password.";
constexpr const char* neutral = "Copied. Paste it when you are ready.";

using TextDeliveryTest = AppModelTest;

TEST_F(TextDeliveryTest, ADictationIsCopiedAndPastedIntoItsField)
{
    open();
    dictate();
    finish();
    EXPECT_EQ(machine.clipboard.text, "hello world");
    EXPECT_EQ(machine.pasteKeystroke.sent, 1);
    EXPECT_EQ(model->status().message(), pasted);
    EXPECT_EQ(model->status().errorMessage(), "");
    // The field is asked for again, by its process, before the paste and after it.
    EXPECT_THAT(machine.focusedField.reads,
        testing::ElementsAre(std::nullopt, FakeFocusedField::editor, FakeFocusedField::editor));
}

TEST_F(TextDeliveryTest, TheKeystrokeIsMadeReadyWhileTheUserSpeaks)
{
    const struct {
        const char* name;
        bool paste, field, ready;
    } cases[] = {
        { "into a field", true, true, true },
        { "with paste turned off", false, true, false },
        { "without a field", true, false, false },
    };
    open();
    for (const auto& [name, paste, field, ready] : cases) {
        SCOPED_TRACE(name);
        model->preferences().pasteEnabled.set(paste);
        const auto element = machine.focusedField.reading.element;
        if (!field)
            machine.focusedField.reading.element = nullptr;
        dictate();
        EXPECT_EQ(machine.pasteKeystroke.prepared, ready);
        finish();
        EXPECT_FALSE(machine.pasteKeystroke.prepared);
        machine.focusedField.reading.element = element;
    }
}

const ClipboardContent picture{ { "image/png", "\x89PNG" }, { "text/html", "<img>" } };

TEST_F(TextDeliveryTest, WhatWasCopiedBeforeComesBackIfThatIsWanted)
{
    constexpr const char* gaveBack
        = "Pasted into the original field. The clipboard holds what it held before.";
    using Change = void (*)(FakePlatform&);
    const struct {
        const char* name;
        bool wanted;
        Change change;
        const char* message;
        ClipboardContent given;
    } cases[] = {
        { "the field shows the text", true, [](FakePlatform&) {}, gaveBack, picture },
        { "it isn't wanted", false, [](FakePlatform&) {}, pasted, {} },
        { "there was nothing, or too much", true, [](auto& m) { m.clipboard.before.clear(); },
            pasted, {} },
        { "somebody else has copied something", true,
            [](auto& m) { m.clipboard.takenByOther = true; }, pasted, {} },
        { "the user has copied a note", true,
            [](auto& m) {
                m.pasteKeystroke.onSent = [&m] {
                    m.focusedField.paste(*m.clipboard.text);
                    m.clipboard.setText("hello world of a note");
                };
            },
            pasted, {} },
        { "the field can't be read after the paste", true,
            [](auto& m) {
                m.pasteKeystroke.onSent = [&m] { m.focusedField.reading.value.reset(); };
            },
            pasted, {} },
        { "the field doesn't show the text", true,
            [](auto& m) { m.pasteKeystroke.onSent = [] { }; },
            "Copied. Paste was sent, but the field does not show the text. If it is missing, paste "
            "it with Command V.",
            {} },
    };
    open();
    const auto lands = machine.pasteKeystroke.onSent;
    const auto field = machine.focusedField.reading;
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        machine.focusedField.reading = field;
        machine.pasteKeystroke.onSent = lands;
        machine.clipboard = {};
        machine.clipboard.before = picture;
        model->preferences().returnClipboard.set(one.wanted);
        one.change(machine);
        dictate();
        finish();
        machine.clock.turn(1);
        drainEvents();
        EXPECT_EQ(model->status().message(), one.message);
        EXPECT_EQ(machine.clipboard.given, one.given);
    }
}

TEST_F(TextDeliveryTest, TheNoteOfATextThatCouldNotBePastedIsNamed)
{
    const struct {
        const char* what;
        bool paste;
        bool hasField;
        bool named;
    } cases[] = {
        { "pasted", true, true, false },
        { "no field to paste into", true, false, true },
        { "the user wants no paste", false, false, false },
    };
    open();
    std::vector<Uuid> named;
    model->run().onNotPasted = [&](const Uuid& id) { named.push_back(id); };
    const auto field = machine.focusedField.reading;
    for (const auto& [what, paste, hasField, isNamed] : cases) {
        SCOPED_TRACE(what);
        named.clear();
        model->preferences().pasteEnabled.set(paste);
        machine.focusedField.reading = field;
        if (!hasField)
            machine.focusedField.reading.element = nullptr;
        dictate();
        finish();
        const auto& last = model->library().contents().notes.back();
        EXPECT_EQ(named, isNamed ? std::vector{ last.id } : std::vector<Uuid>{});
    }
}

TEST_F(TextDeliveryTest, WhatForbidsThePasteIsSaid)
{
    using Change = void (*)(FakePlatform&);
    struct Case {
        const char* name;
        Change atStart;
        Change before; // the text is ready
        const char* message;
    };
    constexpr Change nothing = [](FakePlatform&) { };
    const std::vector<Case> cases{
        { "accessibility was not allowed", [](auto& m) { m.focusedField.reading.trusted = false; },
            nothing, accessibility },
        { "nothing was in front", [](auto& m) { m.focusedField.reading.frontmost.reset(); },
            nothing,
            "Copied. No active window was known when you started, so Vesko did not paste. Paste "
            "it with Command V." },
        { "this program was in front",
            [](auto& m) {
                m.focusedField.reading.frontmost
                    = static_cast<std::int32_t>(QCoreApplication::applicationPid());
            },
            nothing,
            "Copied. You started in Vesko itself, not in another program. Paste it with Command "
            "V." },
        { "a program that tells nothing of its fields",
            [](auto& m) {
                m.focusedField.reading.element.reset();
                m.focusedField.reading.elements = false;
            },
            nothing,
            "Copied. This program does not show its text fields to Vesko. Paste it with Command V "
            "or the program's own shortcut." },
        { "nothing had the focus", [](auto& m) { m.focusedField.reading.element.reset(); }, nothing,
            noField },
        { "there was no cursor", [](auto& m) { m.focusedField.reading.selection.reset(); }, nothing,
            unsupported },
        { "there was no text", [](auto& m) { m.focusedField.reading.value.reset(); }, nothing,
            unsupported },
        { "it was a password",
            [](auto& m) { m.focusedField.reading.subrole = "AXSecureTextField"; }, nothing,
            hidden },
        { "the field does not take text",
            [](auto& m) { m.focusedField.reading.role = "AXStaticText"; }, nothing, unsupported },
        { "the field's role is unknown", [](auto& m) { m.focusedField.reading.role.reset(); },
            nothing, unsupported },
        { "another program came to the front", nothing,
            [](auto& m) { m.focusedField.reading.frontmost = 99; }, otherField },
        { "another field of the program", nothing,
            [](auto& m) { m.focusedField.reading.element = std::make_shared<FakeFieldElement>(2); },
            otherField },
        { "a password of the program", nothing,
            [](auto& m) {
                m.focusedField.reading.element = std::make_shared<FakeFieldElement>(2);
                m.focusedField.reading.subrole = "AXSecureTextField";
            },
            otherField },
        { "the field became a password", nothing,
            [](auto& m) { m.focusedField.reading.subrole = "AXSecureTextField"; }, hidden },
        { "a shortcut keeps the focus from it", nothing,
            [](auto& m) { m.focusedField.reading.focused = false; }, otherField },
        { "another program has taken the keyboard", nothing,
            [](auto& m) {
                m.focusedField.reading.focused = false;
                m.pasteKeystroke.taken = "keyboard_grabbed";
            },
            "Copied. Another program was holding the keyboard, so Vesko did not paste. Paste it "
            "with Command V." },
        { "nothing has the focus any more", nothing,
            [](auto& m) { m.focusedField.reading.element.reset(); }, otherField },
        { "the cursor is gone", nothing, [](auto& m) { m.focusedField.reading.selection.reset(); },
            unsupported },
        { "accessibility was taken away", nothing,
            [](auto& m) { m.focusedField.reading.trusted = false; }, accessibility },
        { "accessibility was taken away and another program is in front", nothing,
            [](auto& m) {
                m.focusedField.reading.trusted = false;
                m.focusedField.reading.frontmost = 99;
            },
            accessibility },
        { "two minutes and a moment passed", nothing, [](auto& m) { m.clock.changeDate(120.001); },
            tooLate },
        { "the date was set back", nothing, [](auto& m) { m.clock.changeDate(-0.5); }, tooLate },
        { "the key could not be sent", nothing, [](auto& m) { m.pasteKeystroke.works = false; },
            "Copied. The paste shortcut could not be sent. Paste it with Command V." },
    };
    open();
    const FieldReading whole = machine.focusedField.reading;
    for (const auto& [name, atStart, before, message] : cases) {
        SCOPED_TRACE(name);
        machine.focusedField.reading = whole;
        machine.pasteKeystroke.works = true;
        machine.clipboard.text.reset();
        atStart(machine);
        dictate();
        before(machine);
        finish();
        EXPECT_EQ(model->status().message(), message);
        EXPECT_EQ(machine.clipboard.text, "hello world");
        EXPECT_EQ(machine.pasteKeystroke.sent, 0);
        EXPECT_EQ(model->status().errorMessage(), "");
    }
}

TEST_F(TextDeliveryTest, TheUserMayWorkOnInTheFieldMeanwhile)
{
    using Change = void (*)(FakePlatform&);
    const std::vector<std::pair<const char*, Change>> cases{
        { "nothing changed", [](FakePlatform&) {} },
        { "the cursor moved",
            [](auto& m) { m.focusedField.reading.selection = TextRange{ 0, 4 }; } },
        { "text was typed", [](auto& m) { m.focusedField.reading.value = "Dear John"; } },
        { "the text can't be read any more",
            [](auto& m) { m.focusedField.reading.value.reset(); } },
        { "it is a combo box now", [](auto& m) { m.focusedField.reading.role = "AXComboBox"; } },
        { "exactly two minutes passed", [](auto& m) { m.clock.changeDate(120); } },
    };
    open();
    const FieldReading whole = machine.focusedField.reading;
    for (const auto& [name, change] : cases) {
        SCOPED_TRACE(name);
        machine.focusedField.reading = whole;
        machine.pasteKeystroke.sent = 0;
        dictate();
        change(machine);
        finish();
        EXPECT_EQ(model->status().message(), pasted);
        EXPECT_EQ(machine.pasteKeystroke.sent, 1);
    }
}

TEST_F(TextDeliveryTest, EveryWritableRoleIsPastedInto)
{
    open();
    int sent = 0;
    for (const char* role : { "AXTextField", "AXTextArea", "AXComboBox", "AXSearchField" }) {
        SCOPED_TRACE(role);
        machine.focusedField.reading.role = role;
        dictate();
        finish();
        EXPECT_EQ(machine.pasteKeystroke.sent, ++sent);
    }
}

TEST_F(TextDeliveryTest, ADictationOfMoreThanTwoMinutesIsTooLateForItsField)
{
    open();
    dictate();
    machine.clock.turn(121);
    finish();
    EXPECT_EQ(model->status().message(), tooLate);
    EXPECT_EQ(machine.pasteKeystroke.sent, 0);
    EXPECT_EQ(machine.clipboard.text, "hello world");
}

TEST_F(TextDeliveryTest, WithPasteTurnedOffTheTextIsOnlyCopied)
{
    choose("pasteEnabled", false);
    open();
    dictate();
    finish();
    EXPECT_EQ(machine.clipboard.text, "hello world");
    EXPECT_EQ(model->status().message(), neutral);
    EXPECT_EQ(machine.pasteKeystroke.sent, 0);
    EXPECT_EQ(machine.focusedField.reads.size(), 1U);
}

TEST_F(TextDeliveryTest, AClipboardThatFailsLeavesTheTextInTheNote)
{
    open();
    machine.clipboard.works = false;
    dictate();
    finish();
    EXPECT_EQ(model->status().errorMessage(),
        "The text is saved, but the clipboard could not be updated. Copy it from your note.");
    EXPECT_EQ(machine.pasteKeystroke.sent, 0);
    EXPECT_EQ(onlyNote().body, "hello world");
    EXPECT_EQ(onlyRecording().status, RecordingStatus::ready);
}

TEST_F(TextDeliveryTest, AVoiceNoteIsNeverCopied)
{
    open();
    model->capture().recordNote(false);
    ASSERT_TRUE(reach(Phase::recording));
    finish();
    EXPECT_EQ(model->status().message(), "Saved to your note");
    EXPECT_EQ(machine.clipboard.text, std::nullopt);
    EXPECT_EQ(machine.pasteKeystroke.sent, 0);
    EXPECT_TRUE(machine.focusedField.reads.empty());
}

TEST_F(TextDeliveryTest, TheFieldIsLookedAtOnlyWhenTheUserHasLetGoOfTheKeys)
{
    open();
    dictate();
    machine.pasteKeystroke.keys.close();
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.pasteKeystroke.keys.waiting(); }));
    EXPECT_EQ(machine.clipboard.text, "hello world"); // the text is safe already
    EXPECT_EQ(machine.focusedField.reads.size(), 1U);
    EXPECT_EQ(model->capture().phase(), Phase::processing);

    machine.focusedField.reading.frontmost = 99;
    machine.pasteKeystroke.keys.open();
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    EXPECT_EQ(model->status().message(), otherField);
}

TEST_F(TextDeliveryTest, AFieldThatAnswersSlowlyIsTheOneOfTheTrigger)
{
    open();
    machine.focusedField.hold();
    dictate();
    machine.focusedField.reading.element = std::make_shared<FakeFieldElement>(2);
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.clipboard.text.has_value(); }));
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    machine.focusedField.letGo();
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(model->status().message(), otherField);
}

TEST_F(TextDeliveryTest, ASlowFieldIsOldFromTheTriggerOnNotFromItsAnswer)
{
    open();
    machine.focusedField.hold();
    dictate();
    machine.clock.turn(121);
    machine.focusedField.letGo();
    finish();
    EXPECT_EQ(model->status().message(), tooLate);
}

TEST_F(TextDeliveryTest, APasteThatTheFieldDoesNotShowIsNotClaimed)
{
    machine.pasteKeystroke.onSent = [] { }; // it went astray
    open();
    dictate();
    finish();
    EXPECT_EQ(model->status().message(), "Copied to clipboard"); // nobody knows yet
    machine.clock.turn(0.25);
    machine.clock.turn(0.3);
    EXPECT_EQ(model->status().message(), pasteMessage({ "not_seen" }));
    EXPECT_EQ(machine.pasteKeystroke.sent, 1);
}

TEST_F(TextDeliveryTest, WhatIsSaidOfANextDictationStands)
{
    machine.pasteKeystroke.onSent = [] { };
    open();
    dictate();
    finish();
    dictate();
    const auto message = model->status().message();
    machine.clock.turn(0.6);
    EXPECT_EQ(model->status().message(), message);
    EXPECT_EQ(model->capture().phase(), Phase::recording);
}

} // namespace

} // namespace vesko

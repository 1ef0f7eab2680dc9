// The field is noted when the dictation starts, and looked at once more before the paste.

#include "VeskoApp/insertion/FocusDestination.h"
#include "VeskoApp/async/TaskScope.h"
#include "tests/fakes/EventLoop.h"
#include "tests/fakes/FakeFocusedField.h"
#include "tests/fakes/FakePasteKeystroke.h"
#include "tests/fakes/TestClock.h"

#include <QCoreApplication>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace vesko {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The lines that the log took.
std::vector<std::string> lines;

class FocusDestinationTest : public testing::Test {
protected:
    FocusDestinationTest()
    {
        lines.clear();
        m_earlier = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext& context, const QString& text) {
                EXPECT_STREQ(context.category, "app.vesko.insertion");
                lines.push_back(text.toStdString());
            });
    }
    ~FocusDestinationTest() override { qInstallMessageHandler(m_earlier); }

    std::optional<FocusDestination> capture() const
    {
        return FocusDestination::from(fields.reading, clock.now());
    }
    std::vector<std::string> paste(FocusDestination& into)
    {
        return awaited(into.attemptPaste(fields, keystroke, clock));
    }

    TestClock clock;
    FakeFocusedField fields;
    FakePasteKeystroke keystroke;

private:
    QtMessageHandler m_earlier;
};

TEST_F(FocusDestinationTest, NotesTheFieldAndTheMoment)
{
    const auto field = capture();
    ASSERT_TRUE(field);
    EXPECT_EQ(field->pid, FakeFocusedField::editor);
    EXPECT_TRUE(field->element->equals(FakeFieldElement(1)));
    EXPECT_EQ(field->selection, (TextRange{ 5, 0 }));
    EXPECT_EQ(field->originalValue, "Dear ");
    EXPECT_EQ(field->capturedAt, clock.now());
    EXPECT_THAT(lines, ElementsAre("capture_ok role=AXTextArea"));
}

TEST_F(FocusDestinationTest, SkipsWhatCannotBeComeBackTo)
{
    struct Case {
        const char* name;
        std::function<void(FieldReading&)> change;
        const char* line;
    };
    const std::vector<Case> cases{
        { "no permission", [](auto& r) { r.trusted = false; },
            "capture_skipped reason=accessibility role=-" },
        { "nothing in front", [](auto& r) { r.frontmost.reset(); },
            "capture_skipped reason=no_active_window role=-" },
        { "this program in front",
            [](auto& r) {
                r.frontmost = static_cast<std::int32_t>(QCoreApplication::applicationPid());
            },
            "capture_skipped reason=vesko_frontmost role=-" },
        { "no focus", [](auto& r) { r.element.reset(); },
            "capture_skipped reason=no_focused_element role=-" },
        { "a program that tells nothing of its fields",
            [](auto& r) {
                r.element.reset();
                r.elements = false;
            },
            "capture_skipped reason=no_elements role=-" },
        { "no cursor", [](auto& r) { r.selection.reset(); },
            "capture_skipped reason=no_cursor role=AXTextArea" },
        { "no text", [](auto& r) { r.value.reset(); },
            "capture_skipped reason=no_text_value role=AXTextArea" },
        { "a password", [](auto& r) { r.subrole = "AXSecureTextField"; },
            "capture_skipped reason=secure_field role=AXTextArea" },
        { "a password whose text is not told",
            [](auto& r) {
                r.subrole = "AXSecureTextField";
                r.value.reset();
            },
            "capture_skipped reason=secure_field role=AXTextArea" },
        { "neither cursor nor role",
            [](auto& r) {
                r.selection.reset();
                r.role.reset();
            },
            "capture_skipped reason=no_cursor role=-" },
    };
    const FieldReading whole = fields.reading;
    for (const auto& [name, change, line] : cases) {
        SCOPED_TRACE(name);
        lines.clear();
        fields.reading = whole;
        change(fields.reading);
        EXPECT_FALSE(capture());
        EXPECT_THAT(lines, ElementsAre(line));
    }
}

TEST_F(FocusDestinationTest, WhatWasNotSeenIsNoMissingField)
{
    fields.reading.seesFrontmost = false;
    fields.reading.frontmost.reset();
    EXPECT_EQ(FocusDestination::reasonAgainst(fields.reading), "front_unknown");
    EXPECT_FALSE(capture());
}

TEST_F(FocusDestinationTest, PastesNothingWhileTheActiveWindowIsUnknown)
{
    auto field = capture();
    ASSERT_TRUE(field);
    fields.reading.seesFrontmost = false;
    fields.reading.frontmost.reset();
    EXPECT_THAT(paste(*field), ElementsAre("front_unknown"));
    EXPECT_EQ(keystroke.sent, 0);
}

TEST_F(FocusDestinationTest, IsTakenForRolesThatWillBeRefusedLater)
{
    fields.reading.role = "AXStaticText";
    EXPECT_TRUE(capture());
    fields.reading.role.reset();
    EXPECT_TRUE(capture());
    fields.reading.subrole = "AXStandardWindow";
    EXPECT_TRUE(capture());
    EXPECT_EQ(lines.back(), "capture_ok role=-");
}

TEST_F(FocusDestinationTest, PastesIntoTheUnchangedField)
{
    auto field = capture();
    EXPECT_THAT(paste(*field), IsEmpty());
    EXPECT_EQ(keystroke.sent, 1);
    EXPECT_THAT(fields.reads, ElementsAre(FakeFocusedField::editor));
    EXPECT_EQ(lines.back(), "paste_sent role=AXTextArea notes=");
}

TEST_F(FocusDestinationTest, NotesWhatChangedAndForbidsNothing)
{
    auto field = capture();
    fields.reading.selection = TextRange{ 5, 1 };
    EXPECT_THAT(paste(*field), IsEmpty());
    EXPECT_EQ(lines.back(), "paste_sent role=AXTextArea notes=cursor_moved");
    fields.reading.selection = field->selection;
    fields.reading.value = "Dear John";
    EXPECT_THAT(paste(*field), IsEmpty());
    EXPECT_EQ(lines.back(), "paste_sent role=AXTextArea notes=text_changed");
    fields.reading.value.reset(); // unreadable is changed
    EXPECT_THAT(paste(*field), IsEmpty());
    EXPECT_EQ(lines.back(), "paste_sent role=AXTextArea notes=text_changed");
}

TEST_F(FocusDestinationTest, RefusesWithEveryReasonInItsOrder)
{
    struct Case {
        const char* name;
        std::function<void()> change;
        std::vector<std::string> reasons;
        const char* line;
    };
    const std::vector<Case> cases{
        { "no element, whatever else",
            [&] {
                fields.reading = FieldReading{};
                fields.reading.trusted = true;
            },
            { "field_changed" }, "paste_refused reasons=field_changed role=-" },
        { "neither permission nor element", [&] { fields.reading = FieldReading{}; },
            { "accessibility" }, "paste_refused reasons=accessibility role=-" },
        { "no cursor, whatever else",
            [&] {
                fields.reading.selection.reset();
                fields.reading.frontmost = 99;
            },
            { "no_cursor" }, "paste_refused reasons=no_cursor role=-" },
        { "no permission", [&] { fields.reading.trusted = false; }, { "accessibility" },
            "paste_refused reasons=accessibility role=AXTextArea" },
        { "nothing in front", [&] { fields.reading.frontmost.reset(); }, { "app_changed" },
            "paste_refused reasons=app_changed role=AXTextArea" },
        { "a field that had the focus last, but has it no more",
            [&] { fields.reading.focused = false; }, { "field_changed" },
            "paste_refused reasons=field_changed role=AXTextArea" },
        { "no longer writable", [&] { fields.reading.role = "AXStaticText"; }, { "not_writable" },
            "paste_refused reasons=not_writable role=AXStaticText" },
        { "everything at once",
            [&] {
                fields.reading.trusted = false;
                fields.reading.frontmost = 99;
                fields.reading.element = std::make_shared<FakeFieldElement>(2);
                fields.reading.role.reset();
                fields.reading.subrole = "AXSecureTextField";
                clock.changeDate(121);
            },
            { "accessibility", "app_changed", "field_changed", "not_writable", "secure_field",
                "too_late" },
            "paste_refused reasons=accessibility,app_changed,field_changed,not_writable,"
            "secure_field,too_late role=-" },
    };
    const FieldReading whole = fields.reading;
    for (const auto& [name, change, reasons, line] : cases) {
        SCOPED_TRACE(name);
        fields.reading = whole;
        auto field = capture();
        ASSERT_TRUE(field);
        change();
        EXPECT_EQ(paste(*field), reasons);
        EXPECT_EQ(lines.back(), line);
    }
    EXPECT_EQ(keystroke.sent, 0);
}

TEST_F(FocusDestinationTest, IsGoodForTwoMinutes)
{
    struct Case {
        double elapsed; // seconds
        bool permitted;
    };
    for (const auto& [elapsed, permitted] :
        std::vector<Case>{ { 0, true }, { 120, true }, { 120.001, false }, { -0.001, false } }) {
        SCOPED_TRACE(elapsed);
        auto field = capture();
        clock.changeDate(elapsed);
        EXPECT_EQ(paste(*field).empty(), permitted);
    }
}

TEST_F(FocusDestinationTest, SaysWhenTheKeyCouldNotBeSent)
{
    auto field = capture();
    keystroke.works = false;
    EXPECT_THAT(paste(*field), ElementsAre("event_failed"));
    EXPECT_EQ(lines.back(), "paste_refused reasons=event_failed role=AXTextArea");
    keystroke.obstacle = "keyboard_grabbed";
    EXPECT_THAT(paste(*field), ElementsAre("keyboard_grabbed"));
}

// After the keystroke into a field that held "Dear " the field is looked at again.
class PasteProofTest : public FocusDestinationTest {
protected:
    PasteProofTest() { EXPECT_THAT(paste(field), IsEmpty()); }

    // What the looks amount to; the field changes before the one of that number.
    bool seems(int look, const std::function<void(FieldReading&)>& change)
    {
        const auto before = fields.reads.size();
        fields.onRead = [this, look, before, change] {
            if (static_cast<int>(fields.reads.size() - before) == look)
                change(fields.reading);
        };
        std::optional<bool> answer;
        TaskScope tasks;
        tasks.spawn([](Task<PasteProof> proof, std::optional<bool>& into) -> Task<> {
            into = co_await std::move(proof) != PasteProof::notSeen;
        }(field.lookForPaste(fields, clock, "how are you?"), answer));
        for (int step = 0; step < 100 && !answer; ++step)
            clock.turn(0.02);
        EXPECT_TRUE(answer);
        looks = static_cast<int>(fields.reads.size() - before);
        return answer.value_or(false);
    }

    FocusDestination field = *capture();
    int looks = 0;
};

TEST_F(PasteProofTest, SeesTheTextAsSoonAsItIsThere)
{
    EXPECT_TRUE(seems(3, [](auto& r) { r.value = "Dear How are you?"; }));
    EXPECT_EQ(looks, 3);
}

TEST_F(PasteProofTest, SeesThatTheTextCameInPlaceOfTheSame)
{
    EXPECT_TRUE(seems(1, [](auto& r) {
        r.value = "Dear, how are you?";
        r.selection = TextRange{ 18, 0 };
    }));
}

TEST_F(PasteProofTest, IsContradictedByAFieldWithoutTheText)
{
    EXPECT_FALSE(seems(1, [](auto&) { }));
    EXPECT_EQ(lines.back(), "paste_not_seen role=AXTextArea");
    EXPECT_FALSE(seems(1, [](auto& r) { r.value = "Dear John"; }));
    EXPECT_EQ(keystroke.sent, 1) << "there is never a second keystroke";
}

TEST_F(PasteProofTest, IsNotContradictedByWhatCanNotBeRead)
{
    EXPECT_TRUE(seems(2, [](auto& r) { r.value.reset(); }));
    fields.reading.value = "Dear ";
    EXPECT_TRUE(seems(2, [](auto& r) { r.element = std::make_shared<FakeFieldElement>(2); }));
    fields.reading.element = field.element;
    EXPECT_TRUE(seems(2, [](auto& r) { r.value = std::string(32'769, 'x'); }));
    EXPECT_TRUE(seems(2, [](auto& r) { r.value = "Dear \uFFFC"; }));
}

TEST(PasteMessage, FollowsTheFirstReason)
{
    constexpr const char* noField
        = "Copied. No text field was focused when you started. Paste it with Command V.";
    constexpr const char* hidden
        = "Copied. Vesko does not paste where letters are hidden, as in a password.";
    constexpr const char* neutral = "Copied. Paste it when you are ready.";
    constexpr const char* moved
        = "Copied. You moved to another field, so Vesko did not paste. Paste it with Command V.";
    constexpr const char* unsupported
        = "Copied. This field does not accept automatic paste. Paste it with Command V.";
    const std::vector<std::pair<std::vector<std::string>, const char*>> cases{
        { { "accessibility" },
            "Copied. Allow Accessibility for Vesko in System Settings to paste automatically." },
        { { "accessibility", "app_changed" },
            "Copied. Allow Accessibility for Vesko in System Settings to paste automatically." },
        { { "no_field" }, noField },
        { { "no_active_window" },
            "Copied. No active window was known when you started, so Vesko did not paste. Paste "
            "it with Command V." },
        { { "no_focused_element" }, noField },
        { { "vesko_frontmost" },
            "Copied. You started in Vesko itself, not in another program. Paste it with Command "
            "V." },
        { { "no_elements" },
            "Copied. This program does not show its text fields to Vesko. Paste it with Command V "
            "or the program's own shortcut." },
        { { "front_unknown" },
            "Copied. Vesko could not see which field was in use, so it did not paste. Paste it "
            "with Command V." },
        { { "app_changed" }, moved },
        { { "field_changed", "too_late" }, moved },
        { { "not_writable" }, unsupported },
        { { "no_cursor" }, unsupported },
        { { "no_text_value" }, unsupported },
        { { "too_late" },
            "Copied. More than two minutes passed, so Vesko did not paste. Paste it with Command "
            "V." },
        { { "session_locked" },
            "Copied. The session was locked, so Vesko did not paste. Paste it with Command V." },
        { { "keyboard_grabbed" },
            "Copied. Another program was holding the keyboard, so Vesko did not paste. Paste it "
            "with Command V." },
        { { "keys_held" },
            "Copied. A key was held down, so Vesko did not paste. Paste it with Command V." },
        { { "modifiers_latched" },
            "Copied. Shift, Alt or another such key was latched or locked, so Vesko did not paste. "
            "Paste it with Command V." },
        { { "slow_keys" },
            "Copied. Slow keys are switched on in the desktop's settings, so Vesko can't paste. "
            "Paste it with Command V." },
        { { "secure_field", "too_late" }, hidden },
        { { "still_asked" },
            "Copied. The desktop was still asking you whether Vesko may press the keys that paste. "
            "Paste it with Command V." },
        { { "not_allowed" },
            "Copied. Vesko was not allowed to press the keys that paste. Paste it with Command "
            "V." },
        { { "event_failed" },
            "Copied. The paste shortcut could not be sent. Paste it with Command V." },
        { { "not_seen" },
            "Copied. Paste was sent, but the field does not show the text. If it is missing, paste "
            "it with Command V." },
        { { "paste_off" }, neutral },
        { { "something new" }, neutral },
        { {}, neutral },
    };
    for (const auto& [reasons, message] : cases) {
        SCOPED_TRACE(reasons.empty() ? "no reason" : reasons.front());
        EXPECT_EQ(pasteMessage(reasons), message);
    }
}

} // namespace

} // namespace vesko

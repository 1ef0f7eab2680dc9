#include "VeskoApp/insertion/InsertionReview.h"
#include "tests/fakes/FakeFocusedField.h"
#include "tests/fakes/TestClock.h"

#include <gmock/gmock.h>

namespace vesko {
namespace {

using testing::ElementsAre;

struct Report {
    std::vector<DictionarySuggestion> corrections;
    bool sent = false;

    bool operator==(const Report&) const = default;
};

const DictionarySuggestion wrldToWorld{ "wrld", "world", true };

// "hello wrld" is pasted behind "Dear ", and lands at once.
class InsertionReviewTest : public testing::Test {
protected:
    FocusDestination destination() const
    {
        return {
            .pid = FakeFocusedField::editor,
            .element = fields.reading.element,
            .selection = *fields.reading.selection,
            .originalValue = *fields.reading.value,
            .capturedAt = clock.now(),
        };
    }
    // Begins at a field that holds this text, with the cursor behind the prefix.
    void paste(const std::string& prefix = "Dear ", const std::string& suffix = "",
        const std::string& text = "hello wrld")
    {
        fields.reading.selection = TextRange{ static_cast<std::int64_t>(prefix.size()), 0 };
        show(prefix + suffix);
        review.start(destination(), text, [this](auto corrections, bool sent) {
            reports.push_back({ std::move(corrections), sent });
        });
        show(prefix + text + suffix);
    }
    // The same, and the review has seen it.
    void land(const std::string& prefix = "Dear ", const std::string& suffix = "",
        const std::string& text = "hello wrld")
    {
        paste(prefix, suffix, text);
        clock.turn(0.1);
    }
    void show(std::string value) { fields.reading.value = std::move(value); }
    void clickElsewhere() { fields.reading.element = std::make_shared<FakeFieldElement>(2); }
    // Nothing is under way, and nothing will come of what happened.
    void expectIdle()
    {
        EXPECT_EQ(clock.armed(), 0U);
        const auto reads = fields.reads.size();
        review.armSend();
        clock.turn(200);
        EXPECT_EQ(fields.reads.size(), reads);
    }

    TestClock clock;
    FakeFocusedField fields;
    InsertionReview review{ fields, clock };
    std::vector<Report> reports;
};

TEST_F(InsertionReviewTest, AnEditIsFoundWhenTheTextIsSent)
{
    land("");
    show("hello world");
    clock.turn(0.25);
    review.armSend();
    show("");
    clock.turn(0.25);
    EXPECT_THAT(reports, ElementsAre(Report{ { wrldToWorld }, true }));
    expectIdle();
    EXPECT_EQ(reports.size(), 1U);
}

TEST_F(InsertionReviewTest, AnEmptyParagraphThatTheEditorKeptBehindThePasteIsNoEdit)
{
    paste("");
    show("hello wrld\n");
    clock.turn(0.1);
    show("hello world\n");
    clock.turn(0.25);
    review.armSend();
    show("");
    clock.turn(0.25);
    EXPECT_THAT(reports, ElementsAre(Report{ { wrldToWorld }, true }));
}

TEST_F(InsertionReviewTest, ReturnTakesTheEditThatNoLookHasSeen)
{
    land("Dear ", " Yours");
    show("Dear hello world Yours");
    review.armSend();
    show("");
    clock.turn(0.25);
    EXPECT_THAT(reports, ElementsAre(Report{ { wrldToWorld }, true }));
}

TEST_F(InsertionReviewTest, TheUneditedTextIsSentWithNothingToLearn)
{
    land("");
    review.armSend();
    show("");
    clock.turn(0.25);
    EXPECT_THAT(reports, ElementsAre(Report{ {}, true }));
}

TEST_F(InsertionReviewTest, AFieldOfAnotherProgramOrKindIsLeft)
{
    const std::pair<const char*, void (*)(FieldReading&)> cases[]{
        { "another field", [](auto& r) { r.element = std::make_shared<FakeFieldElement>(2); } },
        { "no field", [](auto& r) { r.element.reset(); } },
        { "another program", [](auto& r) { r.frontmost = 99; } },
        { "no program", [](auto& r) { r.frontmost.reset(); } },
        { "no permission", [](auto& r) { r.trusted = false; } },
        { "a password", [](auto& r) { r.subrole = "AXSecureTextField"; } },
        { "no text", [](auto& r) { r.value.reset(); } },
        { "too long a text", [](auto& r) { r.value = std::string(32'769, 'a'); } },
    };
    const FieldReading whole = fields.reading;
    for (const auto& [name, change] : cases) {
        SCOPED_TRACE(name);
        fields.reading = whole;
        reports.clear();
        land();
        show("Dear hello world");
        clock.turn(0.25);
        change(fields.reading);
        clock.turn(0.25);
        EXPECT_THAT(reports, ElementsAre(Report{ { wrldToWorld }, false }));
        expectIdle();
    }
}

TEST_F(InsertionReviewTest, AProgramThatHasNoAnswerForAMomentIsAskedAgain)
{
    const std::pair<const char*, void (*)(FieldReading&)> cases[]{
        { "of its fields", [](auto& r) { r.element.reset(); } },
        { "of the field's text", [](auto& r) { r.value.reset(); } },
        { "of a part of the field's text", [](auto& r) { r.value = "Dear "; } },
    };
    for (const auto& [name, change] : cases) {
        SCOPED_TRACE(name);
        reports.clear();
        paste();
        const FieldReading whole = fields.reading;
        const auto keepSilent = [&] {
            change(fields.reading);
            fields.reading.elements = false;
        };
        keepSilent();
        clock.turn(0.1);
        fields.reading = whole;
        clock.turn(0.1);
        keepSilent();
        clock.turn(0.25);
        fields.reading = whole;
        show("Dear hello world");
        clock.turn(0.25);
        fields.reading.frontmost = 99;
        clock.turn(0.25);
        EXPECT_THAT(reports, ElementsAre(Report{ { wrldToWorld }, false }));
        fields.reading = whole;
    }
}

TEST_F(InsertionReviewTest, AProgramThatIsSilentFromThePasteOnIsAskedFiveTimes)
{
    paste();
    const auto reads = fields.reads.size();
    fields.reading.element.reset();
    fields.reading.elements = false;
    clock.turn(10);
    EXPECT_EQ(fields.reads.size(), reads + 5);
    expectIdle();
}

TEST_F(InsertionReviewTest, AFieldThatIsLeftUneditedTellsNothing)
{
    land();
    clickElsewhere();
    clock.turn(0.25);
    EXPECT_TRUE(reports.empty());
    expectIdle();
}

TEST_F(InsertionReviewTest, EditsAroundTheFragmentEndItWithTheLastGoodOne)
{
    for (const char* value : { "dear hello world now", "Dear hello world now!", "", "Dear" }) {
        SCOPED_TRACE(value);
        reports.clear();
        land("Dear ", " now");
        show("Dear hello world now");
        clock.turn(0.25);
        show(value);
        clock.turn(0.25);
        EXPECT_THAT(reports, ElementsAre(Report{ { wrldToWorld }, false }));
        expectIdle();
    }
}

TEST_F(InsertionReviewTest, ItEndsAfterTwoMinutes)
{
    land();
    show("Dear hello world");
    clock.turn(119.8);
    EXPECT_TRUE(reports.empty());
    clock.turn(0.5);
    EXPECT_THAT(reports, ElementsAre(Report{ { wrldToWorld }, false }));
    expectIdle();
}

TEST_F(InsertionReviewTest, ADateThatIsSetDoesNotLengthenIt)
{
    land();
    show("Dear hello world");
    clock.changeDate(-3600);
    clock.turn(120.5);
    EXPECT_EQ(reports.size(), 1U);
}

TEST_F(InsertionReviewTest, ThePasteIsAwaitedForFiveLooks)
{
    paste();
    show("Dear ");
    clock.turn(0.45);
    EXPECT_EQ(fields.reads.size(), 4U);
    show("Dear hello wrld");
    clock.turn(0.05);
    show("Dear hello world");
    clock.turn(0.25);
    clickElsewhere();
    clock.turn(0.25);
    EXPECT_THAT(reports, ElementsAre(Report{ { wrldToWorld }, false }));
}

TEST_F(InsertionReviewTest, APasteThatNeverLandsSaysNothing)
{
    for (const char* value : { "Dear ", "Dear “hello wrld”", "Dear hello world" }) {
        SCOPED_TRACE(value);
        fields.reads.clear();
        paste();
        show(value);
        clock.turn(0.5);
        EXPECT_EQ(fields.reads.size(), 5U);
        show("Dear hello wrld");
        expectIdle();
        EXPECT_TRUE(reports.empty());
    }
}

TEST_F(InsertionReviewTest, AFieldLostBeforeThePasteLandsSaysNothing)
{
    paste();
    clickElsewhere();
    clock.turn(0.1);
    expectIdle();
    EXPECT_TRUE(reports.empty());
}

TEST_F(InsertionReviewTest, NothingRunsWhereNothingCouldBeWatched)
{
    show(std::string(32'769, 'a'));
    review.start(destination(), "hello", [](auto, bool) { FAIL(); });
    expectIdle();
    show("Dear ");
    review.start(destination(), "", [](auto, bool) { FAIL(); });
    expectIdle();
    EXPECT_TRUE(fields.reads.empty());
}

TEST_F(InsertionReviewTest, AnEmptyFieldIsSentForASecondAndAHalfAfterReturn)
{
    const struct {
        const char* name;
        double after;
        bool sent;
    } rows[] = { { "at once", 0, true }, { "in time", 1.1, true }, { "too late", 1.7, false } };
    for (const auto& [name, after, sent] : rows) {
        SCOPED_TRACE(name);
        reports.clear();
        land("Dear ");
        show("Dear hello world");
        review.armSend();
        clock.turn(after);
        show("");
        clock.turn(0.25);
        EXPECT_THAT(reports, ElementsAre(Report{ { wrldToWorld }, sent }));
    }
}

TEST_F(InsertionReviewTest, EveryReturnGivesItMoreTime)
{
    land("");
    show("hello world");
    review.armSend();
    clock.turn(1.2);
    review.armSend();
    clock.turn(1.2);
    show("");
    clock.turn(0.25);
    EXPECT_THAT(reports, ElementsAre(Report{ { wrldToWorld }, true }));
}

TEST_F(InsertionReviewTest, AFieldOfTheFragmentAloneThatEmptiesLateIsWatchedOn)
{
    land("");
    show("hello world");
    review.armSend();
    clock.turn(1.7);
    show("");
    clock.turn(110);
    EXPECT_NE(clock.armed(), 0U);
    clock.turn(20);
    EXPECT_TRUE(reports.empty());
    expectIdle();
}

TEST_F(InsertionReviewTest, AnEmptyFieldWithoutReturnIsNotSent)
{
    land("");
    show("hello world");
    clock.turn(0.25);
    show("");
    clock.turn(121);
    EXPECT_TRUE(reports.empty());
}

TEST_F(InsertionReviewTest, ReturnCountsOnlyWhileTheFragmentStands)
{
    const std::pair<const char*, void (*)(FakeFocusedField&)> cases[]{
        { "another field",
            [](auto& f) { f.reading.element = std::make_shared<FakeFieldElement>(2); } },
        { "the fragment was emptied", [](auto& f) { f.reading.value = "Dear "; } },
        { "the text before it changed", [](auto& f) { f.reading.value = "dear hello world"; } },
    };
    const FieldReading whole = fields.reading;
    for (const auto& [name, atReturn] : cases) {
        SCOPED_TRACE(name);
        fields.reading = whole;
        reports.clear();
        land();
        show("Dear hello world");
        clock.turn(0.25);
        const auto before = fields.reading;
        atReturn(fields);
        review.armSend();
        fields.reading = before;
        show("");
        clock.turn(0.25);
        EXPECT_THAT(reports, ElementsAre(Report{ { wrldToWorld }, false }));
    }
}

TEST_F(InsertionReviewTest, ReturnInAFieldThatWasSeenEmptyIsNothing)
{
    land("");
    show("");
    clock.turn(0.25);
    review.armSend();
    clock.turn(0.25);
    EXPECT_TRUE(reports.empty());
    EXPECT_NE(clock.armed(), 0U);
}

TEST_F(InsertionReviewTest, AStoppedOneReportsNothing)
{
    land();
    show("Dear hello world");
    clock.turn(0.25);
    review.stop();
    clickElsewhere();
    expectIdle();
    EXPECT_TRUE(reports.empty());
}

TEST_F(InsertionReviewTest, AnotherOneTakesItsPlace)
{
    land();
    show("Dear hello world");
    clock.turn(0.25);
    land("Sir, ", "", "goodby");
    show("Sir, goodbye");
    clock.turn(0.25);
    clickElsewhere();
    clock.turn(0.25);
    EXPECT_THAT(reports,
        ElementsAre(Report{ { DictionarySuggestion{ "goodby", "goodbye", true } }, false }));
}

// Reading takes its time here, and the program that has the focus doesn't wait for it.

TEST_F(InsertionReviewTest, AFieldEmptiedBeforeReturnIsReadWasSent)
{
    land("Dear ");
    show("Dear hello world");
    clock.turn(0.25);
    show("");
    review.armSend(); // by now the reading finds nothing
    clock.turn(0.25);
    EXPECT_THAT(reports, ElementsAre(Report{ { wrldToWorld }, true }));
}

TEST_F(InsertionReviewTest, ALookThatEndsBeforeTheReadingAtReturnKnowsOfTheReturn)
{
    land("Dear ");
    show("Dear hello world");
    clock.turn(0.25);
    show("");
    fields.hold();
    clock.turn(0.25); // the look is under way
    review.armSend();
    fields.letGo();
    EXPECT_THAT(reports, ElementsAre(Report{ { wrldToWorld }, true }));
    expectIdle();
}

TEST_F(InsertionReviewTest, AReadingOfAnEarlierReviewIsIgnored)
{
    land();
    show("Dear hello world");
    fields.hold();
    clock.turn(0.25);
    review.armSend();
    paste("Sir, ", "", "goodby");
    fields.letGo();
    clock.turn(0.1);
    show("Sir, goodbye");
    clock.turn(0.25);
    clickElsewhere();
    clock.turn(0.25);
    EXPECT_THAT(reports,
        ElementsAre(Report{ { DictionarySuggestion{ "goodby", "goodbye", true } }, false }));
}

TEST_F(InsertionReviewTest, AReadingThatAnswersAfterTheEndIsTheLast)
{
    land();
    fields.hold();
    clock.turn(0.25);
    clock.turn(125);
    EXPECT_TRUE(reports.empty());
    fields.letGo();
    EXPECT_TRUE(reports.empty()); // it read the text as it was pasted
    expectIdle();
}

TEST_F(InsertionReviewTest, OneLookAtATimeIsUnderWay)
{
    land();
    fields.reads.clear();
    fields.hold();
    clock.turn(10);
    EXPECT_EQ(fields.reads.size(), 1U);
    fields.letGo();
    clock.turn(0.25);
    EXPECT_EQ(fields.reads.size(), 2U);
}

TEST_F(InsertionReviewTest, ItMayEndAmidAReading)
{
    auto other = std::make_unique<InsertionReview>(fields, clock);
    other->start(destination(), "hello", [](auto, bool) { FAIL(); });
    fields.hold();
    clock.turn(0.1);
    other.reset();
    fields.letGo();
    EXPECT_EQ(clock.armed(), 0U);
}

TEST_F(InsertionReviewTest, ThePollsAreAQuarterOfASecondApart)
{
    land();
    fields.reads.clear();
    clock.turn(10);
    EXPECT_EQ(fields.reads.size(), 40U);
}

} // namespace
} // namespace vesko

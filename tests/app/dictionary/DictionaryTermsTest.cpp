// What the program learns from how the user changes a pasted text, and what it then does with it.

#include "tests/app/dictionary/LearningTest.h"

namespace vesko {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const DictionarySuggestion found{ "world", "wurld", true };

TEST_F(LearningTest, WhatWasSentIsLearnedAndActsInTheNextDictation)
{
    open();
    dictateAndEdit();
    send();
    ASSERT_TRUE(eventually([&] { return !model->terms().message().isEmpty(); }));
    EXPECT_EQ(model->terms().message().toStdString(),
        "Added 1 dictionary corrections. Review them in Dictionary.");
    ASSERT_EQ(terms(), 1U);
    EXPECT_EQ(model->library().contents().dictionary[0].original, "world");
    EXPECT_EQ(model->library().contents().dictionary[0].replacement, "wurld");
    EXPECT_TRUE(model->library().contents().dictionary[0].enabled);
    EXPECT_THAT(model->terms().pendingCorrections(), IsEmpty());

    machine.focusedField.reading.value = "Dear ";
    dictate();
    finish();
    EXPECT_EQ(machine.clipboard.text, "hello wurld");
    const auto attempt = model->library().contents().notes.back().recordings.back().attempts.back();
    EXPECT_EQ(attempt.rawText, "hello world");
    EXPECT_EQ(attempt.text, "hello wurld");
    EXPECT_EQ(model->library().contents().notes.back().body, "hello wurld");
}

TEST_F(LearningTest, TheDictionaryTurnedOffLeavesTheText)
{
    open();
    dictateAndEdit();
    send();
    ASSERT_TRUE(eventually([&] { return terms() == 1; }));
    model->preferences().dictionaryEnabled.set(false);
    dictate();
    finish();
    EXPECT_EQ(machine.clipboard.text, "hello world");
}

TEST_F(LearningTest, WhatWasNotSentWaitsForTheUser)
{
    open();
    int changes = 0;
    QObject::connect(&model->terms(), &DictionaryTerms::pendingCorrectionsChanged, &model->terms(),
        [&] { ++changes; });
    dictateAndEdit();
    leave();
    EXPECT_THAT(model->terms().pendingCorrections(), ElementsAre(found));
    EXPECT_EQ(changes, 1);
    drainEvents();
    EXPECT_EQ(terms(), 0U);
    EXPECT_EQ(model->terms().message().toStdString(), "");

    model->terms().learnPendingCorrections();
    EXPECT_THAT(model->terms().pendingCorrections(), IsEmpty());
    ASSERT_TRUE(eventually([&] { return terms() == 1; }));
    EXPECT_EQ(model->terms().message().toStdString(),
        "Added 1 dictionary corrections. Review them in Dictionary.");
    EXPECT_EQ(changes, 2);
}

TEST_F(LearningTest, LearningNothingDoesNothing)
{
    open();
    model->terms().learnPendingCorrections();
    drainEvents();
    EXPECT_EQ(model->terms().message().toStdString(), "");
    EXPECT_FALSE(std::filesystem::exists(root() / "library.json"));
}

TEST_F(LearningTest, PendingOnesStayUntilOthersReplaceThem)
{
    open();
    dictateAndEdit();
    leave();
    // A later review that finds nothing.
    dictateAndEdit();
    machine.focusedField.reading.value = "Dear hello world";
    machine.clock.turn(0.25);
    leave();
    EXPECT_THAT(model->terms().pendingCorrections(), ElementsAre(found));
    // And one that finds something else.
    dictateAndEdit();
    machine.focusedField.reading.value = "Dear hallo world";
    machine.clock.turn(0.25);
    leave();
    EXPECT_THAT(model->terms().pendingCorrections(),
        ElementsAre(DictionarySuggestion{ "hello", "hallo", true }));
}

TEST_F(LearningTest, ANewRecordingEndsTheReviewWithoutAReport)
{
    open();
    dictateAndEdit();
    dictate();
    EXPECT_EQ(model->capture().phase(), Phase::recording);
    leave();
    machine.clock.turn(1);
    EXPECT_THAT(model->terms().pendingCorrections(), IsEmpty());
    finish();
}

TEST_F(LearningTest, SwitchingItOffEndsTheReviewAndForgetsWhatWaits)
{
    open();
    dictateAndEdit();
    leave();
    dictateAndEdit();
    EXPECT_THAT(model->terms().pendingCorrections(), ElementsAre(found));
    model->preferences().learnCorrections.set(false);
    EXPECT_THAT(model->terms().pendingCorrections(), IsEmpty());
    const auto reads = machine.focusedField.reads.size();
    send();
    machine.clock.turn(200);
    drainEvents();
    EXPECT_EQ(machine.focusedField.reads.size(), reads);
    EXPECT_EQ(terms(), 0U);
    EXPECT_THAT(model->terms().pendingCorrections(), IsEmpty());
}

TEST_F(LearningTest, AnotherSettingEndsNothing)
{
    open();
    dictateAndEdit();
    model->preferences().soundsEnabled.set(false);
    leave();
    EXPECT_THAT(model->terms().pendingCorrections(), ElementsAre(found));
}

TEST_F(LearningTest, SwitchedOffNothingIsWatched)
{
    choose("learnCorrections", false);
    open();
    dictateAndEdit();
    EXPECT_EQ(machine.focusedField.reads.size(), 3U); // at the trigger, before the paste, after it
}

TEST_F(LearningTest, WhatWasOnlyCopiedIsNotWatched)
{
    choose("pasteEnabled", false);
    open();
    dictate();
    finish();
    machine.clock.turn(1);
    EXPECT_EQ(machine.focusedField.reads.size(), 1U);
}

TEST_F(LearningTest, AFailedSaveIsSaidAndAddsNothing)
{
    open();
    dictateAndEdit();
    breakStore();
    send();
    ASSERT_TRUE(eventually([&] { return !model->status().errorMessage().empty(); }));
    EXPECT_EQ(model->status().errorMessage(),
        "Vesko could not save this change. Check free disk space and access to the data folder.");
    EXPECT_EQ(model->terms().message().toStdString(), "");
    EXPECT_EQ(terms(), 0U);
    repairStore();
}

TEST_F(LearningTest, WhatIsKnownAlreadyIsNotAnnounced)
{
    open();
    dictateAndEdit();
    send();
    ASSERT_TRUE(eventually([&] { return terms() == 1; }));
    model->preferences().dictionaryEnabled.set(false); // so that it is dictated the same
    int messages = 0;
    QObject::connect(
        &model->terms(), &DictionaryTerms::messageChanged, &model->terms(), [&] { ++messages; });
    int snapshots = 0;
    QObject::connect(
        &model->library(), &LibrarySession::changed, &model->library(), [&] { ++snapshots; });
    dictateAndEdit();
    const int before = snapshots;
    send();
    ASSERT_TRUE(eventually([&] { return snapshots > before; }));
    EXPECT_EQ(terms(), 1U);
    EXPECT_EQ(messages, 0);
}

TEST_F(LearningTest, DismissedCorrectionsChangeNothing)
{
    open();
    dictateAndEdit();
    leave();
    ASSERT_THAT(model->terms().pendingCorrections(), ElementsAre(found));
    model->terms().dismissPendingCorrections();
    EXPECT_THAT(model->terms().pendingCorrections(), IsEmpty());
    model->terms().learnPendingCorrections();
    drainEvents();
    EXPECT_EQ(terms(), 0U);
}

} // namespace
} // namespace vesko

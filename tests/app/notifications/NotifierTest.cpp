#include "VeskoApp/notifications/Notifier.h"

#include "tests/app/AppModelTest.h"

namespace vesko {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

struct NotifierTest : AppModelTest {
    const std::vector<Notifications::Notice>& shown() { return machine.notifications.shown; }

    void openWithoutTray()
    {
        machine.statusItem.isVisible = false;
        open();
    }
    // A dictation that goes nowhere but onto the clipboard.
    void dictateNowhere()
    {
        choose("pasteEnabled", false);
        model->preferences().pasteEnabled.set(false);
        dictate();
        machine.recognizer.hears = "secret words";
        finish();
    }
    void failToDictate()
    {
        dictate();
        machine.recognizer.hears = "";
        finish();
    }
    std::vector<std::string> actions()
    {
        std::vector<std::string> ids;
        for (const auto& action : shown().back().actions)
            ids.push_back(action.id);
        return ids;
    }
};

TEST_F(NotifierTest, WhatStandsInTheControlAndTheTrayIsNotToldAgain)
{
    open();
    dictateNowhere();
    EXPECT_THAT(shown(), IsEmpty());
}

TEST_F(NotifierTest, WithoutATrayTheUserIsToldThatNothingWasPasted)
{
    openWithoutTray();
    dictateNowhere();
    ASSERT_EQ(shown().size(), 1U);
    EXPECT_EQ(shown()[0].title, "Not pasted");
    EXPECT_EQ(shown()[0].text, model->status().message());
    EXPECT_THAT(shown()[0].text, Not(HasSubstr("secret")));
    EXPECT_EQ(actions(), (std::vector<std::string>{ "copy", "open" }));
}

TEST_F(NotifierTest, WithoutTheControlToo)
{
    choose("showFloating", false);
    open();
    dictateNowhere();
    EXPECT_EQ(shown().size(), 1U);
}

TEST_F(NotifierTest, TheTextIsShownToWhoAllowsIt)
{
    openWithoutTray();
    model->notifier().setShowsText(true);
    dictateNowhere();
    ASSERT_EQ(shown().size(), 1U);
    EXPECT_THAT(shown()[0].text, HasSubstr("\nsecret words"));
}

TEST_F(NotifierTest, TheActionsDoWhatTheySay)
{
    openWithoutTray();
    std::optional<Uuid> opened;
    model->notifier().openNote = [&](const Uuid& note) { opened = note; };
    dictateNowhere();
    machine.clipboard.text = "something else";
    machine.notifications.onAction("copy");
    EXPECT_EQ(machine.clipboard.text, "secret words");
    machine.notifications.onAction("open");
    EXPECT_EQ(opened, model->library().contents().notes.back().id);
    machine.notifications.onAction("default");
    machine.notifications.onAction("retry");
    ASSERT_TRUE(reach(Phase::idle));
}

TEST_F(NotifierTest, AFailureIsToldAndCanBeRetried)
{
    openWithoutTray();
    failToDictate();
    ASSERT_EQ(shown().size(), 1U);
    EXPECT_EQ(shown()[0].title, "Not transcribed");
    EXPECT_EQ(shown()[0].text, model->status().errorMessage());
    EXPECT_EQ(actions(), (std::vector<std::string>{ "retry", "open" }));

    machine.recognizer.hears = "words";
    machine.notifications.onAction("retry");
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_TRUE(eventually([&] { return machine.clipboard.text == "words"; }));
}

TEST_F(NotifierTest, TheNextDictationTakesItAway)
{
    openWithoutTray();
    dictateNowhere();
    const int before = machine.notifications.withdrawn;
    dictate();
    EXPECT_EQ(machine.notifications.withdrawn, before + 1);
    machine.clipboard.text = "something else";
    machine.notifications.onAction("copy");
    EXPECT_EQ(machine.clipboard.text, "something else");
    finish();
}

} // namespace
} // namespace vesko

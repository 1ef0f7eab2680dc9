// The global inputs by themselves.

#include "VeskoApp/capture/Hotkeys.h"
#include "tests/fakes/FakeKeyInput.h"
#include "tests/fakes/TestClock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace vesko {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HotkeysTest : public testing::Test {
protected:
    HotkeysTest()
    {
        hotkeys.onTrigger = [&] { ++triggers; };
        hotkeys.fnEnabled = [&] { return enabled; };
        hotkeys.isRecording = [&] { return recording; };
        hotkeys.canStart = [&] { return startable; };
        hotkeys.gestureKey = [&] { return chosen; };
        hotkeys.combination = [&] { return combination; };
        hotkeys.isLocked = [&] { return locked; };
        hotkeys.onFnAction = [this](FnShortcutAction action) { actions.push_back(action); };
        hotkeys.onFnTap = [this] { ++taps; };
        hotkeys.onSendIntent = [&] { ++sends; };
    }

    TestClock clock;
    FakeGlobalShortcut shortcut;
    FakeKeyMonitor keys;
    bool enabled = true;
    bool recording = false;
    bool startable = true;
    bool locked = false;
    GestureKey chosen = GestureKey::rightControl;
    KeyCombination combination;
    int triggers = 0;
    int sends = 0;
    int taps = 0;
    std::vector<FnShortcutAction> actions;
    Hotkeys hotkeys{ shortcut, keys, clock };
};

TEST_F(HotkeysTest, TheShortcutTriggers)
{
    EXPECT_EQ(hotkeys.start(), "");
    shortcut.press();
    EXPECT_EQ(triggers, 1);
}

TEST_F(HotkeysTest, PressesInQuickSuccessionAreOne)
{
    hotkeys.start();
    shortcut.press();
    clock.turn(0.2);
    shortcut.press();
    EXPECT_EQ(triggers, 1);
    clock.turn(0.05); // a quarter of a second after the accepted one, and not more
    shortcut.press();
    EXPECT_EQ(triggers, 1);
    clock.turn(0.001);
    shortcut.press();
    EXPECT_EQ(triggers, 2);
}

TEST_F(HotkeysTest, AHeldShortcutTriggersNoMoreOftenThanFourTimesASecond)
{
    hotkeys.start();
    for (int repeat = 0; repeat < 30; ++repeat) {
        shortcut.press();
        clock.turn(1.0 / 30);
    }
    EXPECT_LE(triggers, 4);
}

TEST_F(HotkeysTest, ADateThatIsChangedDoesNotSwallowAPress)
{
    hotkeys.start();
    shortcut.press();
    clock.changeDate(-3600);
    clock.turn(1);
    shortcut.press();
    EXPECT_EQ(triggers, 2);
}

TEST_F(HotkeysTest, AShortcutThatAnotherProgramHasIsReportedAndTheGestureWorks)
{
    shortcut.taken = true;
    EXPECT_EQ(hotkeys.start(),
        "%1 is unavailable: another program has it. Use the floating button, or choose another "
        "shortcut in the settings.");
    keys.pressGestureKey();
    EXPECT_THAT(actions, ElementsAre(FnShortcutAction::begin));
}

TEST_F(HotkeysTest, TheShortcutIsTheCombinationOfTheMoment)
{
    hotkeys.start();
    EXPECT_EQ(shortcut.combination, KeyCombination{});
    combination.key = "AD01";
    EXPECT_EQ(hotkeys.installShortcut(), "");
    EXPECT_EQ(shortcut.combination, combination);
    shortcut.press();
    EXPECT_EQ(triggers, 1);
}

TEST_F(HotkeysTest, NothingBeginsInALockedSessionOrWhileAnotherProgramHoldsTheKeyboard)
{
    hotkeys.start();
    for (bool* const other : { &locked, &keys.taken }) {
        *other = true;
        keys.pressGestureKey();
        clock.turn(1);
        keys.releaseGestureKey();
        keys.pressReturn();
        *other = false;
    }
    EXPECT_THAT(actions, testing::IsEmpty());
    EXPECT_EQ(sends, 0);
    locked = true;
    shortcut.press();
    EXPECT_EQ(triggers, 0);
    locked = false;
    shortcut.press();
    EXPECT_EQ(triggers, 1);
    keys.pressGestureKey();
    EXPECT_THAT(actions, ElementsAre(FnShortcutAction::begin));
}

TEST_F(HotkeysTest, AHoldThatWasBegunEndsInALockedSessionToo)
{
    hotkeys.start();
    keys.pressGestureKey();
    clock.turn(1);
    locked = true;
    keys.releaseGestureKey();
    using enum FnShortcutAction;
    EXPECT_THAT(actions, ElementsAre(begin, hold, finish));
}

TEST_F(HotkeysTest, AButtonMakesACombinationOfThePress)
{
    using enum FnShortcutAction;
    hotkeys.start();
    keys.pressGestureKey();
    keys.pressButton();
    clock.turn(0.1);
    keys.releaseGestureKey();
    EXPECT_THAT(actions, ElementsAre(begin, discard));
    recording = true;
    keys.pressGestureKey();
    keys.pressButton();
    keys.releaseGestureKey();
    EXPECT_THAT(actions, ElementsAre(begin, discard, armStop));
    keys.pressButton();
    EXPECT_EQ(actions.size(), 3U);
}

TEST_F(HotkeysTest, WithoutThePermissionNoKeyIsWatched)
{
    keys.isPermitted = false;
    EXPECT_EQ(hotkeys.start(), "");
    EXPECT_EQ(keys.watched, std::nullopt);
    shortcut.press();
    EXPECT_EQ(triggers, 1);

    keys.isPermitted = true;
    hotkeys.installFnMonitors();
    EXPECT_EQ(keys.watched, GestureKey::rightControl);
}

TEST_F(HotkeysTest, WatchingAnewTakesTheKeyOfTodayAndDiscardsTheGestureUnderWay)
{
    hotkeys.start();
    keys.pressGestureKey();
    chosen = GestureKey::pause;
    hotkeys.installFnMonitors();
    EXPECT_EQ(keys.watched, GestureKey::pause);
    EXPECT_THAT(actions, ElementsAre(FnShortcutAction::begin, FnShortcutAction::discard));
    clock.turn(1);
    EXPECT_EQ(actions.size(), 2U);
}

TEST_F(HotkeysTest, TheGesturesGiveTheirActions)
{
    using enum FnShortcutAction;
    struct Case {
        const char* name;
        std::function<void()> fingers;
        std::vector<FnShortcutAction> actions;
    };
    const std::vector<Case> cases{
        { "a tap while idle",
            [&] {
                keys.pressGestureKey();
                clock.turn(0.34);
                keys.releaseGestureKey();
            },
            { begin } },
        { "a hold while idle",
            [&] {
                keys.pressGestureKey();
                clock.turn(0.36);
                keys.releaseGestureKey();
            },
            { begin, hold, finish } },
        { "a long hold while idle",
            [&] {
                keys.pressGestureKey();
                clock.turn(30);
                keys.releaseGestureKey();
            },
            { begin, hold, finish } },
        { "a tap while recording",
            [&] {
                recording = true;
                keys.pressGestureKey();
                clock.turn(0.1);
                keys.releaseGestureKey();
            },
            { armStop, finish } },
        { "a hold while recording",
            [&] {
                recording = true;
                keys.pressGestureKey();
                clock.turn(5);
                keys.releaseGestureKey();
            },
            { armStop, finish } },
        { "a key joins in",
            [&] {
                keys.pressGestureKey();
                keys.pressKey();
                clock.turn(1);
                keys.releaseGestureKey();
            },
            { begin, discard } },
        { "a modifier joins in",
            [&] {
                keys.pressGestureKey();
                keys.pressModifier();
                clock.turn(1);
                keys.releaseGestureKey(true);
                keys.releaseModifier();
            },
            { begin, discard } },
        { "a key joins in after the hold",
            [&] {
                keys.pressGestureKey();
                clock.turn(0.5);
                keys.pressKey();
                keys.releaseGestureKey();
            },
            { begin, hold, discard } },
        { "a modifier is down already",
            [&] {
                keys.pressModifier();
                keys.pressGestureKey(true);
                clock.turn(1);
                keys.releaseGestureKey(true);
            },
            {} },
        { "a key joins a press while recording",
            [&] {
                recording = true;
                keys.pressGestureKey();
                keys.pressKey();
                keys.releaseGestureKey();
            },
            { armStop } },
        { "nothing can be started",
            [&] {
                startable = false;
                keys.pressGestureKey();
                clock.turn(1);
                keys.pressKey();
                keys.releaseGestureKey();
            },
            {} },
        { "keys without the gesture key",
            [&] {
                keys.pressKey();
                keys.pressModifier();
                keys.releaseModifier();
            },
            {} },
        { "events were missed",
            [&] {
                keys.pressGestureKey();
                keys.interrupt();
                clock.turn(1);
                keys.releaseGestureKey();
            },
            { begin, discard } },
        { "events were missed while recording",
            [&] {
                recording = true;
                keys.pressGestureKey();
                keys.interrupt();
                keys.releaseGestureKey();
            },
            { armStop } },
        { "the gesture is turned off in the middle",
            [&] {
                keys.pressGestureKey();
                enabled = false;
                keys.releaseGestureKey();
                clock.turn(1);
            },
            { begin, discard } },
        { "the gesture is off",
            [&] {
                enabled = false;
                keys.pressGestureKey();
                clock.turn(1);
                keys.releaseGestureKey();
            },
            {} },
        { "two taps",
            [&] {
                keys.pressGestureKey();
                keys.releaseGestureKey();
                recording = true;
                keys.pressGestureKey();
                keys.releaseGestureKey();
            },
            { begin, armStop, finish } },
        { "a tap, and a hold before its timer would have run out",
            [&] {
                keys.pressGestureKey();
                clock.turn(0.2);
                keys.releaseGestureKey();
                keys.pressGestureKey();
                clock.turn(0.34);
            },
            { begin, begin } },
    };
    hotkeys.start();
    for (const auto& [name, fingers, expected] : cases) {
        SCOPED_TRACE(name);
        enabled = startable = true;
        recording = false;
        hotkeys.resetFn();
        actions.clear();
        fingers();
        EXPECT_EQ(actions, expected);
    }
}

TEST_F(HotkeysTest, ReturnIsTheSendSignal)
{
    hotkeys.start();
    keys.pressReturn();
    EXPECT_EQ(sends, 1);
    keys.pressReturn(true); // with Shift: a new line
    EXPECT_EQ(sends, 1);
    keys.pressKey();
    EXPECT_EQ(sends, 1);
    enabled = false; // of the gesture alone
    keys.pressReturn();
    EXPECT_EQ(sends, 2);
}

TEST_F(HotkeysTest, ReturnWithTheGestureKeyIsACombinationAndNoSendSignal)
{
    hotkeys.start();
    keys.pressGestureKey();
    keys.pressReturn();
    EXPECT_EQ(sends, 0);
    EXPECT_THAT(actions, ElementsAre(FnShortcutAction::begin, FnShortcutAction::discard));
}

TEST_F(HotkeysTest, StoppingDiscardsTheGestureAndLetsGoOfTheKeys)
{
    hotkeys.start();
    keys.pressGestureKey();
    hotkeys.stop();
    EXPECT_THAT(actions, ElementsAre(FnShortcutAction::begin, FnShortcutAction::discard));
    EXPECT_FALSE(shortcut.installed());
    EXPECT_EQ(keys.watched, std::nullopt);
    EXPECT_EQ(clock.armed(), 0U);
}

TEST(Hotkeys, LetGoOfTheKeysWhenTheyAreDestroyed)
{
    TestClock clock;
    FakeGlobalShortcut shortcut;
    FakeKeyMonitor keys;
    {
        Hotkeys hotkeys(shortcut, keys, clock);
        hotkeys.fnEnabled = [] { return true; };
        hotkeys.isRecording = [] { return false; };
        hotkeys.canStart = [] { return true; };
        hotkeys.gestureKey = [] { return GestureKey::fn; };
        hotkeys.combination = [] { return KeyCombination{}; };
        hotkeys.isLocked = [] { return false; };
        hotkeys.onFnAction = [](FnShortcutAction) { };
        hotkeys.onFnTap = [] { };
        hotkeys.start();
        keys.pressGestureKey();
    }
    EXPECT_FALSE(shortcut.installed());
    EXPECT_EQ(keys.watched, std::nullopt);
    clock.turn(1);
}

TEST_F(HotkeysTest, OnlyAPressThatBeganACaptureAndEndedSoonByItselfIsATap)
{
    hotkeys.start();
    keys.pressGestureKey();
    clock.turn(0.34);
    EXPECT_EQ(taps, 0); // a key may still join in
    keys.releaseGestureKey();
    EXPECT_EQ(taps, 1);

    keys.pressGestureKey();
    clock.turn(0.1);
    keys.pressKey();
    keys.releaseGestureKey();
    keys.pressGestureKey();
    clock.turn(1);
    keys.releaseGestureKey();
    recording = true;
    keys.pressGestureKey();
    keys.releaseGestureKey();
    EXPECT_EQ(taps, 1);
}

TEST_F(HotkeysTest, WarnsOfAShortcutThatIsRefusedLater)
{
    std::string warning;
    hotkeys.onShortcutLost = [&](const std::string& text) { warning = text; };
    EXPECT_EQ(hotkeys.start(), "");
    shortcut.onRefused();
    EXPECT_THAT(warning, testing::StartsWith("%1 is unavailable"));
}

TEST_F(HotkeysTest, ACommandedKeyIsAGestureKey)
{
    keys.isPermitted = false;
    hotkeys.start();
    hotkeys.commandGestureKey(true);
    clock.turn(0.1);
    hotkeys.commandGestureKey(false);
    EXPECT_THAT(actions, ElementsAre(FnShortcutAction::begin));

    recording = true;
    clock.turn(0.2);
    hotkeys.commandGestureKey(true);
    hotkeys.commandGestureKey(false);
    EXPECT_THAT(actions,
        ElementsAre(FnShortcutAction::begin, FnShortcutAction::armStop, FnShortcutAction::finish));
}

// The desktop that runs the command has the keyboard to itself meanwhile.
TEST_F(HotkeysTest, ACommandedKeyIsForUsUnlessTheSessionIsLocked)
{
    hotkeys.start();
    keys.taken = true;
    hotkeys.commandGestureKey(true);
    hotkeys.commandGestureKey(false);
    EXPECT_THAT(actions, ElementsAre(FnShortcutAction::begin));

    clock.turn(1);
    locked = true;
    hotkeys.commandGestureKey(true);
    clock.turn(1);
    hotkeys.commandGestureKey(false);
    EXPECT_THAT(actions, ElementsAre(FnShortcutAction::begin));
}

TEST_F(HotkeysTest, RepeatsOfACommandedKeyAreThatKeyHeld)
{
    hotkeys.start();
    hotkeys.commandGestureKey(true);
    clock.turn(0.6);
    for (int times = 0; times < 100; ++times) {
        hotkeys.commandGestureKey(true);
        clock.turn(0.04);
    }
    EXPECT_THAT(actions, ElementsAre(FnShortcutAction::begin, FnShortcutAction::hold));
    hotkeys.commandGestureKey(false);
    EXPECT_THAT(actions,
        ElementsAre(FnShortcutAction::begin, FnShortcutAction::hold, FnShortcutAction::finish));
}

TEST_F(HotkeysTest, APressAfterALostReleaseEndsWhatTheFirstBegan)
{
    hotkeys.start();
    hotkeys.commandGestureKey(true);
    clock.turn(5);
    hotkeys.commandGestureKey(true);
    EXPECT_THAT(actions,
        ElementsAre(FnShortcutAction::begin, FnShortcutAction::hold, FnShortcutAction::finish));
    hotkeys.commandGestureKey(false);
    clock.turn(0.2);
    hotkeys.commandGestureKey(true);
    EXPECT_EQ(actions.size(), 4U);
    EXPECT_EQ(actions.back(), FnShortcutAction::begin);
}

TEST_F(HotkeysTest, ARepeatThatComesBehindTheReleaseIsNoPress)
{
    hotkeys.start();
    hotkeys.commandGestureKey(true);
    clock.turn(1);
    hotkeys.commandGestureKey(false);
    clock.turn(0.05);
    hotkeys.commandGestureKey(true);
    EXPECT_EQ(actions.back(), FnShortcutAction::finish);
    clock.turn(0.5);
    hotkeys.commandGestureKey(true);
    EXPECT_EQ(actions.back(), FnShortcutAction::begin);
}

TEST_F(HotkeysTest, ATapWhosePressComesBehindItsReleaseIsATap)
{
    hotkeys.start();
    for (int times = 0; times < 2; ++times) {
        recording = times == 1;
        clock.turn(0.5);
        hotkeys.commandGestureKey(false);
        clock.turn(0.1);
        hotkeys.commandGestureKey(true);
        clock.turn(1);
    }
    EXPECT_EQ(taps, 1);
    EXPECT_THAT(actions,
        ElementsAre(FnShortcutAction::begin, FnShortcutAction::armStop, FnShortcutAction::finish));
}

TEST_F(HotkeysTest, ACommandedKeyDoesNothingWithTheGestureSwitchedOff)
{
    enabled = false;
    hotkeys.start();
    hotkeys.commandGestureKey(true);
    hotkeys.commandGestureKey(false);
    EXPECT_THAT(actions, IsEmpty());
}

} // namespace

} // namespace vesko

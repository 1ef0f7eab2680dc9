#include "VeskoCore/shell/FnShortcutState.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace vesko {
namespace {

struct Event {
    enum Kind { fnDown, fnUp, modifier, key, holdTimer, reset };

    Kind kind = fnDown;
    double at = 0;
    bool otherModifiers = false;
    bool recording = false;
    bool canStart = true;
};

Event press(double at = 0)
{
    return { .kind = Event::fnDown, .at = at };
}
Event pressWhileRecording(double at = 0)
{
    return { .kind = Event::fnDown, .at = at, .recording = true };
}
Event pressWithModifier(double at = 0)
{
    return { .kind = Event::fnDown, .at = at, .otherModifiers = true };
}
Event pressWhileBusy(double at = 0)
{
    return { .kind = Event::fnDown, .at = at, .canStart = false };
}
Event release(double at)
{
    return { .kind = Event::fnUp, .at = at };
}
Event releaseWithModifier(double at)
{
    return { .kind = Event::fnUp, .at = at, .otherModifiers = true };
}
Event holdTimer(double at)
{
    return { .kind = Event::holdTimer, .at = at };
}
const Event anyKey{ .kind = Event::key };
const Event anyModifier{ .kind = Event::modifier, .otherModifiers = true };
const Event reset{ .kind = Event::reset };

std::optional<FnShortcutAction> feed(FnShortcutState& state, const Event& event)
{
    switch (event.kind) {
    case Event::fnDown:
    case Event::fnUp:
        return state.flagsChanged(true, event.kind == Event::fnDown, event.otherModifiers, event.at,
            event.recording, event.canStart);
    case Event::modifier:
        return state.flagsChanged(
            false, true, event.otherModifiers, event.at, event.recording, event.canStart);
    case Event::key:
        return state.keyDown();
    case Event::holdTimer:
        return state.holdReached(event.at);
    case Event::reset:
        return state.reset();
    }
    return std::nullopt;
}

std::string name(std::optional<FnShortcutAction> action)
{
    if (!action)
        return "-";
    switch (*action) {
    case FnShortcutAction::begin:
        return "begin";
    case FnShortcutAction::armStop:
        return "armStop";
    case FnShortcutAction::finish:
        return "finish";
    case FnShortcutAction::discard:
        return "discard";
    case FnShortcutAction::hold:
        return "hold";
    }
    return "unknown";
}

// One word for each event: the action that it gave, or "-".
std::string actions(const std::vector<Event>& events)
{
    FnShortcutState state;
    std::string words;
    for (const Event& event : events) {
        if (!words.empty())
            words += ' ';
        words += name(feed(state, event));
    }
    return words;
}

struct Row {
    const char* what;
    std::vector<Event> events;
    const char* actions;
};

void expectRows(const std::vector<Row>& rows)
{
    for (const Row& row : rows)
        EXPECT_EQ(actions(row.events), row.actions) << row.what;
}

TEST(FnShortcutState, GesturesOfTheFingers)
{
    expectRows({
        { "tap while idle", { press(), release(0.2) }, "begin -" },
        { "tap while recording", { pressWhileRecording(), release(0.2) }, "armStop finish" },
        { "hold while idle", { press(), holdTimer(0.35), release(2) }, "begin hold finish" },
        { "hold while recording", { pressWhileRecording(), holdTimer(0.35), release(2) },
            "armStop - finish" },
        { "a key joins a press that began a capture", { press(), anyKey, release(1) },
            "begin discard -" },
        { "a modifier joins a press that began a capture", { press(), anyModifier, release(1) },
            "begin discard -" },
        { "press with a modifier already down",
            { pressWithModifier(), holdTimer(0.35), releaseWithModifier(1) }, "- - -" },
        { "press while recording, add a key, release",
            { pressWhileRecording(), anyKey, release(1) }, "armStop - -" },
        { "press while nothing can start", { pressWhileBusy(), holdTimer(0.35), release(1) },
            "- - -" },
    });
}

// The last events of a row show the state that the event in question led to.
TEST(FnShortcutState, WhileTheKeyIsUp)
{
    expectRows({
        { "other modifiers down: ignored and a combination",
            { pressWithModifier(), anyKey, holdTimer(1), release(1) }, "- - - -" },
        { "other modifiers win over a running capture",
            { { .kind = Event::fnDown, .otherModifiers = true, .recording = true }, release(1) },
            "- -" },
        { "recording wins over being unable to start",
            { { .kind = Event::fnDown, .recording = true, .canStart = false }, release(1) },
            "armStop finish" },
        { "unable to start: the whole press is ignored",
            { pressWhileBusy(), anyKey, holdTimer(1), reset, release(1) }, "- - - - -" },
        { "a release without a press", { release(1), press(2) }, "- begin" },
        { "a key", { anyKey, press(2), holdTimer(2.5) }, "- begin hold" },
        { "a modifier", { anyModifier, press(2), holdTimer(2.5) }, "- begin hold" },
        { "the hold timer", { holdTimer(5), press(6) }, "- begin" },
        { "reset", { reset, press(1) }, "- begin" },
    });
}

TEST(FnShortcutState, WhileAPressThatBeganACaptureIsDown)
{
    expectRows({
        { "a key takes the capture back, once",
            { press(), anyKey, anyKey, anyModifier, release(1) }, "begin discard - - -" },
        { "a modifier takes the capture back, once",
            { press(), anyModifier, anyKey, releaseWithModifier(1) }, "begin discard - -" },
        { "reset after a key has nothing left to take back", { press(), anyKey, reset },
            "begin discard -" },
        { "a late hold timer after a key gives nothing", { press(), anyKey, holdTimer(0.35) },
            "begin discard -" },
        { "hold is given once", { press(), holdTimer(0.4), holdTimer(0.5), release(1) },
            "begin hold - finish" },
        { "a key after the hold takes the capture back",
            { press(), holdTimer(0.35), anyKey, release(1) }, "begin hold discard -" },
        { "an early hold timer gives nothing, and a later one does",
            { press(), holdTimer(0.25), holdTimer(0.35) }, "begin - hold" },
        { "release with another modifier down", { press(), releaseWithModifier(0.1) },
            "begin discard" },
        { "long held, release with another modifier down",
            { press(), holdTimer(0.35), releaseWithModifier(2) }, "begin hold discard" },
        { "long held without a hold timer", { press(), release(0.5) }, "begin finish" },
        { "reset", { press(), reset, release(1), press(2) }, "begin discard - begin" },
        { "reset after the hold", { press(), holdTimer(0.35), reset }, "begin hold discard" },
        { "the key repeats", { press(), press(0.1), pressWhileRecording(0.2), release(0.3) },
            "begin - - -" },
        { "the key repeats without starting the time anew", { press(0), press(0.3), release(0.4) },
            "begin - finish" },
    });
}

TEST(FnShortcutState, WhileAPressOnARunningCaptureIsDown)
{
    expectRows({
        { "a key, then the release leaves the capture running",
            { pressWhileRecording(), anyKey, release(0.1) }, "armStop - -" },
        { "a modifier, then the release leaves the capture running",
            { pressWhileRecording(), anyModifier, release(0.1) }, "armStop - -" },
        { "release with another modifier down", { pressWhileRecording(), releaseWithModifier(0.1) },
            "armStop -" },
        { "it is no push-to-talk, however long",
            { pressWhileRecording(), holdTimer(9), release(10) }, "armStop - finish" },
        { "reset", { pressWhileRecording(), reset, release(1) }, "armStop - -" },
        { "the key repeats", { pressWhileRecording(), press(0.1), release(0.2) },
            "armStop - finish" },
    });
}

TEST(FnShortcutState, WhileAnIgnoredPressIsDown)
{
    expectRows({
        { "a key and a modifier", { pressWhileBusy(), anyKey, anyModifier, release(1) },
            "- - - -" },
        { "the key repeats once a capture could start", { pressWhileBusy(), press(1), release(2) },
            "- - -" },
        { "reset", { pressWhileBusy(), reset, press(1) }, "- - begin" },
    });
}

TEST(FnShortcutState, OnePressLeavesNothingForTheNext)
{
    expectRows({
        { "after a combination",
            { press(0), anyKey, release(1), press(2), holdTimer(2.5), release(3) },
            "begin discard - begin hold finish" },
        { "after a combination on a running capture",
            { pressWhileRecording(0), anyKey, release(1), pressWhileRecording(2), release(3) },
            "armStop - - armStop finish" },
        { "after a hold", { press(0), holdTimer(0.5), release(1), press(2), holdTimer(2.5) },
            "begin hold finish begin hold" },
        { "after a press with a modifier",
            { pressWithModifier(0), release(1), press(2), release(3) }, "- - begin finish" },
        { "a hold timer of the press before",
            { press(0), release(0.1), press(0.2), holdTimer(0.35) }, "begin - begin -" },
    });
}

TEST(FnShortcutState, ExactlyTheHoldDurationIsAHold)
{
    const double justUnder = std::nextafter(FnShortcutState::holdDuration, 0.0);
    expectRows({
        { "release at the boundary", { press(), release(0.35) }, "begin finish" },
        { "release just under it", { press(), release(justUnder) }, "begin -" },
        { "timer at the boundary", { press(), holdTimer(0.35) }, "begin hold" },
        { "timer just under it", { press(), holdTimer(justUnder) }, "begin -" },
    });
}

// What must hold of one press, watched from outside over any order of events.
class PressWatcher {
public:
    void watch(const Event& event, std::optional<FnShortcutAction> action)
    {
        if (event.kind == Event::fnDown && !m_down) {
            *this = {};
            m_down = true;
            m_pressedAt = event.at;
            m_combined = event.otherModifiers;
        }
        if (m_down && (event.kind == Event::key || event.kind == Event::modifier))
            m_combined = true;
        if (action)
            check(event, *action);
        if (event.kind == Event::fnUp || event.kind == Event::reset)
            m_down = false;
    }

private:
    void check(const Event& event, FnShortcutAction action)
    {
        EXPECT_TRUE(m_down) << "an action without a press: " << name(action);
        EXPECT_FALSE(m_over) << name(action) << " after the press was over";
        const bool longEnough = event.at - m_pressedAt >= FnShortcutState::holdDuration;
        switch (action) {
        case FnShortcutAction::begin:
            EXPECT_EQ(event.kind, Event::fnDown);
            EXPECT_FALSE(m_began || m_armed || event.recording || m_combined || !event.canStart);
            m_began = true;
            break;
        case FnShortcutAction::armStop:
            EXPECT_EQ(event.kind, Event::fnDown);
            EXPECT_FALSE(m_began || m_armed || !event.recording || m_combined);
            m_armed = true;
            break;
        case FnShortcutAction::hold:
            EXPECT_EQ(event.kind, Event::holdTimer);
            EXPECT_TRUE(m_began && longEnough && !m_held && !m_combined);
            m_held = true;
            break;
        case FnShortcutAction::finish:
            EXPECT_EQ(event.kind, Event::fnUp);
            EXPECT_TRUE(m_armed || (m_began && longEnough));
            EXPECT_FALSE(m_combined || event.otherModifiers);
            m_over = true;
            break;
        case FnShortcutAction::discard:
            EXPECT_TRUE(m_began);
            m_over = true;
            break;
        }
    }

    bool m_down = false;
    double m_pressedAt = 0;
    bool m_combined = false;
    bool m_began = false;
    bool m_armed = false;
    bool m_held = false;
    bool m_over = false; // finished or discarded
};

TEST(FnShortcutState, NoOrderOfEventsBreaksThePromisesOfAPress)
{
    std::mt19937 random(20240611);
    const auto chance = [&random](int of) { return random() % static_cast<unsigned>(of) == 0; };
    int finished = 0;
    int discarded = 0;
    int held = 0;

    for (int run = 0; run < 200 && !testing::Test::HasFailure(); ++run) {
        FnShortcutState state;
        PressWatcher watcher;
        double now = 0;
        std::string story;
        for (int step = 0; step < 200; ++step) {
            now += static_cast<double>(random() % 30) / 100;
            // Every third event is a key or a modifier; otherwise few presses would live long.
            const auto kind = static_cast<Event::Kind>(random() % 6);
            const bool spared = (kind == Event::key || kind == Event::modifier) && !chance(3);
            const Event event{ .kind = spared ? Event::holdTimer : kind,
                .at = now,
                .otherModifiers = chance(6),
                .recording = chance(3),
                .canStart = !chance(5) };
            const auto action = feed(state, event);
            story += std::to_string(event.kind) + ':' + name(action) + ' ';
            watcher.watch(event, action);
            finished += action == FnShortcutAction::finish;
            discarded += action == FnShortcutAction::discard;
            held += action == FnShortcutAction::hold;
        }
        if (testing::Test::HasFailure())
            ADD_FAILURE() << story;
    }
    // The random walk did reach what it is about.
    EXPECT_GT(finished, 100);
    EXPECT_GT(discarded, 100);
    EXPECT_GT(held, 100);
}

} // namespace
} // namespace vesko

#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/platform/AudioRecorder.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/Gate.h"
#include "tests/fakes/TestClock.h"

#include <stdexcept>
#include <utility>
#include <vector>

namespace vesko {

// A microphone whose recordings last as long as the clock is turned, from its opening on, and hold
// a fixed text.
class FakeAudioRecorder final : public AudioRecorder {
public:
    explicit FakeAudioRecorder(TestClock& clock)
        : m_clock(clock)
    {
    }

    bool grantsAccess = true;
    bool startFails = false;
    double power = -160; // decibels
    std::string audio = "recorded sound";
    Gate access; // the user's answer
    Gate starting;
    Gate finishing;
    double underWay = 0; // seconds of sound that come after a stop

    int preparations = 0;
    int accessRequests = 0;
    std::shared_ptr<SoundListener> listener;
    std::vector<std::filesystem::path> files; // that a start was asked for
    std::vector<bool> wasHeard; // of each start, whether there was a listener

    // Whether sound is being taken.
    bool running() const { return m_openedAt.has_value(); }
    // The recording ends by itself.
    void fail(RecorderFailure failure)
    {
        m_openedAt.reset();
        reportFailure(failure);
    }
    // The report that no sound comes, or some again.
    void stall(bool stalled) { onStalled(stalled); }
    // No more sound comes for the rest of this recording.
    void holdTime() { m_heldAt = currentTime(); }
    // The report alone, as it may come late.
    void reportFailure(RecorderFailure failure) { onFailure(failure); }

    void prepare() override { ++preparations; }
    Task<bool> requestAccess() override
    {
        ++accessRequests;
        co_await access.pass();
        co_return grantsAccess;
    }
    void open() override
    {
        m_openedAt = m_clock.uptime();
        m_heldAt.reset();
    }
    Task<> start(std::filesystem::path file) override
    {
        files.push_back(file);
        wasHeard.push_back(std::exchange(listener, nullptr) != nullptr);
        co_await starting.pass();
        if (startFails || !m_openedAt) {
            m_openedAt.reset();
            throw std::runtime_error("the sound server refused");
        }
        putBytes(file, audio);
    }
    void setListener(std::shared_ptr<SoundListener> to) override { listener = std::move(to); }
    double currentTime() const override
    {
        return !m_openedAt ? 0 : m_heldAt.value_or(m_clock.uptime() - *m_openedAt);
    }
    double averagePower() const override { return m_openedAt ? power : -160; }
    double stop() override
    {
        const double duration = currentTime();
        m_openedAt.reset();
        m_held = duration + underWay;
        if (starting.waiting())
            starting.open();
        return duration;
    }
    Eventual<double> finished() override
    {
        const Eventual<double> held;
        m_tasks.spawn(tell(held));
        return held;
    }

private:
    Task<> tell(Eventual<double> held)
    {
        co_await finishing.pass();
        held.set(m_held);
    }

    TestClock& m_clock;
    std::optional<double> m_openedAt;
    std::optional<double> m_heldAt; // seconds
    double m_held = 0; // in the last file
    TaskScope m_tasks;
};

} // namespace vesko

#pragma once

#include "VeskoApp/platform/CueEngine.h"
#include "tests/fakes/TestClock.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vesko {

// A loudspeaker for cues that sounds as the clock is turned. As the real one, it plays only what
// has been loaded, and one cue at a time.
class FakeCueEngine final : public CueEngine {
public:
    explicit FakeCueEngine(TestClock& clock)
        : m_clock(clock)
    {
    }

    std::set<std::string> missing; // samples that can't be read
    std::function<void(const CueSound&)> onPlay;

    std::vector<std::vector<std::string>> loads;
    std::vector<CueSound> played;

    // The cue that is heard now.
    std::optional<CueSound> sounding() const
    {
        return m_latest && age() < m_latest->length ? m_latest : std::nullopt;
    }
    // How loud, 0 when none is.
    double volume() const
    {
        double result = 0;
        if (const auto cue = sounding())
            for (const auto& step : cue->envelope)
                if (step.from <= age())
                    result = step.volume;
        return result;
    }

    void load(std::vector<std::string> samples) override
    {
        for (const auto& sample : samples)
            if (!missing.contains(sample))
                m_loaded.insert(sample);
        loads.push_back(std::move(samples));
    }
    void play(CueSound sound) override
    {
        if (onPlay)
            onPlay(sound);
        m_latest.reset();
        if (!m_loaded.contains(sound.sample))
            return;
        m_since = m_clock.uptime();
        m_latest = sound;
        played.push_back(std::move(sound));
    }

private:
    double age() const { return m_clock.uptime() - m_since + 1e-9; }

    TestClock& m_clock;
    std::set<std::string> m_loaded;
    std::optional<CueSound> m_latest;
    double m_since = 0;
};

} // namespace vesko

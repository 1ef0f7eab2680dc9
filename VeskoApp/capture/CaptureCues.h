#pragma once

#include "VeskoApp/platform/CueEngine.h"

namespace vesko {

// The two short tones that mark the start and the end of a capture. Whether the user wants them is
// the caller's question. Main thread only.
class CaptureCues {
public:
    enum class Cue { start, stop };

    explicit CaptureCues(CueEngine& engine);

    // A cue is about to come: what it takes is loaded, unless it is.
    void prepare();
    // Returns at once. Cuts off the cue before; one that can't be played is silence.
    void play(Cue cue);

private:
    CueEngine& m_engine;
    bool m_prepared = false;
};

} // namespace vesko

#pragma once

#include <string>
#include <vector>

namespace vesko {

// A volume from a moment on: seconds since the first sound, 1 for the sample's own.
struct CueVolume {
    double from = 0;
    double volume = 0;

    bool operator==(const CueVolume&) const = default;
};

// What is heard as one cue.
struct CueSound {
    std::string sample; // the name of its file without ".wav"
    double highPass = 0; // hertz: what lies below is damped by 12 dB an octave
    double pitch = 0; // cents by which what is left sounds higher
    std::vector<CueVolume> envelope; // in the order of time, the first at 0
    double length = 0; // seconds, then it ends, however long the sample is

    bool operator==(const CueSound&) const = default;
};

// Plays short samples through a graph: sample, high-pass filter, pitch shift, volume, default
// output. The volumes are exact to the sample: between a timer of the program and the loudspeaker
// lie buffers longer than a fade. While no cue is heard nothing runs. What is missing, a file or
// the sound itself, is silence. Main thread only, and no call makes it wait.
class CueEngine {
public:
    virtual ~CueEngine() = default;

    // Reads these samples, and gets ready for a cue that is about to come. Once only.
    virtual void load(std::vector<std::string> samples) = 0;
    // Plays it from its beginning, and cuts off the one before. Silence unless its sample has been
    // loaded.
    virtual void play(CueSound sound) = 0;
};

} // namespace vesko

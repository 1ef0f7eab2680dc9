#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/async/Worker.h"
#include "VeskoApp/platform/CueEngine.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vesko {

// Plays cues through GStreamer to the sound server's default output. Its parts are loaded when the
// first cue is near and its graph stands only while a cue is heard: an idle program has neither in
// memory. A cue goes to the server as one piece, ahead of time, and so has no gaps under load.
class GstCueEngine final : public CueEngine {
public:
    // A sample is taken from the first of the folders that has it.
    explicit GstCueEngine(std::vector<std::filesystem::path> folders);

    void load(std::vector<std::string> samples) override;
    void play(CueSound sound) override;

private:
    Task<> prepare(std::vector<std::string> samples);
    void readSample(const std::string& name);
    Task<> perform(CueSound sound);

    const std::vector<std::filesystem::path> m_folders;
    std::map<std::string, std::string> m_samples; // what their files hold; the worker's
    Worker m_worker;
    TaskScope m_loading;
    std::optional<TaskScope> m_sounding; // the latest cue
};

} // namespace vesko

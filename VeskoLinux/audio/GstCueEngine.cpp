#include "VeskoLinux/audio/GstCueEngine.h"

#include "VeskoCore/base/InputFile.h"
#include "VeskoLinux/audio/CuePlayback.h"

#include <stdexcept>
#include <utility>

namespace vesko {

namespace {

constexpr std::uint64_t longestSample = 4 << 20; // bytes

} // namespace

GstCueEngine::GstCueEngine(std::vector<std::filesystem::path> folders)
    : m_folders(std::move(folders))
{
}

void GstCueEngine::load(std::vector<std::string> samples)
{
    m_loading.spawn(prepare(std::move(samples)));
}

void GstCueEngine::play(CueSound sound)
{
    m_sounding.emplace();
    m_sounding->spawn(perform(std::move(sound)));
}

Task<> GstCueEngine::prepare(std::vector<std::string> samples)
{
    co_await m_worker.run([this, samples = std::move(samples)] {
        for (const auto& name : samples)
            readSample(name);
        try {
            loadCueParts();
        } catch (const std::runtime_error&) {
            // No cue will be heard. That is no reason to bother the user.
        }
    });
}

void GstCueEngine::readSample(const std::string& name)
{
    try {
        for (const auto& folder : m_folders)
            if (const auto wav
                = InputFile::open(FileSystem::posix(), folder / (name + ".wav"), longestSample)) {
                m_samples.emplace(name, wav->text());
                return;
            }
    } catch (const std::system_error&) {
        // Its cue is silent.
    }
}

Task<> GstCueEngine::perform(CueSound sound)
{
    co_await m_worker.run([this, sound = std::move(sound)](const std::stop_token& cutOff) {
        const auto sample = m_samples.find(sound.sample);
        if (sample == m_samples.end())
            return;
        try {
            playCue(sample->second, sound, cutOff);
        } catch (const std::runtime_error&) {
            // Silent, as above.
        }
    });
}

} // namespace vesko

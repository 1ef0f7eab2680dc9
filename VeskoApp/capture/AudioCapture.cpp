#include "VeskoApp/capture/AudioCapture.h"

#include "VeskoApp/status/CaptureFailure.h"
#include "VeskoCore/base/Localized.h"

namespace vesko {

namespace {

const char* message(RecorderFailure failure)
{
    switch (failure) {
    case RecorderFailure::stoppedUnexpectedly:
        return L10N_KEY("Vesko", "Recording stopped unexpectedly. Your original file was kept.");
    case RecorderFailure::encoding:
        return L10N_KEY(
            "Vesko", "Recording was interrupted by an audio error. Your original file was kept.");
    }
    return "";
}

} // namespace

AudioCapture::AudioCapture(AudioRecorder& recorder)
    : m_recorder(recorder)
{
    m_recorder.onFailure = [this](RecorderFailure failure) {
        if (onFailure)
            onFailure(message(failure));
    };
    m_recorder.onStalled = [this](bool stalled) {
        if (onStalled)
            onStalled(stalled);
    };
}

AudioCapture::~AudioCapture()
{
    m_recorder.onFailure = {};
    m_recorder.onStalled = {};
}

Task<> AudioCapture::start(std::filesystem::path file)
{
    try {
        co_await m_recorder.start(std::move(file));
    } catch (const std::exception&) {
        throw CaptureFailure(L10N_KEY(
            "Vesko", "The microphone could not start. Check your audio input and try again."));
    }
}

} // namespace vesko

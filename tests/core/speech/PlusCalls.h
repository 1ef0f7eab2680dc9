#pragma once

#include "VeskoCore/speech/PlusFailure.h"
#include "VeskoCore/speech/PlusGateway.h"

#include <optional>

// What tests of the gateway's client share.
namespace vesko {

// The failure of an action, nothing if it had none; an exception of another kind passes on.
template <typename Action>
std::optional<PlusFailure::Kind> plusFailure(const Action& action)
{
    try {
        action();
    } catch (const PlusFailure& failure) {
        return failure.kind();
    }
    return std::nullopt;
}

// The arguments of a speech call, good ones unless a test says otherwise.
struct PlusSpeechCall {
    std::string audio = "voice";
    std::string format = "m4a";
    double seconds = 3.1;
    std::string model = "vendor/speech";
    std::optional<std::string> language = std::nullopt;
    std::string token = "test-token";
    std::string requestID = "req-1";

    TranscriptResult on(const PlusGateway& gateway, const std::stop_token& stop = {}) const
    {
        return gateway.transcribe(audio, format, seconds, model, language, token, requestID, stop);
    }
};

// The arguments of a text call.
struct PlusTextCall {
    TranscriptResult of{ .rawText = "um hello",
        .text = "um Hello",
        .cost = 0.25,
        .requestID = "req-speech",
        .warning = "a warning" };
    PlusGateway::TextMode mode = PlusGateway::TextMode::cleanup;
    std::optional<std::string> target = std::nullopt;
    std::string model = "vendor/chat";
    std::string token = "test-token";
    std::string requestID = "req-2";

    TranscriptResult on(const PlusGateway& gateway) const
    {
        return gateway.transform(of, mode, target, model, token, requestID, {});
    }
};

} // namespace vesko

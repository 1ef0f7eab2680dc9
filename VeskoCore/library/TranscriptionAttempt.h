#pragma once

#include "VeskoCore/base/Date.h"
#include "VeskoCore/base/JsonFields.h"
#include "VeskoCore/base/SharedText.h"
#include "VeskoCore/base/Uuid.h"

#include <optional>
#include <string>

namespace vesko {

enum class AttemptStatus { running, ready, failed, interrupted };

// The status in words, a key for the catalogues.
const char* label(AttemptStatus);

// The provider of what is recognised on this machine, a key for the catalogues.
inline constexpr std::string_view onDeviceProvider = "Apple on-device";

// One try at turning a recording into text.
struct TranscriptionAttempt {
    Uuid id;
    std::string provider; // display label of the back end
    std::string model;
    std::optional<std::string> cleanupModel; // set when cleanup or translation was asked for
    Date startedAt;
    std::optional<Date> completedAt; // set when the attempt stops, however it stops
    AttemptStatus status = AttemptStatus::running;
    std::optional<SharedText> rawText; // as the back end returned it
    std::optional<SharedText> text; // after dictionary, cleanup and translation
    std::optional<double> cost; // United States dollars, where the service reports it
    std::optional<std::string> requestID;
    std::optional<std::string> errorMessage; // the failure, or the warning of a success
    std::optional<std::string> detectedLanguage; // its tag, where the back end tells it

    bool operator==(const TranscriptionAttempt&) const = default;

    // What a person would call the model: "whisper.cpp, base". What a service calls its models, and
    // what older records say, stays as it is.
    std::string modelInWords() const;
};

template <>
inline constexpr auto jsonNames<AttemptStatus>
    = std::to_array<std::string_view>({ "running", "ready", "failed", "interrupted" });

template <>
inline constexpr std::tuple jsonFields<TranscriptionAttempt>{
    JsonField{ "cleanupModel", &TranscriptionAttempt::cleanupModel },
    JsonField{ "completedAt", &TranscriptionAttempt::completedAt },
    JsonField{ "cost", &TranscriptionAttempt::cost },
    JsonField{ "detectedLanguage", &TranscriptionAttempt::detectedLanguage },
    JsonField{ "errorMessage", &TranscriptionAttempt::errorMessage },
    JsonField{ "id", &TranscriptionAttempt::id },
    JsonField{ "model", &TranscriptionAttempt::model },
    JsonField{ "provider", &TranscriptionAttempt::provider },
    JsonField{ "rawText", &TranscriptionAttempt::rawText },
    JsonField{ "requestID", &TranscriptionAttempt::requestID },
    JsonField{ "startedAt", &TranscriptionAttempt::startedAt },
    JsonField{ "status", &TranscriptionAttempt::status },
    JsonField{ "text", &TranscriptionAttempt::text },
};

} // namespace vesko

#pragma once

#include "VeskoCore/base/JsonFields.h"

namespace vesko {

// All that usage analytics can tell of: a name from this list, and nothing of what it was about.
enum class UsageEvent {
    appStarted,
    recordingStarted,
    recordingSaved,
    transcriptionSucceeded,
    transcriptionFailed,
    noteCreated,
    noteExported,
    textCopied,
    onboardingStarted,
    onboardingCompleted,
    signInStarted,
    signInSucceeded,
    signInFailed,
    signInCancelled,
    signedOut,
    accountDeleted,
};

template <>
inline constexpr auto jsonNames<UsageEvent> = std::to_array<std::string_view>({
    "app_started",
    "recording_started",
    "recording_saved",
    "transcription_succeeded",
    "transcription_failed",
    "note_created",
    "note_exported",
    "text_copied",
    "onboarding_started",
    "onboarding_completed",
    "sign_in_started",
    "sign_in_succeeded",
    "sign_in_failed",
    "sign_in_cancelled",
    "signed_out",
    "account_deleted",
});

} // namespace vesko

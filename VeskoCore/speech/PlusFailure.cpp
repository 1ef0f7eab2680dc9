#include "VeskoCore/speech/PlusFailure.h"

#include "VeskoCore/base/Localized.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vesko {

namespace {

constexpr std::array<std::pair<std::string_view, PlusFailure::Kind>, 11> codes{ {
    { "unauthorized", PlusFailure::signInRequired },
    { "plus_unavailable", PlusFailure::unavailable },
    { "allowance_exhausted", PlusFailure::allowanceExhausted },
    { "daily_limit", PlusFailure::dailyLimit },
    { "paused", PlusFailure::paused },
    { "service_busy", PlusFailure::serviceBusy },
    { "outcome_unknown", PlusFailure::outcomeUnknown },
    { "already_completed", PlusFailure::alreadyCompleted },
    { "provider_refused", PlusFailure::refused },
    { "audio_too_large", PlusFailure::audioTooLarge },
    { "body_too_large", PlusFailure::audioTooLarge },
} };

} // namespace

PlusFailure PlusFailure::from(std::optional<std::string_view> code, int status)
{
    const auto known
        = code ? std::ranges::find(codes, *code, &decltype(codes)::value_type::first) : codes.end();
    if (known != codes.end())
        return known->second;
    if (status == 401)
        return signInRequired;
    return status < 500 ? invalidResponse : serviceBusy;
}

const char* PlusFailure::errorDescription() const
{
    switch (m_kind) {
    case signInRequired:
        return L10N_KEY("Vesko", "Sign in to use Vesko Plus. Your audio is saved.");
    case unavailable:
        return L10N_KEY("Vesko",
            "Vesko Plus models are not available yet. Your audio is saved. Choose Apple on-device "
            "speech or your own key.");
    case allowanceExhausted:
        return L10N_KEY("Vesko",
            "This month's Vesko Plus allowance is used up. Your audio is saved. It renews at the "
            "start of next month.");
    case dailyLimit:
        return L10N_KEY("Vesko",
            "Today's Vesko Plus limit is reached. Your audio is saved. Try again tomorrow.");
    case paused:
        return L10N_KEY("Vesko",
            "Vesko Plus paused cloud requests for a while after unusually heavy use. Your audio is "
            "saved. Try again later.");
    case serviceBusy:
        return L10N_KEY(
            "Vesko", "Vesko Plus is busy right now. Your audio is saved. Try again later.");
    case outcomeUnknown:
        return L10N_KEY("Vesko",
            "The result did not arrive. Your audio is saved. Vesko did not repeat the request, so "
            "you are not charged twice; retry when you are ready.");
    case alreadyCompleted:
        return L10N_KEY(
            "Vesko", "This request already finished once. Retry to transcribe it again.");
    case refused:
        return L10N_KEY("Vesko",
            "The model refused this request. Your audio is saved. Retry or choose another model.");
    case audioTooLarge:
        return L10N_KEY("Vesko",
            "This audio is too large for one request. The original is saved. Use a shorter "
            "recording.");
    case invalidResponse:
        break;
    }
    return L10N_KEY("Vesko", "Vesko Plus returned an unreadable result. Your audio is saved.");
}

} // namespace vesko

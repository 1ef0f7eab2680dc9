#include "VeskoCore/speech/PlusFailure.h"

#include <gtest/gtest.h>

#include <string>

namespace vesko {
namespace {

TEST(PlusFailure, TheServicesCodeWinsOverTheStatus)
{
    const struct {
        const char* code;
        PlusFailure::Kind kind;
    } rows[] = {
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
    };
    for (const auto& row : rows)
        for (const int status : { 300, 400, 401, 404, 429, 500, 503 })
            EXPECT_EQ(PlusFailure::from(row.code, status).kind(), row.kind)
                << row.code << " with " << status;
}

TEST(PlusFailure, WithoutAKnownCodeTheStatusDecides)
{
    const struct {
        int status;
        PlusFailure::Kind kind;
    } rows[] = {
        { 401, PlusFailure::signInRequired },
        { 0, PlusFailure::invalidResponse },
        { 199, PlusFailure::invalidResponse },
        { 302, PlusFailure::invalidResponse },
        { 400, PlusFailure::invalidResponse },
        { 403, PlusFailure::invalidResponse },
        { 404, PlusFailure::invalidResponse },
        { 429, PlusFailure::invalidResponse },
        { 499, PlusFailure::invalidResponse },
        { 500, PlusFailure::serviceBusy },
        { 503, PlusFailure::serviceBusy },
        { 600, PlusFailure::serviceBusy },
    };
    for (const auto& row : rows) {
        EXPECT_EQ(PlusFailure::from(std::nullopt, row.status).kind(), row.kind) << row.status;
        for (const char* code : { "", "Paused", "paused ", "something_new" })
            EXPECT_EQ(PlusFailure::from(code, row.status).kind(), row.kind)
                << code << " with " << row.status;
    }
}

TEST(PlusFailure, EachHasItsWords)
{
    const struct {
        PlusFailure::Kind kind;
        const char* words;
    } rows[] = {
        { PlusFailure::signInRequired, "Sign in to use Vesko Plus. Your audio is saved." },
        { PlusFailure::unavailable,
            "Vesko Plus models are not available yet. Your audio is saved. Choose Apple on-device "
            "speech or your own key." },
        { PlusFailure::allowanceExhausted,
            "This month's Vesko Plus allowance is used up. Your audio is saved. It renews at the "
            "start of next month." },
        { PlusFailure::dailyLimit,
            "Today's Vesko Plus limit is reached. Your audio is saved. Try again tomorrow." },
        { PlusFailure::paused,
            "Vesko Plus paused cloud requests for a while after unusually heavy use. Your audio is "
            "saved. Try again later." },
        { PlusFailure::serviceBusy,
            "Vesko Plus is busy right now. Your audio is saved. Try again later." },
        { PlusFailure::outcomeUnknown,
            "The result did not arrive. Your audio is saved. Vesko did not repeat the request, so "
            "you are not charged twice; retry when you are ready." },
        { PlusFailure::alreadyCompleted,
            "This request already finished once. Retry to transcribe it again." },
        { PlusFailure::refused,
            "The model refused this request. Your audio is saved. Retry or choose another model." },
        { PlusFailure::audioTooLarge,
            "This audio is too large for one request. The original is saved. Use a shorter "
            "recording." },
        { PlusFailure::invalidResponse,
            "Vesko Plus returned an unreadable result. Your audio is saved." },
    };
    for (const auto& row : rows) {
        EXPECT_EQ(PlusFailure(row.kind).errorDescription(), std::string(row.words));
        EXPECT_EQ(PlusFailure(row.kind).what(), std::string(row.words));
    }
}

} // namespace
} // namespace vesko

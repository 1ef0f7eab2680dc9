#include "VeskoCore/base/Date.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

using namespace std::chrono_literals;

TEST(Date, ReadsBackWhatItWrites)
{
    for (const std::string text : { "2026-11-21T10:52:00Z", "1970-01-01T00:00:00Z",
             "0000-01-01T00:00:00Z", "9999-12-31T23:59:59Z", "2024-02-29T23:59:59Z" }) {
        const auto date = Date::parse(text);
        ASSERT_TRUE(date) << text;
        EXPECT_EQ(date->text(), text);
    }
    EXPECT_EQ(Date::parse("1970-01-01T00:01:01Z")->time.time_since_epoch(), 61s);
}

TEST(Date, LosesTheFractionOfItsSecond)
{
    const auto whole = *Date::parse("2026-11-21T10:52:00Z");
    EXPECT_EQ(Date{ whole.time + 999999us }.text(), whole.text());
    const auto beforeEpoch = *Date::parse("1969-12-31T23:59:59Z");
    EXPECT_EQ(Date{ beforeEpoch.time + 500ms }.text(), beforeEpoch.text());
}

TEST(Date, RefusesEveryOtherForm)
{
    for (const std::string text : {
             "", "2026-11-21", // no time
             "2026-11-21T10:52:00", // no zone
             "2026-11-21T10:52:00.5Z", // a fraction
             "2026-11-21T10:52:00.000Z", // a fraction of nothing
             "2026-11-21T10:52:00+00:00", // an offset
             "2026-11-21 10:52:00Z", // a blank
             "2026-11-21t10:52:00z", // lower case
             "2026-02-29T10:52:00Z", // no such day
             "2026-13-01T10:52:00Z", // no such month
             "2026-00-10T10:52:00Z", // month zero
             "2026-11-00T10:52:00Z", // day zero
             "2026-11-21T24:00:00Z", // no such hour
             "2026-11-21T10:60:00Z", // no such minute
             "2026-11-21T10:52:60Z", // a leap second
             "+026-11-21T10:52:00Z", // a sign
             "2026-11-21T10:52:00Z ", // something behind
             "12026-11-21T10:52:00Z", // a long year
         })
        EXPECT_FALSE(Date::parse(text)) << text;
}

TEST(Date, ReadsTheInternetFormsOfServices)
{
    const auto whole = *Date::parse("2026-11-21T10:52:00Z");
    const struct {
        const char* what;
        const char* text;
        std::chrono::microseconds after;
    } rows[] = {
        { "whole seconds", "2026-11-21T10:52:00Z", 0us },
        { "milliseconds", "2026-11-21T10:52:00.250Z", 250ms },
        { "one digit", "2026-11-21T10:52:00.5Z", 500ms },
        { "microseconds", "2026-11-21T10:52:00.000001Z", 1us },
        { "nanoseconds, of which some are dropped", "2026-11-21T10:52:00.123456789Z", 123456us },
        { "no offset in figures", "2026-11-21T10:52:00+00:00", 0us },
        { "east of Greenwich", "2026-11-21T12:22:00+01:30", 0us },
        { "west of Greenwich, on the day before", "2026-11-20T23:52:00.5-11:00", 500ms },
    };
    for (const auto& [what, text, after] : rows)
        EXPECT_EQ(Date::parseInternet(text), (Date{ whole.time + after })) << what;
}

TEST(Date, RefusesWhatIsNoInternetForm)
{
    for (const std::string text : {
             "", "tomorrow", "1732186320", // no date
             "2026-11-21", // no time
             "2026-11-21T10:52:00", // no zone
             "2026-11-21T10:52:00.Z", // a point and no fraction
             "2026-11-21T10:52:00,5Z", // a comma
             "2026-11-21T10:52:00.5", // a fraction and no zone
             "2026-11-21T10:52:00+0200", // an offset without its colon
             "2026-11-21T10:52:00+24:00", // no such offset
             "2026-11-21T10:52:00Z+01:00", // two zones
             "2026-11-21T10:52:00 Z", "2026-11-21T10:52:00z", // not the form
             "2026-02-29T10:52:00Z", // no such day
         })
        EXPECT_FALSE(Date::parseInternet(text)) << text;
}

TEST(Date, CountsSecondsBetweenMoments)
{
    const auto start = *Date::parse("2026-11-21T10:52:00Z");
    EXPECT_DOUBLE_EQ(Date{ start.time + 1500ms }.since(start), 1.5);
    EXPECT_LT(start, (Date{ start.time + 1us }));
}

} // namespace
} // namespace vesko

#include "VeskoLinux/doctor/Diagnosis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace vesko {
namespace {

TEST(Diagnosis, tellsOfEachCheckInTurn)
{
    std::string text;
    diagnose(
        {
            { "Good", [] { return Finding::fine("it is there"); } },
            { "Other", [] { return Finding::fact("a fact"); } },
            { "A long subject of it", [] { return Finding::wanting("it is not", "Get it."); } },
            { "Broken", []() -> Finding { throw std::runtime_error("/home/somebody"); } },
        },
        [&](const Finding& finding) { text += described(finding); });
    EXPECT_EQ(text,
        "ok  Good            it is there\n"
        "    Other           a fact\n"
        "!!  A long subject of it  it is not\n"
        "                    Get it.\n"
        "!!  Broken          it could not be looked at\n"
        "                    Please report this.\n");
}

} // namespace
} // namespace vesko

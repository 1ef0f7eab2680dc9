#include "VeskoLinux/command/StatusText.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

TEST(StatusText, isALineForPeopleAndOneForScripts)
{
    const struct {
        ProgramStatus status;
        const char* plain;
        const char* json;
    } rows[] = {
        { {}, "Vesko is not running",
            R"({"state":"stopped","elapsed":0.0,"text":"Vesko is not running",)"
            R"("tooltip":"Vesko is not running","alt":"stopped","class":"stopped"})" },
        { { "ready", "Готово", 0 }, "Готово",
            R"({"state":"ready","elapsed":0.0,"text":"Готово",)"
            R"("tooltip":"Готово","alt":"ready","class":"ready"})" },
        { { "recording", "Recording", 72.96 }, "Recording 1:12",
            R"({"state":"recording","elapsed":73.0,"text":"Recording",)"
            R"("tooltip":"Recording","alt":"recording","class":"recording"})" },
        { { "new state", "", 0 }, "new state",
            R"({"state":"new state","elapsed":0.0,"text":"new state",)"
            R"("tooltip":"new state","alt":"new state","class":"new state"})" },
    };
    for (const auto& row : rows) {
        EXPECT_EQ(plainLine(row.status), row.plain);
        EXPECT_EQ(jsonLine(row.status), row.json);
    }
}

TEST(StatusText, staysOneLineWhateverTheTitle)
{
    const ProgramStatus status{ "ready", "a\"b\\c\nd\x1b", -1e300 };
    EXPECT_EQ(plainLine(status), "a\"b\\c d ");
    EXPECT_EQ(jsonLine(status),
        R"({"state":"ready","elapsed":0.0,"text":"a\"b\\c\u000ad\u001b",)"
        R"("tooltip":"a\"b\\c\u000ad\u001b","alt":"ready","class":"ready"})");
}

} // namespace
} // namespace vesko

#include "VeskoLinux/command/Arguments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vesko {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const char* const redirect = "com.googleusercontent.apps.1-a:/oauth2redirect?state=x";

Arguments read(const std::vector<const char*>& arguments)
{
    return Arguments::read(arguments);
}

TEST(Arguments, sayWhatAStartIsFor)
{
    const struct {
        std::vector<const char*> arguments;
        Purpose purpose;
    } rows[] = {
        { {}, Purpose::application },
        { { redirect }, Purpose::application },
        { { "--background" }, Purpose::background },
        { { "--background", "--background" }, Purpose::background },
        { { "--background", redirect }, Purpose::background },
        { { "--install-openrouter-key" }, Purpose::keyInstaller },
        { { "--transcribe", "a.wav" }, Purpose::transcribe },
        { { "--language", "de", "--keep", "--transcribe", "a.wav" }, Purpose::transcribe },
        { { "--export", "--doctor" }, Purpose::exportLibrary },
        { { "--doctor" }, Purpose::doctor },
        { { "--get-model", "base" }, Purpose::modelInstaller },
        { { "--doctor", "--network" }, Purpose::doctor },
        { { "--toggle" }, Purpose::toggle },
        { { "--start" }, Purpose::start },
        { { "--stop" }, Purpose::stop },
        { { "--cancel" }, Purpose::cancel },
        { { "--show" }, Purpose::show },
        { { "--quit" }, Purpose::quit },
        { { "--status" }, Purpose::status },
        { { "--json", "--status" }, Purpose::status },
        { { "--follow", "--json" }, Purpose::follow },
        { { "--help" }, Purpose::help },
        { { "-h" }, Purpose::help },
        { { "--version" }, Purpose::version },
    };
    for (const auto& row : rows)
        EXPECT_EQ(read(row.arguments).purpose, row.purpose)
            << (row.arguments.empty() ? "nothing" : row.arguments.front());
}

TEST(Arguments, nameTheModel)
{
    EXPECT_EQ(read({ "--get-model", "large-v3-turbo-q5_0" }).model, "large-v3-turbo-q5_0");
}

TEST(Arguments, keepTheAddresses)
{
    EXPECT_THAT(
        read({ redirect, "other:", "--background" }).addresses, ElementsAre(redirect, "other:"));
}

TEST(Arguments, areRefusedWithAReason)
{
    const struct {
        std::vector<const char*> arguments;
        const char* problem;
    } rows[] = {
        { { "--no-such-thing" }, "unknown argument --no-such-thing" },
        { { "" }, "unknown argument" },
        { { ":no-scheme" }, "unknown argument" },
        { { "1:digit-first" }, "unknown argument" },
        { { "--toggle", "now" }, "unknown argument now" },
        { { "--toggle", "--stop" }, "one thing at a time" },
        { { "--background", "--show" }, "one thing at a time" },
        { { "--export" }, "--export a folder" },
        { { "--export", "" }, "--export a folder" },
        { { "--transcribe" }, "--transcribe takes a file" },
        { { "--transcribe", "a.wav", "--language" }, "--language LANGUAGE" },
        { { "--network" }, "--network goes with" },
        { { "--keep" }, "--keep go with --transcribe" },
        { { "--language", "de", "--toggle" }, "go with --transcribe" },
        { { "--export", "/a", "/b" }, "unknown argument /b" },
        { { "--json" }, "--json goes with" },
        { { "--toggle", "--json" }, "--json goes with" },
        { { "--status", redirect }, "addresses go with" },
    };
    for (const auto& row : rows) {
        EXPECT_EQ(read(row.arguments).purpose, Purpose::refused) << row.problem;
        EXPECT_THAT(read(row.arguments).problem, HasSubstr(row.problem));
    }
}

TEST(Arguments, areAllInTheHelp)
{
    for (const auto* option :
        { "--background", "--doctor", "--install-openrouter-key", "--toggle", "--start", "--stop",
            "--cancel", "--show", "--quit", "--status", "--follow", "--json", "--export",
            "--network", "--transcribe", "--language", "--keep", "--help", "--version" })
        EXPECT_THAT(std::string(usage), HasSubstr(option));
}

} // namespace
} // namespace vesko

// The manual, the summary and the program name the same options.

#include "VeskoLinux/command/Arguments.h"
#include "tests/fakes/Files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <set>

namespace vesko {
namespace {

using Options = std::set<std::string>;

Options optionsIn(const std::string& text)
{
    const std::regex option("--[a-z]+(-[a-z]+)*");
    Options found;
    for (auto at = std::sregex_iterator(text.begin(), text.end(), option);
        at != std::sregex_iterator(); ++at)
        found.insert(at->str());
    return found;
}

// As it is read, with the hyphens as they are typed.
std::string manual()
{
    return std::regex_replace(bytesOf(VESKO_MANUAL), std::regex(R"(\\-)"), "-");
}

std::string section(const std::string& name)
{
    const auto text = manual();
    const auto begin = text.find(".SH " + name + "\n");
    return begin == std::string::npos ? "" : text.substr(begin, text.find("\n.SH ", begin) - begin);
}

TEST(Manual, namesTheOptionsOfTheSummary)
{
    const auto summary = optionsIn(std::string(usage));
    EXPECT_GT(summary.size(), 20U);
    EXPECT_EQ(optionsIn(section("SYNOPSIS")), summary);
    EXPECT_EQ(optionsIn(section("OPTIONS")), summary);
}

TEST(Manual, namesNoOptionThatTheProgramDoesNotKnow)
{
    auto named = optionsIn(manual());
    named.erase("--no-repeat"); // sway's, in an example
    for (const auto& option : named) {
        const char* const arguments[]{ option.c_str() };
        EXPECT_THAT(Arguments::read(arguments).problem, testing::Not(testing::HasSubstr("unknown")))
            << option;
    }
}

TEST(Manual, summaryNamesEachOptionOfTheSource)
{
    auto summary = optionsIn(std::string(usage));
    summary.insert("--keep-clipboard"); // said by the program to itself
    EXPECT_EQ(optionsIn(bytesOf(VESKO_ARGUMENTS)), summary);
}

} // namespace
} // namespace vesko

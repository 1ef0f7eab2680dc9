// What compiled QML must not do, since the collector of its objects may run at any moment.

#include <QtGlobal>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

namespace vesko {
namespace {

std::vector<std::filesystem::path> filesBelow(const char* folder, const std::string& extension)
{
    std::vector<std::filesystem::path> found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.path().extension() == extension)
            found.push_back(entry.path());
    EXPECT_FALSE(found.empty()) << folder;
    return found;
}

// Each match of the pattern in those files, with the name of its file.
std::vector<std::string> matches(
    const std::vector<std::filesystem::path>& files, const std::regex& pattern)
{
    std::vector<std::string> found;
    for (const auto& path : files) {
        std::ifstream file(path);
        const std::string text(std::istreambuf_iterator<char>(file), {});
        for (auto match = std::sregex_iterator(text.begin(), text.end(), pattern);
            match != std::sregex_iterator(); ++match)
            found.push_back(path.filename().string() + ": " + match->str());
    }
    return found;
}

// A value such as a colour becomes a text by a call into the engine, which holds the value by
// nothing that the collector knows of (Qt 6.4): what comes out of a variant that way has to be
// a pointer or a flag, for which nothing is called. In Qt 6.8.2 the machine code of that call puts
// the value where the collector looks.
TEST(CompiledQml, turnsNoValueIntoATextThroughTheEngine)
{
    if (QT_VERSION >= QT_VERSION_CHECK(6, 8, 0))
        GTEST_SKIP() << "QJSEngine::convertVariant keeps the value on the engine's own stack";
    EXPECT_THAT(matches(filesBelow(VESKO_COMPILED_QML, ".cpp"),
                    std::regex(R"(fromVariant<(?!QObject \*>|bool>)[^>]*>\(.*)")),
        testing::IsEmpty());
}

TEST(CompiledQml, makesNoObjectWithoutAnOwner)
{
    EXPECT_THAT(
        matches(filesBelow(VESKO_VIEWS, ".qml"),
            std::regex(R"((createObject\((?!owner\))|incubateObject\(|createQmlObject\().*)")),
        testing::IsEmpty());
}

} // namespace
} // namespace vesko

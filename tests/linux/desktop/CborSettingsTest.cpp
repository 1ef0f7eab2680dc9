#include "VeskoLinux/desktop/CborSettings.h"

#include "tests/fakes/RecordedDisk.h"

#include <QCborArray>
#include <QCborMap>
#include <QCborValue>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fstream>
#include <random>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vesko {
namespace {

namespace fs = std::filesystem;

struct CborSettingsTest : testing::Test {
    QTemporaryDir temporary;
    fs::path home = temporary.path().toStdString();
    fs::path folder = home / "vesko";
    fs::path file = folder / "settings.cbor";

    void put(const std::string& bytes) const
    {
        fs::create_directories(folder);
        std::ofstream(file, std::ios::binary) << bytes;
    }
    static std::string content(const fs::path& path)
    {
        std::ifstream stream(path, std::ios::binary);
        return { std::istreambuf_iterator<char>(stream), {} };
    }
    std::vector<fs::path> setAside() const
    {
        std::vector<fs::path> found;
        for (const auto& entry : fs::directory_iterator(folder))
            if (entry.path().filename().string().starts_with("settings.damaged-"))
                found.push_back(entry.path());
        std::ranges::sort(found);
        return found;
    }
    // What another process does; it must end well.
    template <class Work>
    static void inAnotherProcess(Work work)
    {
        finish(begin(work));
    }
    template <class Work>
    static pid_t begin(Work work)
    {
        const pid_t child = fork();
        if (child == 0) {
            work();
            _exit(0);
        }
        return child;
    }
    static void finish(pid_t child)
    {
        int status = 0;
        pid_t ended = 0;
        do
            ended = waitpid(child, &status, 0);
        while (ended == -1 && errno == EINTR);
        ASSERT_EQ(ended, child) << std::strerror(errno);
        ASSERT_EQ(status, 0);
    }
};

std::string cbor(const QCborMap& map)
{
    return QCborValue(map).toCbor().toStdString();
}

TEST_F(CborSettingsTest, isEmptyAtFirstAndMakesNoFileByReading)
{
    const CborSettings settings(home);
    EXPECT_TRUE(settings.empty());
    EXPECT_EQ(settings.value("provider"), std::nullopt);
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(CborSettingsTest, keepsEveryKindOfValueOverARestart)
{
    const std::vector<std::pair<std::string, SettingValue>> values{
        { "true", true },
        { "false", false },
        { "text", std::string("openrouter") },
        { "empty text", std::string() },
        { "text with signs", std::string("na\xC3\xAFve \xF0\x9F\x8E\x99 \xD7\xA9") },
        { "text with a zero byte", std::string("a\0b", 3) },
        { "text that reads true", std::string("true") },
        { "whole number", 2.0 },
        { "fraction", 0.1 },
        { "negative zero", -0.0 },
        { "origin", std::vector<double>{ 12, -34.5 } },
        { "no numbers", std::vector<double>{} },
        { "bytes", std::vector<std::byte>{ std::byte{ 0 }, std::byte{ 255 } } },
        { "no bytes", std::vector<std::byte>{} },
    };
    {
        CborSettings settings(home);
        for (const auto& [key, value] : values)
            settings.set(key, value);
    }
    const CborSettings settings(home);
    EXPECT_FALSE(settings.empty());
    for (const auto& [key, value] : values)
        EXPECT_EQ(settings.value(key), value) << key;
}

TEST_F(CborSettingsTest, readsAValueOfAnotherKindAsNone)
{
    CborSettings settings(home);
    settings.set("pasteEnabled", std::string("false"));
    settings.set("provider", true);
    settings.set("origin", 1.0);
    EXPECT_EQ(settings.get<bool>("pasteEnabled"), std::nullopt);
    EXPECT_EQ(settings.get<std::string>("provider"), std::nullopt);
    EXPECT_EQ(settings.get<std::vector<double>>("origin"), std::nullopt);
    EXPECT_EQ(settings.get<bool>("provider"), true);
}

TEST_F(CborSettingsTest, keepsValuesOfUnknownKindsThoughItDoesNotGiveThem)
{
    const QCborMap strange{ { QStringLiteral("integer"), 7 }, { QStringLiteral("null"), nullptr },
        { QStringLiteral("map"), QCborMap{ { 1, 2 } } },
        { QStringLiteral("mixed"), QCborArray{ 1.0, QStringLiteral("two") } }, { 5, true } };
    put(cbor(strange));
    CborSettings settings(home);
    for (const char* key : { "integer", "null", "map", "mixed", "5" })
        EXPECT_EQ(settings.value(key), std::nullopt) << key;
    EXPECT_FALSE(settings.empty());

    settings.set("known", true);
    auto expected = strange;
    expected.insert(QStringLiteral("known"), true);
    EXPECT_EQ(QCborValue::fromCbor(QByteArray::fromStdString(content(file))).toMap(), expected);
}

TEST_F(CborSettingsTest, isReadableByItsOwnerAlone)
{
    CborSettings(home).set("a", true);
    EXPECT_EQ(fs::status(folder).permissions(), fs::perms(0700));
    for (const auto& entry : fs::directory_iterator(folder))
        EXPECT_EQ(entry.status().permissions(), fs::perms(0600)) << entry.path();
    fs::permissions(file, fs::perms(0644));
    CborSettings(home).set("a", false);
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0600));
}

TEST_F(CborSettingsTest, replacesTheFileAsAWhole)
{
    CborSettings settings(home);
    settings.set("a", true);
    fs::create_hard_link(file, folder / "before");
    const auto before = content(file);
    settings.set("b", true);
    EXPECT_EQ(content(folder / "before"), before);
}

TEST_F(CborSettingsTest, writesNothingWhenTheValueStandsThere)
{
    CborSettings settings(home);
    settings.set("a", 2.0);
    fs::create_hard_link(file, folder / "before");
    settings.set("a", 2.0);
    EXPECT_TRUE(fs::equivalent(file, folder / "before"));
}

TEST_F(CborSettingsTest, aRemovedValueIsGoneFromTheFile)
{
    CborSettings settings(home);
    settings.set("secret", std::string("6f9619ff"));
    settings.set("kept", true);
    settings.remove("secret");
    EXPECT_EQ(settings.value("secret"), std::nullopt);
    EXPECT_EQ(content(file), cbor({ { QStringLiteral("kept"), true } }));
    settings.remove("kept");
    EXPECT_TRUE(CborSettings(home).empty());
    settings.set("secret", std::string("again"));
    EXPECT_EQ(CborSettings(home).get<std::string>("secret"), "again");
}

TEST_F(CborSettingsTest, removingWhatIsNotThereWritesNothing)
{
    CborSettings settings(home);
    settings.remove("a");
    EXPECT_FALSE(fs::exists(folder));
    settings.set("b", true);
    fs::create_hard_link(file, folder / "before");
    settings.remove("a");
    EXPECT_TRUE(fs::equivalent(file, folder / "before"));
}

TEST_F(CborSettingsTest, aRemovalKeepsWhatAnotherProcessWroteSinceTheLastLook)
{
    CborSettings settings(home);
    settings.set("a", true);
    inAnotherProcess([&] { CborSettings(home).set("b", true); });
    settings.remove("a");
    EXPECT_EQ(content(file), cbor({ { QStringLiteral("b"), true } }));
}

TEST_F(CborSettingsTest, aRemovalThatCouldNotBeWrittenGoesWithTheNextWrite)
{
    CborSettings settings(home);
    settings.set("secret", std::string("6f9619ff"));
    fs::remove(folder / "settings.lock");
    fs::create_directory(folder / "settings.lock");
    settings.remove("secret");
    EXPECT_EQ(settings.value("secret"), std::nullopt);
    EXPECT_FALSE(settings.empty());
    EXPECT_EQ(CborSettings(home).get<std::string>("secret"), "6f9619ff");
    fs::remove(folder / "settings.lock");
    settings.set("other", true);
    EXPECT_EQ(content(file), cbor({ { QStringLiteral("other"), true } }));
}

TEST_F(CborSettingsTest, seesWhatAnotherProcessWrites)
{
    CborSettings settings(home);
    settings.set("provider", std::string("apple"));
    settings.set("soundsEnabled", false);
    inAnotherProcess([&] {
        CborSettings other(home);
        other.set("provider", std::string("openrouter"));
        other.set("keySource", std::string("vesko"));
    });
    EXPECT_EQ(settings.get<std::string>("provider"), "openrouter");
    EXPECT_EQ(settings.get<std::string>("keySource"), "vesko");
    EXPECT_EQ(settings.get<bool>("soundsEnabled"), false);
    fs::remove(file);
    EXPECT_EQ(settings.value("provider"), std::nullopt);
    EXPECT_TRUE(settings.empty());
}

TEST_F(CborSettingsTest, keepsWhatAnotherProcessWroteSinceTheLastLook)
{
    CborSettings settings(home);
    settings.set("a", true);
    inAnotherProcess([&] { CborSettings(home).set("b", true); });
    settings.set("c", true);
    const CborSettings later(home);
    for (const char* key : { "a", "b", "c" })
        EXPECT_EQ(later.get<bool>(key), true) << key;
}

TEST_F(CborSettingsTest, losesNoKeyBetweenTwoProcessesThatWriteAtOnce)
{
    const int count = 200;
    const auto writer = [&](const char* name) {
        return begin([&] {
            CborSettings settings(home);
            for (int i = 0; i < count; ++i)
                settings.set(name + std::to_string(i), double(i));
        });
    };
    const pid_t left = writer("left");
    const pid_t right = writer("right");
    finish(left);
    finish(right);
    const CborSettings settings(home);
    for (int i = 0; i < count; ++i) {
        EXPECT_EQ(settings.get<double>("left" + std::to_string(i)), i);
        EXPECT_EQ(settings.get<double>("right" + std::to_string(i)), i);
    }
}

struct Damage {
    const char* name;
    std::string bytes;
};

void PrintTo(const Damage& damage, std::ostream* stream)
{
    *stream << damage.name;
}

class DamagedSettings : public CborSettingsTest, public testing::WithParamInterface<Damage> { };

TEST_P(DamagedSettings, readAsNoneAndStayUntilTheNextWriteSetsThemAside)
{
    put(GetParam().bytes);
    CborSettings settings(home);
    EXPECT_EQ(settings.value("a"), std::nullopt);
    EXPECT_FALSE(settings.empty());
    EXPECT_EQ(content(file), GetParam().bytes);

    settings.set("a", true);
    ASSERT_EQ(setAside().size(), 1);
    EXPECT_EQ(content(setAside()[0]), GetParam().bytes);
    EXPECT_EQ(CborSettings(home).get<bool>("a"), true);
}

INSTANTIATE_TEST_SUITE_P(Files, DamagedSettings,
    testing::Values(Damage{ "no bytes", "" }, Damage{ "text", "[General]\na=true\n" },
        Damage{ "an array", "\x81\xF5" }, Damage{ "a map and more", std::string("\xA0\0", 2) },
        Damage{ "invalid UTF-8", "\xA1\x61\xFF\xF5" },
        Damage{ "a text longer than memory",
            std::string("\xA1\x61"
                        "a\x7B\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF",
                12) },
        Damage{ "bytes longer than memory",
            std::string("\xA1\x61"
                        "a\x5B\0\0\0\x7F\xFF\xFF\xFF\xFF",
                12) },
        Damage{ "an array longer than memory",
            std::string("\xA1\x61"
                        "a\x9B\0\0\0\0\x7F\xFF\xFF\xFF",
                12) },
        Damage{ "half a million arrays in each other", std::string(500000, '\x81') },
        Damage{ "more than a mebibyte", cbor({}) + std::string(1 << 20, '\0') }),
    [](const auto& info) {
        std::string name = info.param.name;
        std::ranges::replace_if(name, [](char c) { return !isalnum(c); }, '_');
        return name;
    });

TEST_F(CborSettingsTest, noticesEveryTruncation)
{
    {
        CborSettings settings(home);
        settings.set("text", std::string("openrouter"));
        settings.set("origin", std::vector<double>{ 1, 2 });
    }
    const auto whole = content(file);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        put(whole.substr(0, length));
        const CborSettings settings(home);
        EXPECT_EQ(settings.value("text"), std::nullopt) << length;
        EXPECT_FALSE(settings.empty()) << length;
    }
}

TEST_F(CborSettingsTest, survivesRandomBytes)
{
    std::mt19937 random(1);
    for (int round = 0; round < 2000; ++round) {
        std::string bytes(1 + random() % 200, '\0');
        for (auto& byte : bytes)
            byte = static_cast<char>(random());
        if (round % 2 != 0)
            bytes[0] = static_cast<char>(0xA0 + random() % 8); // a map, at least
        put(bytes);
        const CborSettings settings(home);
        settings.value("a");
        ASSERT_EQ(content(file), bytes);
    }
}

TEST_F(CborSettingsTest, keepsTheLastFiveDamagedFiles)
{
    for (int i = 1; i <= 8; ++i) {
        put("damage " + std::to_string(i));
        CborSettings(home).set("a", true);
    }
    std::vector<std::string> kept;
    for (const auto& path : setAside())
        kept.push_back(content(path));
    EXPECT_THAT(kept,
        testing::UnorderedElementsAre("damage 4", "damage 5", "damage 6", "damage 7", "damage 8"));
}

TEST_F(CborSettingsTest, doesNotWaitForAPipeInTheFilesPlace)
{
    fs::create_directories(folder);
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    CborSettings settings(home);
    EXPECT_FALSE(settings.empty());
    settings.set("a", true);
    EXPECT_EQ(CborSettings(home).get<bool>("a"), true);
}

TEST_F(CborSettingsTest, keepsAFolderInTheFilesPlace)
{
    fs::create_directories(file / "inner");
    CborSettings settings(home);
    settings.set("a", true);
    EXPECT_EQ(CborSettings(home).get<bool>("a"), true);
    EXPECT_TRUE(fs::exists(setAside().at(0) / "inner"));
}

TEST_F(CborSettingsTest, neverReplacesAFileThatCannotBeRead)
{
    fs::create_directories(folder);
    fs::create_symlink(file, file);
    CborSettings settings(home);
    settings.set("a", true);
    EXPECT_EQ(settings.get<bool>("a"), true);
    EXPECT_FALSE(settings.empty());
    EXPECT_TRUE(fs::is_symlink(file));
}

TEST_F(CborSettingsTest, writesThroughALinkToAFileElsewhere)
{
    fs::create_directories(folder);
    fs::create_symlink(home / "elsewhere.cbor", file);
    CborSettings(home).set("a", true);
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_TRUE(fs::is_regular_file(home / "elsewhere.cbor"));
    EXPECT_EQ(CborSettings(home).get<bool>("a"), true);
}

TEST_F(CborSettingsTest, keepsInMemoryWhatAnUnwritableFolderRefuses)
{
    std::ofstream(home / "taken") << "a file";
    CborSettings settings(home / "taken");
    settings.set("a", true);
    EXPECT_EQ(settings.get<bool>("a"), true);
    EXPECT_FALSE(settings.empty());
    EXPECT_FALSE(settings.saved());

    fs::remove(home / "taken");
    settings.set("b", true);
    EXPECT_TRUE(settings.saved());
    const CborSettings later(home / "taken");
    EXPECT_EQ(later.get<bool>("a"), true);
    EXPECT_EQ(later.get<bool>("b"), true);
}

TEST_F(CborSettingsTest, keepsTheOldFileWhenTheDiskIsFull)
{
    CborSettings(home).set("a", true);
    const auto before = content(file);
    inAnotherProcess([&] {
        // No file may grow beyond this: what a full disk does to a writer.
        signal(SIGXFSZ, SIG_IGN);
        const rlimit none{ 2, 2 };
        CborSettings settings(home);
        setrlimit(RLIMIT_FSIZE, &none);
        settings.set("b", true);
        if (settings.get<bool>("b") != true || settings.get<bool>("a") != true)
            _exit(1);
    });
    EXPECT_EQ(content(file), before);
    EXPECT_TRUE(setAside().empty());
    EXPECT_EQ(CborSettings(home).value("b"), std::nullopt);
}

TEST_F(CborSettingsTest, areTheOldOnesOrTheNewAfterALossOfPower)
{
    CborSettings(home).set("a", std::string("old"));
    RecordedDisk disk(folder);
    disk.begin();
    CborSettings(home, disk).set("a", std::string("new"));
    std::set<std::string> found;
    for (const auto& state : disk.afterPowerLoss()) {
        const QTemporaryDir later;
        const fs::path there = later.path().toStdString();
        fs::create_directories(there / "vesko");
        for (const auto& [name, bytes] : state)
            std::ofstream(there / "vesko" / name, std::ios::binary) << bytes;
        found.insert(CborSettings(there).get<std::string>("a").value_or("none"));
    }
    EXPECT_EQ(found, (std::set<std::string>{ "old", "new" }));
}

TEST_F(CborSettingsTest, refusesToGrowBeyondWhatItReads)
{
    CborSettings settings(home);
    settings.set("a", true);
    settings.set("b", std::string(2 << 20, 'x'));
    EXPECT_EQ(CborSettings(home).get<bool>("a"), true);
}

} // namespace
} // namespace vesko

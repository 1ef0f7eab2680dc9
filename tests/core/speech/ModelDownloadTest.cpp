#include "VeskoCore/speech/ModelDownload.h"

#include "VeskoCore/base/Digest.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/LoopbackServer.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace vesko {
namespace {

using std::filesystem::path;
using Kind = ModelFailure::Kind;

std::string sumOf(const std::string& bytes)
{
    Sha1 digest;
    digest.add(bytes);
    return hexadecimal(digest.finished());
}

TEST(Sha1OfParts, IsThatOfTheWhole)
{
    // The examples of FIPS 180.
    EXPECT_EQ(sumOf("abc"), "a9993e364706816aba3e25717850c26c9cd0d89d");
    EXPECT_EQ(sumOf(""), "da39a3ee5e6b4b0d3255bfef95601890afd80709");
    Sha1 digest;
    digest.add("a");
    digest.add("bc");
    EXPECT_EQ(hexadecimal(digest.finished()), sumOf("abc"));
}

class Download : public testing::Test {
private:
    TemporaryFolder m_folder;

protected:
    const path folder = m_folder.path() / "models";
    const std::string content = std::string(900'000, 'm') + "end";
    const PublishedModel model{ "base", "1 MiB", sumOf(content), "a test" };
    LoopbackServer server;
    std::vector<std::uintmax_t> told;

    path file() const { return folder / "ggml-base.bin"; }
    path part() const { return folder / "ggml-base.bin.part"; }
    std::string address() const { return server.url() + "/models/"; }
    void arrived(const std::string& bytes) const
    {
        std::filesystem::create_directories(folder);
        putBytes(part(), bytes);
    }
    LoopbackServer::Reply rest(std::size_t from) const
    {
        return LoopbackServer::answer(206, content.substr(from),
            { { "Content-Range",
                "bytes " + std::to_string(from) + "-" + std::to_string(content.size() - 1) + "/"
                    + std::to_string(content.size()) } });
    }
    // The failure; nothing if there was none.
    std::optional<Kind> failure(
        const PublishedModel& of, const std::string& from, const std::stop_token& stop = {})
    {
        try {
            downloadModel(of, from, folder, [&](auto bytes) { told.push_back(bytes); }, stop);
        } catch (const ModelFailure& error) {
            return error.kind();
        }
        return std::nullopt;
    }
    std::optional<Kind> failure() { return failure(model, address()); }
};

TEST_F(Download, PutsTheModelInItsPlace)
{
    server.reply(LoopbackServer::answer(200, content));
    EXPECT_EQ(failure(), std::nullopt);
    EXPECT_EQ(bytesOf(file()), content);
    EXPECT_FALSE(std::filesystem::exists(part()));
    EXPECT_EQ(told.back(), content.size());
    EXPECT_EQ(server.onlyRequest().startLine, "GET /models/ggml-base.bin HTTP/1.1");
    EXPECT_EQ(server.onlyRequest().header("Range"), std::nullopt);
}

TEST_F(Download, GoesOnWithWhatIsThere)
{
    arrived(content.substr(0, 400'000));
    server.reply(rest(400'000));
    EXPECT_EQ(failure(), std::nullopt);
    EXPECT_EQ(bytesOf(file()), content);
    EXPECT_EQ(server.onlyRequest().header("Range"), "bytes=400000-");
}

TEST_F(Download, BeginsAnewWhereTheServerGivesAllOfItAgain)
{
    arrived(content.substr(0, 400'000));
    server.reply(LoopbackServer::answer(200, content));
    EXPECT_EQ(failure(), std::nullopt);
    EXPECT_EQ(bytesOf(file()), content);
}

TEST_F(Download, OfAWholePartNeedsNoServer)
{
    arrived(content);
    EXPECT_EQ(failure(), std::nullopt);
    EXPECT_EQ(bytesOf(file()), content);
    EXPECT_EQ(server.connections(), 0U);
}

TEST_F(Download, RemovesWhatIsAnotherFile)
{
    auto other = content;
    other[5] = 'x';
    server.reply(LoopbackServer::answer(200, other));
    EXPECT_EQ(failure(), Kind::wrongSum);
    EXPECT_FALSE(std::filesystem::exists(file()));
    EXPECT_FALSE(std::filesystem::exists(part()));

    arrived("something else");
    server.reply(rest(14));
    EXPECT_EQ(failure(), Kind::wrongSum) << "a part that was not of it";
    EXPECT_FALSE(std::filesystem::exists(part()));

    arrived(content + "more");
    server.reply(LoopbackServer::answer(416, ""));
    EXPECT_EQ(failure(), Kind::wrongSum) << "a part that is too long";
    EXPECT_FALSE(std::filesystem::exists(part()));
}

TEST_F(Download, TakesNoMoreThanAModelIs)
{
    server.reply({ .bytes = "HTTP/1.1 200 OK\r\n\r\n", .repeated = std::string(65536, 'x') });
    EXPECT_EQ(failure(), Kind::wrongSum);
    EXPECT_FALSE(std::filesystem::exists(part()));
}

TEST_F(Download, KeepsWhatCameWhenTheConnectionBreaks)
{
    auto broken = LoopbackServer::answer(200, content);
    broken.bytes.resize(broken.bytes.size() - 300'000);
    broken.then = LoopbackServer::Then::close;
    server.reply(broken);
    EXPECT_EQ(failure(), Kind::unreachable);
    EXPECT_EQ(bytesOf(part()), content.substr(0, content.size() - 300'000));
    server.reply(rest(content.size() - 300'000));
    EXPECT_EQ(failure(), std::nullopt);
    EXPECT_EQ(bytesOf(file()), content);
}

TEST_F(Download, MayBePausedAndGoneOnWith)
{
    auto half = LoopbackServer::answer(200, content);
    half.bytes.resize(half.bytes.size() - 300'000);
    server.reply(half);
    std::stop_source stop;
    std::optional<Kind> end;
    std::jthread loading([&] { end = failure(model, address(), stop.get_token()); });
    while (!std::filesystem::exists(part())
        || std::filesystem::file_size(part()) < content.size() - 300'000)
        std::this_thread::yield();
    stop.request_stop();
    loading.join();
    EXPECT_EQ(end, Kind::stopped);
    server.reply(rest(content.size() - 300'000));
    EXPECT_EQ(failure(), std::nullopt);
    EXPECT_EQ(bytesOf(file()), content);
}

TEST_F(Download, SurvivesAKillInTheMiddle)
{
    auto half = LoopbackServer::answer(200, content);
    half.bytes.resize(half.bytes.size() - 300'000);
    server.reply(half);
    const pid_t child = ::fork();
    if (child == 0) {
        try {
            downloadModel(model, address(), folder, [](auto) { }, {});
        } catch (const std::exception&) {
        }
        ::_exit(0);
    }
    while (!std::filesystem::exists(part())
        || std::filesystem::file_size(part()) < content.size() - 300'000)
        std::this_thread::yield();
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    server.reply(rest(content.size() - 300'000));
    EXPECT_EQ(failure(), std::nullopt);
    EXPECT_EQ(bytesOf(file()), content);
}

TEST_F(Download, NeedsRoom)
{
    auto huge = model;
    huge.size = "9000000 GiB";
    EXPECT_EQ(failure(huge, address()), Kind::noRoom);
    EXPECT_EQ(server.connections(), 0U);

    // A disk that is full all the same.
    server.reply(LoopbackServer::answer(200, content));
    const auto before = ::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{ 500'000, limit.rlim_max };
    ::setrlimit(RLIMIT_FSIZE, &small);
    const auto end = failure();
    ::setrlimit(RLIMIT_FSIZE, &limit);
    ::signal(SIGXFSZ, before);
    EXPECT_EQ(end, Kind::noRoom);
    EXPECT_EQ(std::filesystem::file_size(part()), 500'000U);
}

TEST_F(Download, FollowsAFewRedirects)
{
    LoopbackServer store;
    store.reply(LoopbackServer::answer(200, content));
    server.reply(LoopbackServer::answer(302, "words", { { "Location", store.url() + "/blob" } }));
    EXPECT_EQ(failure(), std::nullopt);
    EXPECT_EQ(bytesOf(file()), content);
    std::filesystem::remove(file());
    for (int i = 0; i < 10; ++i)
        server.reply(LoopbackServer::answer(302, "", { { "Location", "/again" } }));
    EXPECT_EQ(failure(), Kind::refused) << "for ever";
    server.reply(LoopbackServer::answer(302, "", { { "Location", "file:///etc/passwd" } }));
}

TEST_F(Download, FailsWhereThereIsNothing)
{
    for (const int status : { 401, 403, 404, 429, 500 }) {
        server.reply(LoopbackServer::answer(status, "no such thing"));
        EXPECT_EQ(failure(), Kind::refused) << status;
    }
    EXPECT_EQ(failure(model, "http://127.0.0.1:1/"), Kind::unreachable);
    EXPECT_EQ(failure(model, "file:///tmp/"), Kind::unreachable);
    std::filesystem::remove_all(folder);
    putBytes(folder, "a file");
    EXPECT_EQ(failure(), Kind::storage);
}

TEST_F(Download, WritesIntoPlainFilesOnly)
{
    std::filesystem::create_directories(folder);
    ASSERT_EQ(::mkfifo(part().c_str(), 0600), 0);
    EXPECT_EQ(failure(), Kind::storage);
    std::filesystem::remove(part());
    std::filesystem::create_symlink(folder / "elsewhere", part());
    EXPECT_EQ(failure(), Kind::storage);
    EXPECT_FALSE(std::filesystem::exists(folder / "elsewhere"));
}

TEST(PublishedModels, AreThoseOfTheList)
{
    const auto models
        = publishedModels(bytesOf(VESKO_TEST_DATA "/../../resources/SpeechModels.json"));
    ASSERT_FALSE(models.empty());
    for (const auto& model : models) {
        EXPECT_GT(model.bytes(), 70U << 20) << model.name;
        EXPECT_TRUE(model.source.starts_with("https://")) << model.name;
    }
    const PublishedModel base{ "base", "142 MiB", "465707469ff3a37a2b9b8d8f89f2f99de7299dac",
        models[0].source };
    EXPECT_EQ(std::ranges::count(models, base), 1);
    EXPECT_EQ(base.bytes(), 148'897'792U);
    EXPECT_EQ(base.file(), "ggml-base.bin");
}

TEST(PublishedModels, AreNoneInADamagedList)
{
    const auto with = [](const std::string& name, const std::string& size, const std::string& sum) {
        return R"({"models":[{"name":")" + name + R"(","size":")" + size + R"(","sha1":")" + sum
            + R"(","source":"s"}]})";
    };
    const std::string sum(40, 'a');
    EXPECT_EQ(publishedModels(with("base", "1.5 GiB", sum)).at(0).bytes(), 1'610'612'736U);
    for (const auto& list : { std::string(), std::string("[]"), std::string("{}"),
             std::string(R"({"models":[1]})"), with("../x", "1 MiB", sum), with("", "1 MiB", sum),
             with("a", "1 MB", sum), with("a", "MiB", sum), with("a", "", sum),
             with("a", "1 MiB", "abc"), with("a", "1 MiB", std::string(40, 'A')) })
        EXPECT_THROW(publishedModels(list), std::runtime_error) << list;
}

} // namespace
} // namespace vesko

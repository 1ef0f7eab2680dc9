// The bytes that leave the machine, as a real server receives them, hold the closed list of fields
// and nothing else; and the check that says so can tell.

#include "tests/app/analytics/AnalyticsFixture.h"
#include "tests/app/analytics/WireCheck.h"

namespace vesko {

namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Not;

class AnalyticsWireTest : public AnalyticsFixture {
protected:
    AnalyticsWireTest()
    {
        agree();
        bundle.baseURL = server.url();
    }
    // As the program makes it, with the transport of the program.
    void start() { analytics = std::make_unique<Analytics>(settings, clock, bundle); }
    [[nodiscard]] bool delivered(std::size_t count)
    {
        return eventually([&] { return server.requests().size() == count && clock.armed() == 1; });
    }

    LoopbackServer server;
};

TEST_F(AnalyticsWireTest, EveryEventHoldsTheClosedListAndNothingElse)
{
    for (const auto environment :
        { AnalyticsEnvironment::sandbox, AnalyticsEnvironment::production }) {
        bundle.environment = environment;
        const auto before = server.requests().size();
        server.reply(LoopbackServer::answer(200, "{}"));
        server.reply(LoopbackServer::answer(200, "{}"));
        start();
        std::vector<std::string> names;
        for (std::size_t event = 1; event < jsonNames<UsageEvent>.size(); ++event) {
            track(static_cast<UsageEvent>(event));
            names.emplace_back(jsonNames<UsageEvent>[event]);
        }
        ASSERT_TRUE(delivered(before + 1));
        clock.turn(1);
        ASSERT_TRUE(delivered(before + 2));
        EXPECT_TRUE(analytics->queue().items.empty());
        for (const auto& request : server.requests()) {
            EXPECT_THAT(WireCheck::objections(request), IsEmpty()) << request.bytes;
            EXPECT_EQ(request.header("App-Key"), "A-EU-1");
        }
        EXPECT_THAT(WireCheck::events(server.requests().back().body), ElementsAreArray(names));
        analytics.reset();
    }
}

TEST_F(AnalyticsWireTest, NoRedirectIsFollowed)
{
    for (const int status : { 301, 302, 303, 307, 308 }) {
        SCOPED_TRACE(status);
        LoopbackServer elsewhere;
        const auto before = server.requests().size();
        server.reply(
            LoopbackServer::answer(status, "", { { "Location", elsewhere.url() + "/steal" } }));
        start();
        ASSERT_TRUE(delivered(before + 1));
        EXPECT_TRUE(analytics->queue().items.empty());
        EXPECT_EQ(elsewhere.connections(), 0U);
        analytics.reset();
    }
}

TEST_F(AnalyticsWireTest, ACookieIsNotSentBack)
{
    const LoopbackServer::Headers headers{ { "Set-Cookie", "who=you; Path=/" } };
    server.reply(LoopbackServer::answer(500, "", headers));
    server.reply(LoopbackServer::answer(200, "", headers));
    start();
    ASSERT_TRUE(delivered(1));
    clock.turn(2);
    ASSERT_TRUE(delivered(2));
    EXPECT_EQ(server.requests()[1].bytes, server.requests()[0].bytes);
}

TEST_F(AnalyticsWireTest, WithoutConsentNobodyIsConnected)
{
    settings.values.clear();
    start();
    track();
    drainEvents();
    EXPECT_EQ(server.connections(), 0U);
}

TEST_F(AnalyticsWireTest, AWithdrawalEndsTheRequestUnderWay)
{
    server.stopReading();
    start();
    ASSERT_TRUE(server.waitForConnections(1));
    analytics->setEnabled(false);
    analytics->setEnabled(true);
    // The worker is free for the next identity long before the first request would time out.
    ASSERT_TRUE(eventually([&] { return server.connections() == 2; }));
}

// An envelope as it should be, with one of its parts replaced.
LoopbackServer::Request altered(const std::string& part, const std::string& by)
{
    std::string body = R"([{"eventName":"text_copied","props":{"environment":"sandbox",)"
                       R"("iid":"6f9619ff-8b86-d011-b42d-00c04fc964ff"},)"
                       R"("sessionId":"00000000-0000-0000-0000-00000000000a","systemProps":{)"
                       R"("appBuildNumber":"45","appVersion":"1.2.3","isDebug":true,)"
                       R"("osName":"Linux","sdkVersion":"vesko-aptabase@1"},)"
                       R"("timestamp":"2026-11-21T12:00:00Z"}])";
    const auto at = body.find(part);
    EXPECT_NE(at, std::string::npos) << part;
    body.replace(at, part.size(), by);
    return { .bytes = "",
        .startLine = "POST /api/v0/events HTTP/1.1",
        .headers = { { "Host", "x" }, { "Accept", "*/*" }, { "Content-Type", "application/json" },
            { "App-Key", "A" }, { "Content-Length", "1" } },
        .body = body };
}

TEST(AnalyticsWireCheck, PassesWhatMayGoOut)
{
    EXPECT_THAT(WireCheck::objections(altered("[", "[")), IsEmpty());
}

TEST(AnalyticsWireCheck, ObjectsToEveryOtherBody)
{
    const struct {
        const char* what;
        const char* part;
        const char* by;
    } rows[] = {
        { "one more key", R"("eventName")", R"("text":"my brother","eventName")" },
        { "one more property", R"("environment":)", R"("model":"m","environment":)" },
        { "one more fact of the system", R"("osName")", R"("locale":"de","osName")" },
        { "a key deeper down", R"("sandbox")", R"({"a":"sandbox"})" },
        { "a list", R"("sandbox")", R"(["sandbox"])" },
        { "a null", R"("sandbox")", "null" },
        { "a number", R"("45")", "45" },
        { "words for a build", R"("45")", R"("45 my brother")" },
        { "words for a version", R"("1.2.3")", R"("my brother")" },
        { "a text for a truth", "true", R"("true")" },
        { "another event", "text_copied", "text_copied my brother" },
        { "an identifier in upper case", "6f9619ff", "6F9619FF" },
        { "a fraction of a second", "12:00:00Z", "12:00:00.5Z" },
        { "a key twice", R"("sessionId")", R"("eventName":"text_copied","sessionId")" },
        { "a key missing", R"("eventName":"text_copied",)", "" },
        { "properties missing", R"("props")", R"("other")" },
        { "a bare envelope", "[", "" },
        { "words in place of an envelope", "[", R"(["my brother",)" },
        { "an empty envelope", "[", "[{}," },
    };
    for (const auto& row : rows)
        EXPECT_THAT(WireCheck::objections(altered(row.part, row.by)), Not(IsEmpty())) << row.what;
}

TEST(AnalyticsWireCheck, ObjectsToEveryOtherHead)
{
    auto request = altered("[", "[");
    request.headers.emplace_back("User-Agent", "Linux of my brother");
    EXPECT_THAT(WireCheck::objections(request), Not(IsEmpty()));
    request = altered("[", "[");
    request.headers.emplace_back("App-Key", "another");
    EXPECT_THAT(WireCheck::objections(request), Not(IsEmpty()));
    request = altered("[", "[");
    request.startLine = "POST /api/v0/events?who=me HTTP/1.1";
    EXPECT_THAT(WireCheck::objections(request), Not(IsEmpty()));
}

} // namespace

} // namespace vesko

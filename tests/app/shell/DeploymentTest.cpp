#include "VeskoApp/shell/Deployment.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace vesko {

namespace {

constexpr const char* whole = R"({
    "CFBundleShortVersionString": "1.2.3",
    "VeskoOpenRouterBaseURL": "https://openrouter.example/api/v1/",
    "SomethingElse": 5
})";

class DeploymentTest : public testing::Test {
protected:
    void write(const std::string& text) const { putBytes(folder.path() / "Info.json", text); }

    TemporaryFolder folder;
};

TEST_F(DeploymentTest, IsReadFromTheFirstFolderThatHasOne)
{
    const TemporaryFolder empty;
    const TemporaryFolder later;
    putBytes(later.path() / "Info.json", "{}");
    write(whole);
    const auto deployment = Deployment::read({ empty.path(), folder.path(), later.path() });
    EXPECT_EQ(deployment.version, "1.2.3");
    EXPECT_EQ(deployment.openRouterBaseURL, "https://openrouter.example/api/v1/");
}

TEST_F(DeploymentTest, SaysWhereUsageEventsGo)
{
    write(R"({
        "CFBundleShortVersionString": "1.2.3",
        "CFBundleVersion": "45",
        "VeskoOpenRouterBaseURL": "https://openrouter.example/api/v1/",
        "VeskoAnalyticsAppKey": "A-EU-1",
        "VeskoAnalyticsBaseURL": "https://analytics.example",
        "VeskoAnalyticsEnvironment": "production"
    })");
    const auto analytics = Deployment::read({ folder.path() }).analytics;
    EXPECT_EQ(analytics.appKey, "A-EU-1");
    EXPECT_EQ(analytics.baseURL, "https://analytics.example");
    EXPECT_EQ(analytics.environment, AnalyticsEnvironment::production);
    EXPECT_EQ(analytics.version, "1.2.3");
    EXPECT_EQ(analytics.build, "45");
}

TEST_F(DeploymentTest, WithoutItsValuesThereAreNoUsageEvents)
{
    write(whole);
    const auto analytics = Deployment::read({ folder.path() }).analytics;
    EXPECT_EQ(analytics.appKey, std::nullopt);
    EXPECT_EQ(analytics.baseURL, "");
    EXPECT_EQ(analytics.environment, AnalyticsEnvironment::sandbox);
    EXPECT_EQ(analytics.build, "0");
}

TEST_F(DeploymentTest, OnlyProductionByItsExactNameIsProduction)
{
    for (const char* environment :
        { R"("Production")", R"("production ")", R"("sandbox")", R"("")", "true", "null", "[]" }) {
        SCOPED_TRACE(environment);
        write(R"({"CFBundleShortVersionString": "1", "CFBundleVersion": 45,
                  "VeskoOpenRouterBaseURL": "https://openrouter.example/",
                  "VeskoAnalyticsAppKey": 5, "VeskoAnalyticsEnvironment": )"
            + std::string(environment) + "}");
        const auto analytics = Deployment::read({ folder.path() }).analytics;
        EXPECT_EQ(analytics.environment, AnalyticsEnvironment::sandbox);
        EXPECT_EQ(analytics.appKey, std::nullopt);
        EXPECT_EQ(analytics.build, "0");
    }
    write(R"({"CFBundleShortVersionString": "1", "VeskoAnalyticsAppKey": "",
              "VeskoOpenRouterBaseURL": "https://openrouter.example/"})");
    EXPECT_EQ(Deployment::read({ folder.path() }).analytics.appKey, "");
}

TEST_F(DeploymentTest, FailsWhenItIsMissingDamagedOrIncomplete)
{
    EXPECT_THROW(Deployment::read({}), std::runtime_error);
    EXPECT_THROW(Deployment::read({ folder.path() }), std::runtime_error);
    for (const char* text : { "", "[]", "{", R"({"CFBundleShortVersionString": "1"})",
             R"({"CFBundleShortVersionString": "1", "VeskoOpenRouterBaseURL": ""})",
             R"({"CFBundleShortVersionString": 1, "VeskoOpenRouterBaseURL": "https://x/"})" }) {
        SCOPED_TRACE(text);
        write(text);
        EXPECT_THROW(Deployment::read({ folder.path() }), std::runtime_error);
    }
}

TEST_F(DeploymentTest, FailsWhenAServiceHasNoWebAddress)
{
    for (const char* address :
        { "", "openrouter", "//openrouter.example/", "ftp://openrouter.example/", "https://",
            "https:///api/v1/", "https://open router/", "http://[::1/", "file:///etc/passwd" }) {
        SCOPED_TRACE(address);
        write(R"({"CFBundleShortVersionString": "1", "VeskoOpenRouterBaseURL": "https://x.example/",
                  "VeskoAnalyticsBaseURL": ")"
            + std::string(address) + "\"}");
        EXPECT_THROW(Deployment::read({ folder.path() }), std::runtime_error);
        write(std::string(R"({"CFBundleShortVersionString": "1", "VeskoOpenRouterBaseURL": ")")
            + address + "\"}");
        EXPECT_THROW(Deployment::read({ folder.path() }), std::runtime_error);
    }
}

} // namespace

} // namespace vesko

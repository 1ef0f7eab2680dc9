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
    static std::string with(const std::string& values)
    {
        std::string text = whole;
        return text.insert(1, values + ",");
    }
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

TEST_F(DeploymentTest, SaysWhereModelsAreHadFrom)
{
    write(whole);
    EXPECT_EQ(Deployment::read({ folder.path() }).speechModelsURL, "");
    write(R"({
        "VeskoOpenRouterBaseURL": "https://openrouter.example/api/v1/",
        "VeskoSpeechModelsURL": "https://models.example/main/"
    })");
    EXPECT_EQ(Deployment::read({ folder.path() }).speechModelsURL, "https://models.example/main/");
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

TEST_F(DeploymentTest, WithoutValuesForAccountsThereAreNone)
{
    write(whole);
    EXPECT_EQ(Deployment::read({ folder.path() }).account, AccountDeployment());
    EXPECT_EQ(
        AccountDeployment().google.authorization, "https://accounts.google.com/o/oauth2/v2/auth");
    EXPECT_EQ(AccountDeployment().google.token, "https://oauth2.googleapis.com/token");
}

TEST_F(DeploymentTest, SaysWhereAccountsAre)
{
    write(with(R"("VeskoAuthBaseURL": "https://account.example/api",
        "VeskoGoogleClientID": "1-a.apps.googleusercontent.com", "VeskoAccountRequired": true,
        "VeskoGoogleAuthURL": "http://127.0.0.1:1/auth",
        "VeskoGoogleTokenURL": "http://127.0.0.1:1/token")"));
    const auto account = Deployment::read({ folder.path() }).account;
    EXPECT_EQ(account.baseURL, "https://account.example/api");
    EXPECT_EQ(account.googleClientID, "1-a.apps.googleusercontent.com");
    EXPECT_TRUE(account.required);
    EXPECT_EQ(account.google.authorization, "http://127.0.0.1:1/auth");
    EXPECT_EQ(account.google.token, "http://127.0.0.1:1/token");
}

TEST_F(DeploymentTest, AValueForAccountsThatIsNotOfItsKindIsOff)
{
    for (const char* values : {
             R"("VeskoAuthBaseURL": 5)",
             R"("VeskoAuthBaseURL": "")",
             R"("VeskoAuthBaseURL": "not an address")",
             R"("VeskoAuthBaseURL": "ftp://account.example/")",
             R"("VeskoGoogleClientID": true)",
             R"("VeskoGoogleClientID": "1-a")",
             R"("VeskoGoogleClientID": "1-a.apps.googleusercontent.com.example")",
             R"("VeskoAccountRequired": "true")",
             R"("VeskoAccountRequired": 1)",
             R"("VeskoAccountRequired": null)",
             R"("VeskoGoogleAuthURL": "", "VeskoGoogleTokenURL": [])",
         }) {
        SCOPED_TRACE(values);
        write(with(values));
        EXPECT_EQ(Deployment::read({ folder.path() }).account, AccountDeployment());
    }
}

TEST_F(DeploymentTest, FailsWhenItIsMissingDamagedOrIncomplete)
{
    EXPECT_THROW(Deployment::read({}), std::runtime_error);
    EXPECT_THROW(Deployment::read({ folder.path() }), std::runtime_error);
    for (const char* text : { "", "[]", "{", R"({"CFBundleShortVersionString": "1"})",
             R"({"CFBundleShortVersionString": "1", "VeskoOpenRouterBaseURL": ""})" }) {
        SCOPED_TRACE(text);
        write(text);
        EXPECT_THROW(Deployment::read({ folder.path() }), std::runtime_error);
    }
}

constexpr const char* noWebAddresses[]
    = { "", "openrouter", "//openrouter.example/", "ftp://openrouter.example/", "https://",
          "https:///api/v1/", "https://open router/", "http://[::1/", "file:///etc/passwd" };

TEST_F(DeploymentTest, FailsWhenTheSpeechServiceHasNoWebAddress)
{
    for (const char* address : noWebAddresses) {
        SCOPED_TRACE(address);
        write(std::string(R"({"CFBundleShortVersionString": "1", "VeskoOpenRouterBaseURL": ")")
            + address + "\"}");
        EXPECT_THROW(Deployment::read({ folder.path() }), std::runtime_error);
    }
}

// The user's key would go there for everyone on the way to read.
TEST_F(DeploymentTest, TakesAnUnencryptedSpeechServiceOnlyOnThisMachine)
{
    const auto reads = [this](const std::string& address) {
        write(R"({"VeskoOpenRouterBaseURL": ")" + address + "\"}");
        try {
            return Deployment::read({ folder.path() }).openRouterBaseURL == address;
        } catch (const std::runtime_error&) {
            return false;
        }
    };
    for (const char* address : { "http://127.0.0.1:8080/api/v1/", "http://127.8.9.1/api/v1",
             "http://localhost/api/v1/", "http://LOCALHOST:1/", "http://[::1]:8080/api/v1/",
             "https://openrouter.example/api/v1/", "https://192.168.0.1/" })
        EXPECT_TRUE(reads(address)) << address;
    for (const char* address : { "http://openrouter.ai/api/v1/", "HTTP://openrouter.ai/api/v1/",
             "http://192.168.0.1/", "http://localhost.example/", "http://127.0.0.1.example/",
             "http://localhost@openrouter.ai/", "http://[fe80::1]/", "http://0.0.0.0/" })
        EXPECT_FALSE(reads(address)) << address;
}

// What only counts for usage events never keeps anyone from dictating.
TEST_F(DeploymentTest, WithoutAVersionOrAnAnalyticsAddressItStartsAllTheSame)
{
    for (const char* version :
        { "", R"("CFBundleShortVersionString": 1,)", R"("CFBundleShortVersionString": null,)" })
        for (const char* address : noWebAddresses) {
            SCOPED_TRACE(std::string(version) + address);
            write("{" + std::string(version)
                + R"("VeskoOpenRouterBaseURL": "https://x.example/", "VeskoAnalyticsAppKey": "A",
                     "VeskoAnalyticsBaseURL": ")"
                + address + "\"}");
            const auto deployment = Deployment::read({ folder.path() });
            EXPECT_EQ(deployment.version, "0.0.0");
            EXPECT_EQ(deployment.analytics.version, "0.0.0");
            EXPECT_EQ(deployment.analytics.baseURL, "");
        }
    write(R"({"VeskoOpenRouterBaseURL": "https://x.example/", "VeskoAnalyticsBaseURL": 5})");
    EXPECT_EQ(Deployment::read({ folder.path() }).analytics.baseURL, "");
}

} // namespace

} // namespace vesko

#include "tests/core/speech/OpenRouterCalls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unicode/locid.h>

namespace vesko {
namespace {

using testing::ElementsAre;
using Pricing = std::map<std::string, std::string>;

class OpenRouterModels : public testing::Test {
protected:
    std::vector<ProviderModel> listed(const std::string& body, bool transcription = false)
    {
        server.reply(LoopbackServer::answer(200, body));
        return clientOf(server).models(transcription, {});
    }
    VeskoError failureOf(LoopbackServer::Reply reply)
    {
        server.reply(std::move(reply));
        return failure([&] { clientOf(server).models(false, {}); });
    }
    // The names of models that are listed under them, in the order that they come back in.
    std::vector<std::string> sorted(const std::vector<std::string>& names)
    {
        std::string models;
        for (const auto& name : names)
            models += (models.empty() ? "" : ",") + (R"({"id":"x","name":")" + name + "\"}");
        std::vector<std::string> order;
        for (const auto& model : listed(R"({"data":[)" + models + "]}"))
            order.push_back(model.name);
        return order;
    }

    LoopbackServer server;
};

// A locale of the user's for as long as it lives.
class UserLocale {
public:
    explicit UserLocale(const char* locale) { become(icu::Locale(locale)); }
    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;
    ~UserLocale() { become(m_before); }

private:
    static void become(const icu::Locale& locale)
    {
        UErrorCode status = U_ZERO_ERROR;
        icu::Locale::setDefault(locale, status);
        EXPECT_TRUE(U_SUCCESS(status));
    }

    icu::Locale m_before = icu::Locale::getDefault();
};

// A list of 250,000 once kept the settings from answering for minutes.
TEST_F(OpenRouterModels, AreNoMoreThanAPickerCanShow)
{
    std::string rows;
    for (int row = 0; row < 50'000; ++row)
        rows += (row == 0 ? "" : ",")
            + (R"({"id":"m/)" + std::to_string(row) + R"(","name":"Model )") + std::to_string(row)
            + "\"}";
    const auto models = listed(R"({"data":[)" + rows + "]}");
    ASSERT_EQ(models.size(), OpenRouterClient::mostModels);
    EXPECT_EQ(models.front().id, "m/0");
    EXPECT_EQ(models.back().id, "m/" + std::to_string(OpenRouterClient::mostModels - 1));
    // What is beyond has to be readable all the same.
    EXPECT_EQ(failureOf(LoopbackServer::answer(200, R"({"data":[)" + rows + R"(,{"id":5}]})")),
        VeskoError(VeskoError::invalidResponse));
}

TEST_F(OpenRouterModels, HaveIdentifiersAndNamesThatCanBeShown)
{
    const std::string longest(OpenRouterClient::longestModelText, 'x');
    const auto row = [](const std::string& id, const std::string& name) {
        return R"({"id":")" + id + R"(","name":")" + name + "\"}";
    };
    const auto models = listed(R"({"data":[)" + row(longest, longest) + ","
        + row(longest + "x", "a") + "," + row("a", longest + "x") + "]}");
    ASSERT_EQ(models.size(), 1U);
    EXPECT_EQ(models[0].id, longest);
    EXPECT_EQ(models[0].name, longest);
}

TEST_F(OpenRouterModels, AreAskedForWithoutAKey)
{
    listed(R"({"data":[{"id":"a/b","name":"B"}]})");
    const auto request = server.onlyRequest();
    EXPECT_EQ(request.startLine, "GET /api/v1/models HTTP/1.1");
    EXPECT_EQ(request.header("Authorization"), std::nullopt);
    EXPECT_EQ(request.header("X-Title"), "Vesko");
    EXPECT_EQ(request.body, "");
}

TEST_F(OpenRouterModels, ForTranscriptionAreAListOfTheirOwn)
{
    listed(R"({"data":[{"id":"a/b","name":"B"}]})", true);
    EXPECT_EQ(server.onlyRequest().startLine,
        "GET /api/v1/models?output_modalities=transcription HTTP/1.1");
}

TEST_F(OpenRouterModels, KeepTheirIdNameAndPricing)
{
    EXPECT_THAT(listed(R"({"object":"list","data":[
            {"id":"a/b","name":"B","pricing":{"prompt":"0.000001","completion":"0"},"x":[1]},
            {"name":"C \u00fc","id":"c"},
            {"id":"","name":"D","pricing":{}}]})"),
        ElementsAre(
            ProviderModel{ "a/b", "B", Pricing{ { "prompt", "0.000001" }, { "completion", "0" } } },
            ProviderModel{ "c", "C \u00fc", std::nullopt }, ProviderModel{ "", "D", Pricing() }));
}

TEST_F(OpenRouterModels, CountWithoutAPricingThatCanBeRead)
{
    for (const char* pricing : { R"({"prompt":0.5})", R"({"prompt":"1","image":null})", "null",
             "[]", R"(["1"])", R"("free")", "7", "true", R"({"prompt":{"each":"1"}})" }) {
        EXPECT_THAT(
            listed(R"({"data":[{"id":"a","name":"A","pricing":)" + std::string(pricing) + "}]}"),
            ElementsAre(ProviderModel{ "a", "A", std::nullopt }))
            << pricing;
    }
}

TEST_F(OpenRouterModels, AreSortedByNameWithNumbersByValue)
{
    const struct {
        const char* what;
        std::vector<std::string> order;
    } rows[] = {
        { "numbers", { "Model 2", "Model 9", "Model 10", "Model 010b", "Model 100" } },
        { "versions", { "gpt-3.5", "gpt-3.10", "gpt-4", "gpt-4o", "gpt-12" } },
        { "case decides last", { "alpha", "Alpha", "beta", "Beta 1", "beta 2", "gamma" } },
        { "accents decide after letters", { "eta", "\u00e9ta", "etb" } },
        { "marks, digits, letters", { "_x", "(x)", "1x", "9x", "ax", "zx", "\u0436x" } },
    };
    for (const auto& row : rows) {
        auto reversed = row.order;
        std::ranges::reverse(reversed);
        EXPECT_EQ(sorted(reversed), row.order) << row.what;
    }
}

TEST_F(OpenRouterModels, AreSortedAsTheUsersLocaleSorts)
{
    {
        const UserLocale swedish("sv_SE");
        EXPECT_THAT(sorted({ "\u00c5sa 10", "Zo", "\u00c5sa 9", "Ada" }),
            ElementsAre("Ada", "Zo", "\u00c5sa 9", "\u00c5sa 10"));
    }
    {
        const UserLocale none("en_US_POSIX");
        EXPECT_THAT(sorted({ "beta", "\u00c5sa 10", "Zo", "\u00c5sa 9" }),
            ElementsAre("\u00c5sa 9", "\u00c5sa 10", "beta", "Zo"));
    }
}

TEST_F(OpenRouterModels, OfTheSameNameStayInTheirOrder)
{
    std::string models = R"({"id":"z","name":"Z"})";
    std::vector<std::string> expected;
    for (int i = 0; i < 100; ++i) {
        expected.push_back("id" + std::to_string(i * 7 % 100));
        models += R"(,{"name":"Same","id":")" + expected.back() + "\"}";
    }
    expected.emplace_back("z");
    std::vector<std::string> ids;
    for (const auto& model : listed(R"({"data":[)" + models + "]}"))
        ids.push_back(model.id);
    EXPECT_EQ(ids, expected);
}

TEST_F(OpenRouterModels, InAnUnreadableAnswerAreAnInvalidResponse)
{
    const struct {
        const char* what;
        std::string body;
    } rows[] = {
        { "empty", "" },
        { "no JSON", "<html>" },
        { "no object", R"([{"id":"a","name":"A"}])" },
        { "no data", R"({"models":[{"id":"a","name":"A"}]})" },
        { "data of null", R"({"data":null})" },
        { "data as an object", R"({"data":{"id":"a","name":"A"}})" },
        { "no models", R"({"data":[]})" },
        { "a model without name", R"({"data":[{"id":"a","name":"A"},{"id":"b"}]})" },
        { "a model without id", R"({"data":[{"id":"a","name":"A"},{"name":"B"}]})" },
        { "a name of null", R"({"data":[{"id":"a","name":null}]})" },
        { "a name as a number", R"({"data":[{"id":"a","name":4}]})" },
        { "an id as a list", R"({"data":[{"id":["a"],"name":"A"}]})" },
        { "a model of null", R"({"data":[null]})" },
        { "a model as a text", R"({"data":["a"]})" },
        { "invalid UTF-8", "{\"data\":[{\"id\":\"a\",\"name\":\"\xff\"}]}" },
        { "cut", R"({"data":[{"id":"a","name":"A"},)" },
        { "a hundred thousand levels deep",
            R"({"data":[{"id":"a","name":"A","x":)" + std::string(100'000, '[')
                + std::string(100'000, ']') + "}]}" },
        { "a million levels opened", R"({"data":)" + std::string(1'000'000, '[') },
    };
    for (const auto& row : rows)
        EXPECT_EQ(failureOf(LoopbackServer::answer(200, row.body)), VeskoError::invalidResponse)
            << row.what;
}

TEST_F(OpenRouterModels, AFailedStatusWinsOverTheBody)
{
    for (const int status : { 300, 401, 404, 429, 500 })
        EXPECT_EQ(failureOf(LoopbackServer::answer(status, R"({"data":[{"id":"a","name":"A"}]})")),
            VeskoError::http(status));
}

TEST_F(OpenRouterModels, AnAnswerWithoutEndIsGivenUp)
{
    server.reply({ .bytes = "HTTP/1.1 200 OK\r\n\r\n{\"data\":[",
        .repeated = std::string(100'000, ' ') + R"({"id":"a","name":"A"},)" });
    EXPECT_THROW(clientOf(server).models(false, {}), URLError);
}

} // namespace
} // namespace vesko

// The user asks for the lists of models.

#include "tests/app/AppModelTest.h"

#include <condition_variable>
#include <map>
#include <mutex>

namespace vesko {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* updated = "Model catalog updated";
constexpr const char* failed
    = "The model catalog could not be loaded. Your current choices were kept.";

// The service, as far as it lists models: each of the two requests is held until the test answers
// it, or the program gives it up.
class ModelService {
public:
    enum List { speech, text };

    HTTPResult exchange(const HttpRequest& request, const std::stop_token& stop)
    {
        const List list
            = request.url.ends_with("models?output_modalities=transcription") ? speech : text;
        std::unique_lock lock(m_mutex);
        EXPECT_TRUE(list == speech || request.url.ends_with("/models")) << request.url;
        ++m_asked[list];
        m_changed.wait(lock, stop, [&] { return m_answers.contains(list); });
        if (stop.stop_requested())
            throw URLError(URLError::cancelled);
        auto answer = m_answers.extract(list).mapped();
        return { .data = answer.second, .status = answer.first, .requestID = std::nullopt };
    }
    void answer(List list, int status, const std::string& body)
    {
        const std::scoped_lock lock(m_mutex);
        m_answers[list] = { status, body };
        m_changed.notify_all();
    }
    // How often each list was asked for.
    std::size_t asked(List list)
    {
        const std::scoped_lock lock(m_mutex);
        return m_asked[list];
    }

private:
    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    std::map<List, std::pair<int, std::string>> m_answers;
    std::map<List, std::size_t> m_asked;
};

std::string models(const std::vector<std::string>& names)
{
    std::string rows;
    for (const auto& name : names)
        rows += (rows.empty() ? "" : ",")
            + (R"({"id":"id/)" + name + R"(","name":")" + name + "\"}");
    return R"({"data":[)" + rows + "]}";
}

class ModelCatalogTest : public AppModelTest {
protected:
    ModelCatalogTest()
    {
        openRouterTransport = [this](const HttpRequest& request, const std::stop_token& stop) {
            return service.exchange(request, stop);
        };
    }
    ~ModelCatalogTest() override { model.reset(); } // it may still wait for the service

    // Asks for both lists, and waits until the service has been asked.
    void refresh()
    {
        const auto before = service.asked(ModelService::speech);
        model->catalog().refresh();
        EXPECT_TRUE(model->catalog().loading());
        EXPECT_EQ(model->catalog().message(), "");
        ASSERT_TRUE(eventually([&] {
            return service.asked(ModelService::speech) > before
                && service.asked(ModelService::text) > before;
        }));
    }
    void load(const std::vector<std::string>& speech, const std::vector<std::string>& text)
    {
        refresh();
        service.answer(ModelService::speech, 200, models(speech));
        service.answer(ModelService::text, 200, models(text));
        ASSERT_TRUE(ended());
    }
    [[nodiscard]] bool ended()
    {
        return eventually([&] { return !model->catalog().loading(); });
    }
    static std::vector<std::string> names(const std::vector<ProviderModel>& models)
    {
        std::vector<std::string> all;
        for (const auto& model : models)
            all.push_back(model.name);
        return all;
    }

    ModelService service;
};

TEST_F(ModelCatalogTest, IsEmptyUntilAskedFor)
{
    open();
    EXPECT_THAT(model->catalog().sttModels(), IsEmpty());
    EXPECT_THAT(model->catalog().textModels(), IsEmpty());
    EXPECT_FALSE(model->catalog().loading());
    EXPECT_EQ(model->catalog().message(), "");
    EXPECT_EQ(service.asked(ModelService::speech), 0U);
}

TEST_F(ModelCatalogTest, BothListsAreLoadedAndShown)
{
    open();
    int changes = 0;
    QObject::connect(&model->catalog(), &ModelCatalog::changed, [&changes] { ++changes; });
    load({ "Whisper 10", "Whisper 9" }, { "Text" });
    EXPECT_THAT(names(model->catalog().sttModels()), ElementsAre("Whisper 9", "Whisper 10"));
    EXPECT_THAT(names(model->catalog().textModels()), ElementsAre("Text"));
    EXPECT_EQ(model->catalog().message(), updated);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(model->catalog().shownMessage(), QLatin1String(updated));
    EXPECT_FALSE(model->catalog().loading());
}

TEST_F(ModelCatalogTest, LoadingIsGivenUpAndBegunAgain)
{
    open();
    load({ "Whisper" }, { "Text" });
    refresh();
    model->catalog().cancel();
    EXPECT_FALSE(model->catalog().loading());
    EXPECT_EQ(model->catalog().message(), "");
    EXPECT_THAT(names(model->catalog().textModels()), ElementsAre("Text"));
    load({ "Whisper" }, { "Other" });
    EXPECT_THAT(names(model->catalog().textModels()), ElementsAre("Other"));
}

TEST_F(ModelCatalogTest, BothAreAskedForAtTheSameTime)
{
    open();
    refresh();
    // In whichever order they come, they are shown together.
    service.answer(ModelService::text, 200, models({ "Text" }));
    drainEvents();
    EXPECT_TRUE(model->catalog().loading());
    EXPECT_THAT(model->catalog().textModels(), IsEmpty());
    service.answer(ModelService::speech, 200, models({ "Speech" }));
    ASSERT_TRUE(ended());
    EXPECT_THAT(names(model->catalog().textModels()), ElementsAre("Text"));
}

TEST_F(ModelCatalogTest, ASecondRequestWhileOneRunsChangesNothing)
{
    open();
    refresh();
    model->catalog().refresh();
    drainEvents();
    service.answer(ModelService::speech, 200, models({ "Speech" }));
    service.answer(ModelService::text, 200, models({ "Text" }));
    ASSERT_TRUE(ended());
    drainEvents();
    EXPECT_EQ(service.asked(ModelService::speech), 1U);
    EXPECT_EQ(service.asked(ModelService::text), 1U);
    EXPECT_EQ(model->catalog().message(), updated);
}

TEST_F(ModelCatalogTest, WhereOneListFailsBothStayAsTheyWere)
{
    struct Case {
        const char* name;
        std::pair<int, std::string> speech, text;
    };
    const std::pair<int, std::string> good{ 200, models({ "New" }) };
    const std::vector<Case> cases{
        { "the second is refused", good, { 500, "" } },
        { "the first is refused", { 429, "" }, good },
        { "both are refused", { 401, "" }, { 401, "" } },
        { "an empty list", good, { 200, R"({"data":[]})" } },
        { "no sense", { 200, "<html>" }, good },
        { "a model without a name", good, { 200, R"({"data":[{"id":"a"}]})" } },
    };
    open();
    load({ "Speech" }, { "Text" });
    int changes = 0;
    QObject::connect(&model->catalog(), &ModelCatalog::changed, [&changes] { ++changes; });
    for (const auto& [name, speech, text] : cases) {
        SCOPED_TRACE(name);
        refresh();
        service.answer(ModelService::speech, speech.first, speech.second);
        service.answer(ModelService::text, text.first, text.second);
        ASSERT_TRUE(ended());
        EXPECT_EQ(model->catalog().message(), failed);
        EXPECT_THAT(names(model->catalog().sttModels()), ElementsAre("Speech"));
        EXPECT_THAT(names(model->catalog().textModels()), ElementsAre("Text"));
        EXPECT_EQ(model->status().errorMessage(), "");
    }
    EXPECT_EQ(changes, 0);
    load({ "Speech 2" }, { "Text 2" });
    EXPECT_EQ(model->catalog().message(), updated);
    EXPECT_THAT(names(model->catalog().sttModels()), ElementsAre("Speech 2"));
}

TEST_F(ModelCatalogTest, TheChoicesOfTheUserStayEvenIfTheirModelIsGone)
{
    choose("sttModel", std::string("vendor:speech"));
    choose("cleanupModel", std::string("vendor:text"));
    open();
    load({ "Speech" }, { "Text" });
    EXPECT_EQ(model->preferences().sttModel.get(), "vendor:speech");
    EXPECT_EQ(model->preferences().cleanupModel.get(), "vendor:text");
}

TEST_F(ModelCatalogTest, ADictationMeanwhileIsNotHeldUp)
{
    open();
    refresh();
    dictate();
    finish();
    EXPECT_EQ(onlyNote().body, "hello world");
    EXPECT_TRUE(model->catalog().loading());
}

TEST_F(ModelCatalogTest, TheProgramMayEndMeanwhile)
{
    open();
    refresh();
    model.reset(); // both requests are given up, or this would wait for ever
    drainEvents();
}

} // namespace

} // namespace vesko

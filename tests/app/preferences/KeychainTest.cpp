// A secret store that is long in answering is asked once, and by one call at a time.

#include "VeskoApp/preferences/Keychain.h"
#include "tests/fakes/EventLoop.h"
#include "tests/fakes/FakeSecretStore.h"

#include <gtest/gtest.h>

namespace vesko {

namespace {

class KeychainTest : public testing::Test {
protected:
    KeychainTest() { store.put("personal", "sk-old"); }
    ~KeychainTest() override { store.answer(); }

    void load(const std::string& account = "personal") { scope.spawn(loaded(account)); }
    void search() { scope.spawn(found()); }
    Task<> loaded(std::string account)
    {
        try {
            const auto secret = co_await keychain.load(std::move(account));
            answers.emplace_back(secret ? std::string(std::string_view(*secret)) : "none");
        } catch (const KeychainFailure&) {
            answers.emplace_back("failure");
        }
    }
    Task<> found()
    {
        const bool is = co_await keychain.has("personal");
        answers.emplace_back(is ? "there" : "not there");
    }
    [[nodiscard]] bool answered(std::size_t times)
    {
        return eventually([&] { return answers.size() == times; });
    }

    FakeSecretStore store;
    std::vector<std::string> answers;
    Keychain keychain{ store };
    TaskScope scope;
};

TEST_F(KeychainTest, WhoAsksTheSameMeanwhileGetsTheSameAnswer)
{
    store.hang();
    for (int times = 0; times < 3; ++times)
        load();
    ASSERT_TRUE(eventually([&] { return store.loads() == 1; }));
    load();
    store.answer();
    ASSERT_TRUE(answered(4));
    EXPECT_EQ(answers, std::vector<std::string>(4, "sk-old"));
    EXPECT_EQ(store.loads(), 1);
}

TEST_F(KeychainTest, EachQuestionIsOneOfItsOwn)
{
    store.hang();
    load();
    search();
    load("vesko-access");
    store.answer();
    ASSERT_TRUE(answered(3));
    EXPECT_EQ(answers, (std::vector<std::string>{ "sk-old", "there", "none" }));
}

TEST_F(KeychainTest, AFailureIsForAllWhoAskedAndTheNextAsksAgain)
{
    store.hang();
    store.lock();
    load();
    load();
    store.answer();
    ASSERT_TRUE(answered(2));
    store.unlock();
    load();
    ASSERT_TRUE(answered(3));
    EXPECT_EQ(answers, (std::vector<std::string>{ "failure", "failure", "sk-old" }));
}

TEST_F(KeychainTest, WhoAsksAfterAChangeIsNotAnsweredFromBefore)
{
    store.hang();
    load();
    ASSERT_TRUE(eventually([&] { return store.loads() == 1; }));
    scope.spawn(keychain.save("sk-new", "personal"));
    load();
    store.answer();
    ASSERT_TRUE(answered(2));
    EXPECT_EQ(answers, (std::vector<std::string>{ "sk-old", "sk-new" }));

    scope.spawn(keychain.remove("personal"));
    load();
    ASSERT_TRUE(answered(3));
    EXPECT_EQ(answers.back(), "none");
}

TEST_F(KeychainTest, WhoIsGoneIsNotAnswered)
{
    store.hang();
    {
        TaskScope gone;
        gone.spawn(loaded("personal"));
        load();
    }
    store.answer();
    ASSERT_TRUE(answered(1));
}

} // namespace

} // namespace vesko

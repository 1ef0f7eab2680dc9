// The keys of services, asked for before they are needed.

#include "VeskoApp/preferences/ServiceKeys.h"
#include "tests/fakes/EventLoop.h"
#include "tests/fakes/FakeSecretStore.h"

namespace vesko {
namespace {

class ServiceKeysTest : public testing::Test {
protected:
    static KeyOutcome outcomeOf(ServiceKey key)
    {
        return awaited(
            [](ServiceKey asked) -> Task<KeyOutcome> { co_return co_await asked; }(std::move(key)));
    }
    // Asked for, and answered.
    ServiceKey early(const std::string& source)
    {
        const int before = secrets.loads();
        auto key = keys.fetch(source);
        EXPECT_TRUE(eventually([&] { return secrets.loads() > before; }));
        return key;
    }

    FakeSecretStore secrets;
    Keychain keychain{ secrets };
    ServiceKeys keys{ keychain };
};

TEST_F(ServiceKeysTest, EachSourceHasAKeyOfItsOwn)
{
    secrets.put("personal", "sk-mine");
    secrets.put("vesko-access", "sk-access");
    EXPECT_EQ(outcomeOf(keys.fetch("personal")).key, "sk-mine");
    EXPECT_EQ(outcomeOf(keys.fetch("vesko")).key, "sk-access");
    EXPECT_EQ(outcomeOf(keys.fetch("what nobody offers")).key, "sk-mine");
}

TEST_F(ServiceKeysTest, AKeyThatWasThereEarlyStands)
{
    secrets.put("personal", "sk-1");
    auto first = early("personal");
    secrets.put("personal", "sk-2");
    EXPECT_EQ(outcomeOf(keys.fetch("personal", std::move(first))).key, "sk-1");
    EXPECT_EQ(secrets.loads(), 1);
}

TEST_F(ServiceKeysTest, WhatWasMissingEarlyMayBeThereByNow)
{
    const struct {
        const char* what;
        void (*before)(FakeSecretStore&);
    } rows[] = {
        { "no key", [](FakeSecretStore&) {} },
        { "an empty key", [](FakeSecretStore& store) { store.put("personal", ""); } },
        { "a locked store", [](FakeSecretStore& store) { store.lock(); } },
    };
    for (const auto& [what, before] : rows) {
        SCOPED_TRACE(what);
        before(secrets);
        auto first = early("personal");
        secrets.unlock();
        secrets.put("personal", "sk-late");
        EXPECT_EQ(outcomeOf(keys.fetch("personal", std::move(first))).key, "sk-late");
        secrets.remove("personal");
    }
}

TEST_F(ServiceKeysTest, AStoreThatCannotBeAskedIsAFailure)
{
    secrets.put("personal", "sk-1");
    secrets.lock();
    const auto outcome = outcomeOf(keys.fetch("personal"));
    EXPECT_FALSE(outcome.key);
    ASSERT_TRUE(outcome.failure);
    EXPECT_THROW(std::rethrow_exception(outcome.failure), KeychainFailure);
}

TEST_F(ServiceKeysTest, NobodyIsToldWhenTheAskerIsGone)
{
    bool told = false;
    {
        ServiceKeys shortLived(keychain);
        TaskScope waiting;
        waiting.spawn([](ServiceKey key, bool& into) -> Task<> {
            co_await key;
            into = true;
        }(shortLived.fetch("personal"), told));
    }
    awaited(keychain.has("personal")); // which comes behind it
    drainEvents();
    EXPECT_FALSE(told);
}

} // namespace
} // namespace vesko

#include <libsecret/secret.h>

#include "VeskoLinux/secrets/SecretServiceStore.h"
#include "tests/linux/PrivateBus.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

// What libsecret leaves behind of each of its conversations, seen with GLib 2.84.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libglib-2.0.so";
}

namespace vesko {
namespace {

// A real gnome-keyring on a bus of its own.
class Keyring {
public:
    explicit Keyring(const PrivateBus& bus)
        : m_home(bus.path("home"))
    {
        start({ QStringLiteral("--unlock") });
    }
    ~Keyring() { PrivateBus::end(m_daemon); }

    void restartLocked()
    {
        PrivateBus::end(m_daemon);
        start({});
    }
    void restartUnlocked()
    {
        PrivateBus::end(m_daemon);
        start({ QStringLiteral("--unlock") });
    }
    void lock()
    {
        ASSERT_FALSE(PrivateBus::call({ destination(), QStringLiteral("/org/freedesktop/secrets"),
                                          QStringLiteral("org.freedesktop.Secret.Service.Lock"),
                                          QStringLiteral("array:objpath:/org/freedesktop/secrets/"
                                                         "collection/login") })
                .isEmpty());
    }
    void freeze() { kill(static_cast<pid_t>(m_daemon.processId()), SIGSTOP); }

    // The paths of the items that carry the attributes of the account, as another program sees it.
    static QByteArray items(const char* account)
    {
        return PrivateBus::call({ destination(), QStringLiteral("/org/freedesktop/secrets"),
            QStringLiteral("org.freedesktop.Secret.Service.SearchItems"),
            QStringLiteral("dict:string:string:service,app.vesko.openrouter,account,")
                + QString::fromUtf8(account) });
    }

private:
    static QString destination() { return QStringLiteral("--dest=org.freedesktop.secrets"); }

    void start(const QStringList& options)
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), m_home);
        environment.insert(QStringLiteral("XDG_DATA_HOME"), m_home);
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_home);
        QDir().mkpath(m_home);
        m_daemon.setProcessEnvironment(environment);
        PrivateBus::begin(m_daemon, QStringLiteral("gnome-keyring-daemon"),
            QStringList{ QStringLiteral("--foreground"), QStringLiteral("--components=secrets") }
                + options);
        m_daemon.write("password\n");
        m_daemon.waitForBytesWritten(PrivateBus::deadline);
        m_daemon.closeWriteChannel();
        QElapsedTimer timer;
        timer.start();
        while (!PrivateBus::call({ destination(), QStringLiteral("/org/freedesktop/secrets"),
                                     QStringLiteral("org.freedesktop.Secret.Service.ReadAlias"),
                                     QStringLiteral("string:default") })
                .contains("collection/login"))
            if (timer.elapsed() > PrivateBus::deadline)
                throw std::runtime_error("gnome-keyring did not start");
    }

    QString m_home;
    QProcess m_daemon;
};

// Puts an item there as another program would, with a schema of its own.
void storeAsAnotherProgram(const char* account, const std::string& value)
{
    const SecretSchema generic{ "org.freedesktop.Secret.Generic", SECRET_SCHEMA_NONE,
        { { "service", SECRET_SCHEMA_ATTRIBUTE_STRING },
            { "account", SECRET_SCHEMA_ATTRIBUTE_STRING }, { nullptr, {} } },
        0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr };
    SecretValue* secret
        = secret_value_new(value.data(), static_cast<gssize>(value.size()), "text/plain");
    GHashTable* attributes = secret_attributes_build(
        &generic, "service", "app.vesko.openrouter", "account", account, nullptr);
    SecretService* service = secret_service_open_sync(
        SECRET_TYPE_SERVICE, nullptr, SECRET_SERVICE_OPEN_SESSION, nullptr, nullptr);
    EXPECT_TRUE(secret_service_store_sync(
        service, &generic, attributes, SECRET_COLLECTION_DEFAULT, "Key", secret, nullptr, nullptr));
    g_object_unref(service);
    g_hash_table_unref(attributes);
    secret_value_unref(secret);
}

class WithKeyring : public testing::Test {
protected:
    PrivateBus bus;
    Keyring keyring{ bus };
    SecretServiceStore store;
};

TEST_F(WithKeyring, givesBackWhatWasSaved)
{
    const std::string value = "sk-or-\xF0\x9F\x94\x91 with blanks";
    store.save(value, "personal");
    EXPECT_EQ(store.load("personal"), value);
}

TEST_F(WithKeyring, savesUnderTheAttributesThatOtherProgramsSee)
{
    EXPECT_EQ(Keyring::items("personal").count("/collection/"), 0);
    store.save("one", "personal");
    EXPECT_EQ(Keyring::items("personal").count("/collection/"), 1);
    EXPECT_EQ(Keyring::items("vesko-access").count("/collection/"), 0);
}

TEST_F(WithKeyring, keepsTheAccountsApart)
{
    store.save("one", "personal");
    store.save("two", "vesko-access");
    EXPECT_EQ(store.load("personal"), "one");
    EXPECT_EQ(store.load("vesko-access"), "two");
    store.remove("personal");
    EXPECT_EQ(store.load("personal"), std::nullopt);
    EXPECT_EQ(store.load("vesko-access"), "two");
}

TEST_F(WithKeyring, replacesTheValueOfTheItemThatIsThere)
{
    store.save("one", "personal");
    const auto before = Keyring::items("personal");
    store.save("two", "personal");
    EXPECT_EQ(store.load("personal"), "two");
    EXPECT_EQ(Keyring::items("personal"), before);
}

TEST_F(WithKeyring, takesOverAnItemThatAnotherProgramMade)
{
    storeAsAnotherProgram("personal", "theirs");
    EXPECT_EQ(store.load("personal"), "theirs");
    store.save("ours", "personal");
    EXPECT_EQ(store.load("personal"), "ours");
    EXPECT_EQ(Keyring::items("personal").count("/collection/"), 1);
}

TEST_F(WithKeyring, findsNothingUnderAnUnknownAccount)
{
    EXPECT_EQ(store.load("nobody"), std::nullopt);
    EXPECT_NO_THROW(store.remove("nobody"));
}

TEST_F(WithKeyring, refusesAValueThatIsNoUtf8)
{
    storeAsAnotherProgram("personal", "sk-\xFF\xFE");
    EXPECT_THROW(store.load("personal"), KeychainFailure);
    EXPECT_THROW(store.save("sk-\xC3", "vesko-access"), KeychainFailure);
    EXPECT_EQ(store.load("vesko-access"), std::nullopt);
}

std::string said(SecretServiceStore& store)
{
    try {
        store.load("personal");
    } catch (const KeychainFailure& failure) {
        return failure.errorDescription();
    }
    return {};
}

TEST_F(WithKeyring, tellsALockedRingFromAMissingItem)
{
    store.save("one", "personal");
    keyring.lock();
    EXPECT_EQ(said(store), KeychainFailure().errorDescription());
    EXPECT_THROW(store.save("two", "personal"), KeychainFailure);
    EXPECT_THROW(store.save("two", "vesko-access"), KeychainFailure);
    EXPECT_THROW(store.remove("personal"), KeychainFailure);
    EXPECT_EQ(store.load("nobody"), std::nullopt);

    keyring.restartUnlocked();
    EXPECT_EQ(store.load("personal"), "one");
    EXPECT_EQ(store.load("vesko-access"), std::nullopt);
}

TEST_F(WithKeyring, tellsARingThatWasNeverUnlockedFromAMissingItem)
{
    store.save("one", "personal");
    keyring.restartLocked();
    EXPECT_THROW(store.load("personal"), KeychainFailure);
}

TEST_F(WithKeyring, tellsWhetherThereIsAKeyWithoutAskingForAPassword)
{
    EXPECT_FALSE(store.has("personal"));
    store.save("one", "personal");
    EXPECT_TRUE(store.has("personal"));
    storeAsAnotherProgram("vesko-access", "sk-\xFF\xFE");
    EXPECT_FALSE(store.has("vesko-access")); // no UTF-8, no key
    keyring.lock();
    EXPECT_TRUE(store.has("personal"));
    EXPECT_FALSE(store.has("nobody"));
    keyring.restartUnlocked();
    store.remove("personal");
    EXPECT_FALSE(store.has("personal"));
}

TEST_F(WithKeyring, givesUpOnAStoreThatDoesNotAnswer)
{
    keyring.freeze();
    SecretServiceStore impatient(200ms);
    EXPECT_THROW(impatient.load("personal"), KeychainFailure);
    EXPECT_THROW(impatient.save("one", "personal"), KeychainFailure);
    EXPECT_THROW(impatient.remove("personal"), KeychainFailure);
}

void expectFailureOfEverything()
{
    SecretServiceStore store;
    EXPECT_EQ(said(store), KeychainFailure(KeychainFailure::absent).errorDescription());
    EXPECT_THROW(store.load("personal"), KeychainFailure);
    EXPECT_THROW(store.save("one", "personal"), KeychainFailure);
    EXPECT_THROW(store.remove("personal"), KeychainFailure);
}

TEST(SecretServiceStore, failsWithoutAStore)
{
    PrivateBus bus;
    expectFailureOfEverything();
}

TEST(SecretServiceStore, failsWithoutABus)
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    expectFailureOfEverything();
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
}

TEST(SecretServiceStore, outlivesItsBus)
{
    SecretServiceStore store;
    {
        PrivateBus bus;
        Keyring keyring(bus);
        store.save("one", "personal");
    }
    PrivateBus bus;
    Keyring keyring(bus);
    EXPECT_EQ(store.load("personal"), std::nullopt);
}

} // namespace
} // namespace vesko

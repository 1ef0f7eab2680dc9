// The whole road of an account, with nothing between its ends that users don't have: the store, a
// real keyring, a service on loopback, and for Google the browser and the desktop's way back.

#include "VeskoApp/account/AccountStore.h"
#include "VeskoApp/account/KeychainSessionVault.h"
#include "VeskoApp/account/SystemIdentityProviders.h"
#include "VeskoApp/async/QtClock.h"
#include "VeskoCore/base/JsonReader.h"
#include "VeskoCore/speech/CurlTransport.h"
#include "VeskoLinux/desktop/CborSettings.h"
#include "VeskoLinux/desktop/DBusRunningInstance.h"
#include "VeskoLinux/desktop/DesktopBrowser.h"
#include "VeskoLinux/desktop/XdgFolders.h"
#include "VeskoLinux/secrets/SecretServiceStore.h"
#include "tests/fakes/EventLoop.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// Qt keeps what it once learnt of the bus, and forgets it at the end.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libQt6DBus\nleak:libglib\nleak:libgio\n";
}

namespace vesko {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* clientID = "1234-test.apps.googleusercontent.com";
constexpr const char* user = "user@example.com";

std::string lines; // all that was logged

void keepLine(QtMsgType, const QMessageLogContext&, const QString& line)
{
    lines += line.toStdString() + "\n";
}

// tests/desktop/services/account.py
class AccountService {
public:
    AccountService()
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral("/usr/bin/python3"),
            { QStringLiteral(VESKO_SOURCES "/tests/desktop/services/account.py"),
                QStringLiteral("--client"), QString::fromUtf8(clientID) });
        if (!m_process.waitForReadyRead())
            throw std::runtime_error("the service did not start");
        m_url = "http://127.0.0.1:" + m_process.readLine().trimmed().toStdString();
    }
    ~AccountService()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    const std::string& url() const { return m_url; }
    void control(const std::string& json) const { exchange("POST", "/control", json); }
    std::string code() const
    {
        const JsonDocument codes(exchange("GET", "/codes"));
        return std::string(codes.root()[user].get_string().value());
    }
    std::string state() const { return exchange("GET", "/state"); }
    std::string requests() const { return exchange("GET", "/requests"); }

private:
    std::string exchange(const char* method, const char* path,
        const std::optional<std::string>& body = std::nullopt) const
    {
        return curlTransport()(
            { .url = m_url + path, .method = method, .headers = {}, .body = body }, {})
            .data;
    }

    QProcess m_process;
    std::string m_url;
};

class SignInTest : public testing::Test {
protected:
    SignInTest()
    {
        lines.clear();
        m_earlier = qInstallMessageHandler(keepLine);
        std::filesystem::remove_all(configFolder() / "vesko");
        secrets.remove(Keychain::veskoSession);
        deployment.baseURL = service.url();
        deployment.googleClientID = clientID;
        deployment.google = { .authorization = service.url() + "/google/auth",
            .token = service.url() + "/google/token" };
        restart();
    }
    ~SignInTest() override { qInstallMessageHandler(m_earlier); }

    // Another run of the program.
    void restart()
    {
        accounts.reset();
        identities.emplace(browser, clock, deployment.google);
        accounts = std::make_unique<AccountStore>(deployment, vault, *identities, settings);
    }
    void signInByEmail()
    {
        awaited(accounts->startEmail(user));
        awaited(accounts->verifyEmail(service.code()));
        ASSERT_TRUE(accounts->signedIn()) << message();
    }
    std::string message() const { return accounts->message().toStdString(); }
    // Nothing of this may stand in a log line or a file of the program's.
    void expectUnseen(const std::string& secret) const
    {
        ASSERT_GT(secret.size(), 5U);
        EXPECT_THAT(lines, Not(HasSubstr(secret)));
        for (const auto& entry : std::filesystem::recursive_directory_iterator(configFolder())) {
            QFile file(entry.path());
            if (file.open(QIODevice::ReadOnly))
                EXPECT_FALSE(file.readAll().contains(secret.c_str())) << entry.path();
        }
    }

    AccountService service;
    QtClock clock;
    SecretServiceStore secrets;
    CborSettings settings{ configFolder() };
    DesktopBrowser browser;
    Keychain keychain{ secrets };
    KeychainSessionVault vault{ keychain };
    AccountDeployment deployment;
    std::optional<SystemIdentityProviders> identities;
    std::unique_ptr<AccountStore> accounts;

private:
    QtMessageHandler m_earlier;
};

TEST_F(SignInTest, ByEmailOverARestartAndOutAgain)
{
    awaited(accounts->startEmail(" User@Example.com "));
    const auto code = service.code();
    awaited(accounts->verifyEmail(code));
    ASSERT_TRUE(accounts->signedIn()) << message();
    EXPECT_EQ(accounts->account()->email, user);
    const auto token = secrets.load(Keychain::veskoSession);
    ASSERT_TRUE(token);
    const auto account = *accounts->account();

    restart();
    awaited(accounts->restore());
    ASSERT_TRUE(accounts->signedIn());
    EXPECT_EQ(accounts->account()->id, account.id);
    EXPECT_EQ(message(), "");

    awaited(accounts->signOut());
    EXPECT_TRUE(accounts->signedOut());
    EXPECT_EQ(secrets.load(Keychain::veskoSession), std::nullopt);
    EXPECT_EQ(settings.value("veskoAccount"), std::nullopt);
    EXPECT_THAT(service.state(), HasSubstr(R"("sessions": 0, "accounts": ["user@example.com"])"));
    EXPECT_THAT(lines, HasSubstr("sign_in_succeeded provider=email"));
    expectUnseen(code);
    expectUnseen(std::string(std::string_view(*token)));
}

TEST_F(SignInTest, WrongLateAndTooManyCodes)
{
    awaited(accounts->startEmail(user));
    const auto code = service.code();
    const std::string wrong = code == "000000" ? "000001" : "000000";
    for (int attempt = 0; attempt < 5; ++attempt) {
        awaited(accounts->verifyEmail(wrong));
        EXPECT_EQ(message(), "That code is not correct. Check the latest email and try again.");
        EXPECT_EQ(accounts->pendingEmail(), user);
    }
    awaited(accounts->verifyEmail(code));
    EXPECT_EQ(message(), "Too many attempts. Request a new code.");
    EXPECT_EQ(accounts->pendingEmail(), std::nullopt);

    awaited(accounts->startEmail(user));
    service.control(R"({"now": 601})");
    awaited(accounts->verifyEmail(service.code()));
    EXPECT_EQ(message(), "This code has expired. Request a new one.");
    EXPECT_EQ(accounts->pendingEmail(), std::nullopt);

    for (int round = 0; round < 3; ++round)
        awaited(accounts->startEmail(user));
    EXPECT_EQ(accounts->pendingEmail(), user);
    awaited(accounts->startEmail(user));
    EXPECT_EQ(message(), "Too many requests. Wait a few minutes and try again.");
    EXPECT_FALSE(accounts->signedIn());
    EXPECT_EQ(secrets.load(Keychain::veskoSession), std::nullopt);
    expectUnseen(code);
}

TEST_F(SignInTest, ASessionEndsWhenTheServiceSaysSo)
{
    signInByEmail();
    service.control(R"({"now": 2600000})");
    restart();
    awaited(accounts->restore());
    EXPECT_TRUE(accounts->signedOut());
    EXPECT_EQ(message(), "");
    EXPECT_EQ(secrets.load(Keychain::veskoSession), std::nullopt);
    EXPECT_EQ(settings.value("veskoAccount"), std::nullopt);
}

TEST_F(SignInTest, ADeletedAccountIsGone)
{
    signInByEmail();
    EXPECT_TRUE(awaited(accounts->deleteAccount()));
    EXPECT_THAT(service.state(), HasSubstr(R"("sessions": 0, "accounts": [])"));
    EXPECT_EQ(secrets.load(Keychain::veskoSession), std::nullopt);
}

// Signs in with Google: the store opens the browser, whose page leads to an address that the
// desktop opens with the program, which hands it over to the one that runs and ends.
class GoogleTest : public SignInTest {
protected:
    GoogleTest()
    {
        // What installing the program does, for a build with this client id.
        const auto applications
            = QString::fromStdString(dataFolder()) + QStringLiteral("/applications");
        QDir().mkpath(applications);
        const auto info = applications + QStringLiteral("/Info.json");
        write(info, R"({"VeskoGoogleClientID":")" + std::string(clientID) + "\"}");
        EXPECT_EQ(QProcess::execute(QStringLiteral(VESKO_CMAKE),
                      { QStringLiteral("-DINFO=") + info,
                          QStringLiteral("-DENTRY=") + applications
                              + QStringLiteral("/app.vesko.Vesko.desktop"),
                          QStringLiteral("-P"),
                          QStringLiteral(VESKO_SOURCES "/resources/DesktopEntry.cmake") }),
            0);
        write(applications + QStringLiteral("/browser.desktop"),
            "[Desktop Entry]\nType=Application\nName=Browser\nExec=" VESKO_SOURCES
            "/tests/linux/account/browser %u\n");
        // What a desktop knows of all entries.
        write(QString::fromStdString(configFolder()) + QStringLiteral("/mimeapps.list"),
            "[Default Applications]\nx-scheme-handler/http=browser.desktop\n"
            "x-scheme-handler/com.googleusercontent.apps.1234-test=app.vesko.Vesko.desktop\n");
        const auto program = QFileInfo(QStringLiteral(VESKO_PROGRAM)).absolutePath();
        qputenv("PATH", program.toUtf8() + ':' + qgetenv("PATH"));
        // The opener of no desktop at all takes no scheme with digits for one.
        qputenv("XDG_CURRENT_DESKTOP", "GNOME");
        EXPECT_TRUE(runningInstance.claim({}));
        runningInstance.onOpen = [this](const std::vector<std::string>& addresses) {
            for (const auto& address : addresses) {
                redirects.push_back(address);
                identities->handleRedirect(address);
            }
        };
    }
    static void write(const QString& path, const std::string& text)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.c_str());
    }
    // Through the page and back.
    void signIn()
    {
        accounts->run(accounts->signInWithGoogle());
        ASSERT_EQ(accounts->busy(), AuthProvider::google) << message();
        ASSERT_TRUE(eventually([&] { return !accounts->busy(); }));
        ASSERT_EQ(redirects.size(), 1U);
    }

    DBusRunningInstance runningInstance;
    std::vector<std::string> redirects;
};

TEST_F(GoogleTest, ThroughTheBrowserToASession)
{
    signIn();
    ASSERT_TRUE(accounts->signedIn()) << message();
    EXPECT_EQ(accounts->account()->email, "user@gmail.example");
    EXPECT_EQ(accounts->account()->providers, std::vector{ AuthProvider::google });
    const auto token = secrets.load(Keychain::veskoSession);
    ASSERT_TRUE(token);
    expectUnseen(std::string(std::string_view(*token)));
    expectUnseen(redirects.back().substr(redirects.back().find('?') + 1));

    // What once signed in does so no more.
    const auto asked = service.requests();
    identities->handleRedirect(redirects.back());
    drainEvents();
    EXPECT_EQ(service.requests(), asked);
    EXPECT_THAT(lines, HasSubstr("redirect_refused"));
}

TEST_F(GoogleTest, AUserWhoSaysNoIsNotSignedIn)
{
    service.control(R"({"says": "error"})");
    signIn();
    EXPECT_FALSE(accounts->signedIn());
    EXPECT_EQ(message(), "Sign-in was cancelled.");
    EXPECT_THAT(service.requests(), Not(HasSubstr("/google/token")));
}

TEST_F(GoogleTest, ACodeWithAForeignStateIsNotUsed)
{
    service.control(R"({"says": "foreign"})");
    signIn();
    EXPECT_FALSE(accounts->signedIn());
    EXPECT_EQ(message(), "Vesko could not reach its account service. Try again in a moment.");
    EXPECT_THAT(service.requests(), Not(HasSubstr("/google/token")));
    EXPECT_THAT(lines, Not(HasSubstr("state=")));
}

} // namespace
} // namespace vesko

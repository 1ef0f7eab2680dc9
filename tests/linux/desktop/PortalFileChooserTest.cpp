// In the session that TrayStatusItemTest.cpp sets up for the whole program, with a portal on a
// connection of its own.

#include "VeskoLinux/desktop/PortalFileChooser.h"
#ifndef Q_MOC_RUN // which cannot read the standard library's clocks
#include "tests/fakes/EventLoop.h"
#include "tests/fakes/TestClock.h"
#endif

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QUuid>
#include <QWindow>

#include <gtest/gtest.h>

namespace vesko {
namespace {

using Answer = FileChooser::Answer;

const auto portalName = QStringLiteral("org.freedesktop.portal.Desktop");
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto requestInterface = QStringLiteral("org.freedesktop.portal.Request");

// A dialog that is open; counts how often it is closed over the bus.
class Dialog : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")

public:
    int closed = 0;

    // NOLINTNEXTLINE(readability-identifier-naming): the name on the bus
    Q_SCRIPTABLE void Close() { ++closed; }
};

// The desktop's portal, as far as it saves files.
class Portal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.FileChooser")

public:
    struct Call {
        QString window;
        QString title;
        QVariantMap options;
        QString request;
        bool saves;
    };
    std::vector<Call> calls;
    std::map<QString, std::unique_ptr<Dialog>> dialogs;
    bool hears = true; // answers the call itself
    bool refuses = false;

    Portal()
        : m_name(QUuid::createUuid().toString())
        , m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, m_name))
    {
        m_bus.registerObject(portalPath, this, QDBusConnection::ExportScriptableInvokables);
        EXPECT_TRUE(m_bus.registerService(portalName));
    }
    ~Portal() override
    {
        m_bus.unregisterService(portalName);
        QDBusConnection::disconnectFromBus(m_name);
    }

    // NOLINTNEXTLINE(readability-identifier-naming): the name on the bus
    Q_SCRIPTABLE QDBusObjectPath SaveFile(
        const QString& window, const QString& title, const QVariantMap& options)
    {
        return show(window, title, options, true);
    }
    // NOLINTNEXTLINE(readability-identifier-naming): the name on the bus
    Q_SCRIPTABLE QDBusObjectPath OpenFile(
        const QString& window, const QString& title, const QVariantMap& options)
    {
        return show(window, title, options, false);
    }
    // Answers the call that it has not heard.
    void hearAtLast() const { m_bus.send(m_unanswered); }
    // The user ends the dialog of that call.
    void respond(const Call& call, uint code, const QVariantMap& results) const
    {
        respond(m_bus, call, code, results);
    }
    static void respond(
        const QDBusConnection& bus, const Call& call, uint code, const QVariantMap& results)
    {
        auto signal = QDBusMessage::createSignal(
            call.request, requestInterface, QStringLiteral("Response"));
        signal << code << results;
        bus.send(signal);
    }

private:
    QDBusObjectPath show(
        const QString& window, const QString& title, const QVariantMap& options, bool saves)
    {
        const auto path = QStringLiteral("%1/request/%2/%3")
                              .arg(portalPath, message().service().mid(1).replace(u'.', u'_'),
                                  options[QStringLiteral("handle_token")].toString());
        calls.push_back({ window, title, options, path, saves });
        if (refuses)
            sendErrorReply(QDBusError::AccessDenied, QStringLiteral("no"));
        if (!hears) {
            setDelayedReply(true);
            m_unanswered = message().createReply(QVariant::fromValue(QDBusObjectPath(path)));
        }
        auto& dialog = dialogs[path] = std::make_unique<Dialog>();
        m_bus.registerObject(path, dialog.get(), QDBusConnection::ExportScriptableInvokables);
        return QDBusObjectPath(path);
    }

    QString m_name;
    QDBusConnection m_bus;
    QDBusMessage m_unanswered;
};

QVariantMap chose(const QStringList& addresses)
{
    return { { QStringLiteral("uris"), addresses } };
}

struct PortalFileChooserTest : testing::Test {
    TestClock clock;
    std::unique_ptr<Portal> portal = std::make_unique<Portal>();
    PortalFileChooser chooser{ clock };
    QWindow window;
    TaskScope tasks;
    std::vector<Answer> answers;

    void ask(const std::string& name = "Balcony.md")
    {
        tasks.spawn([](PortalFileChooserTest& self, std::string file) -> Task<> {
            self.answers.push_back(co_await self.chooser.save(
                { "Export", "Save", "/home/me/" + file, "Markdown", "*.md" }, self.window));
        }(*this, name));
    }
    // The dialog is open.
    void open(const std::string& name = "Balcony.md")
    {
        const auto before = portal->calls.size();
        ask(name);
        ASSERT_TRUE(eventually([&] { return portal->calls.size() > before; }));
        ASSERT_TRUE(eventually([&] { return clock.armed() == 0; }));
    }
    Answer answer()
    {
        EXPECT_TRUE(eventually([&] { return !answers.empty(); }));
        return answers.empty() ? Answer{} : answers.back();
    }
};

TEST_F(PortalFileChooserTest, asksAboveTheWindowForAFileOfThatName)
{
    open("Bücher & mehr.md");
    const auto& call = portal->calls.at(0);
    EXPECT_EQ(call.window, QStringLiteral("x11:") + QString::number(window.winId(), 16));
    EXPECT_TRUE(call.saves);
    EXPECT_EQ(call.title, QStringLiteral("Export"));
    EXPECT_EQ(call.options[QStringLiteral("accept_label")], QStringLiteral("Save"));
    EXPECT_EQ(call.options[QStringLiteral("current_name")], QStringLiteral("Bücher & mehr.md"));
    EXPECT_EQ(
        call.options[QStringLiteral("current_folder")].toByteArray(), QByteArray("/home/me\0", 9));
    const auto filters = call.options[QStringLiteral("filters")].value<QDBusArgument>();
    EXPECT_EQ(filters.currentSignature(), QStringLiteral("a(sa(us))"));
}

TEST_F(PortalFileChooserTest, asksForAFileThatIsThereWithoutAName)
{
    tasks.spawn([](PortalFileChooserTest& self) -> Task<> {
        self.answers.push_back(co_await self.chooser.open(
            { "Import", "Open", "/home/me/all.zip", "Zip", "*.zip" }, self.window));
    }(*this));
    ASSERT_TRUE(eventually([&] { return !portal->calls.empty(); }));
    const auto& call = portal->calls.at(0);
    EXPECT_FALSE(call.saves);
    EXPECT_FALSE(call.options.contains(QStringLiteral("current_name")));
    EXPECT_EQ(
        call.options[QStringLiteral("current_folder")].toByteArray(), QByteArray("/home/me\0", 9));
    portal->respond(call, 0, chose({ QStringLiteral("file:///home/me/all.zip") }));
    EXPECT_EQ(answer(), (Answer{ Answer::chosen, "/home/me/all.zip" }));
}

TEST_F(PortalFileChooserTest, givesTheChosenFile)
{
    open();
    portal->respond(portal->calls[0], 0, chose({ QStringLiteral("file:///home/me/Notes/a.md") }));
    EXPECT_EQ(answer(), (Answer{ Answer::chosen, "/home/me/Notes/a.md" }));
}

TEST_F(PortalFileChooserTest, readsOnlyAddressesOfFilesOfThisMachine)
{
    struct Row {
        const char* what;
        QStringList addresses;
        std::optional<std::filesystem::path> file;
    };
    const Row rows[] = {
        { "escapes", { QStringLiteral("file:///tmp/a%20b%25%23%3F.md") }, "/tmp/a b%#?.md" },
        { "letters of any language", { QStringLiteral("file:///tmp/%D1%8F.md") }, "/tmp/я.md" },
        { "unescaped letters", { QStringLiteral("file:///tmp/я.md") }, "/tmp/я.md" },
        { "a named machine, this one", { QStringLiteral("file://localhost/tmp/a") }, "/tmp/a" },
        { "another machine", { QStringLiteral("file://server/tmp/a") }, std::nullopt },
        { "another scheme", { QStringLiteral("https://example.org/a") }, std::nullopt },
        { "no scheme", { QStringLiteral("/tmp/a") }, std::nullopt },
        { "a name that is no UTF-8", { QStringLiteral("file:///tmp/%FF%FE.md") }, std::nullopt },
        { "a null", { QStringLiteral("file:///tmp/a%00b") }, std::nullopt },
        { "half an escape", { QStringLiteral("file:///tmp/a%2") }, std::nullopt },
        { "a query", { QStringLiteral("file:///tmp/a?b") }, std::nullopt },
        { "a fragment", { QStringLiteral("file:///tmp/a#b") }, std::nullopt },
        { "no path", { QStringLiteral("file://") }, std::nullopt },
        { "an empty text", { QString() }, std::nullopt },
        { "none", {}, std::nullopt },
        { "two", { QStringLiteral("file:///a"), QStringLiteral("file:///b") }, std::nullopt },
    };
    for (const auto& row : rows) {
        answers.clear();
        open();
        portal->respond(portal->calls.back(), 0, chose(row.addresses));
        EXPECT_EQ(answer(),
            (row.file ? Answer{ Answer::chosen, *row.file } : Answer{ Answer::unavailable, {} }))
            << row.what;
    }
}

TEST_F(PortalFileChooserTest, anAnswerOfAnotherShapeIsNone)
{
    open();
    portal->respond(portal->calls[0], 0, { { QStringLiteral("uris"), 5 } });
    EXPECT_EQ(answer().outcome, Answer::unavailable);
}

TEST_F(PortalFileChooserTest, whoCancelsOrClosesTheDialogHasChosenNothing)
{
    for (const uint code : { 1U, 2U }) {
        answers.clear();
        open();
        portal->respond(portal->calls.back(), code, {});
        EXPECT_EQ(answer().outcome, Answer::cancelled) << code;
    }
}

TEST_F(PortalFileChooserTest, withoutAPortalThereIsNoDialog)
{
    portal.reset();
    ask();
    EXPECT_EQ(answer().outcome, Answer::unavailable);
}

TEST_F(PortalFileChooserTest, aPortalThatRefusesHasNoDialog)
{
    portal->refuses = true;
    ask();
    EXPECT_EQ(answer().outcome, Answer::unavailable);
}

TEST_F(PortalFileChooserTest, aPortalThatDoesNotHearIsWaitedForOnlySoLong)
{
    portal->hears = false;
    ask();
    ASSERT_TRUE(eventually([&] { return portal->calls.size() == 1; }));
    clock.turn(4.9);
    EXPECT_TRUE(answers.empty());
    clock.turn(0.1);
    EXPECT_EQ(answer().outcome, Answer::unavailable);
    // Its dialog, should it ever open, is not wanted any more.
    const auto& dialog = *portal->dialogs.at(portal->calls[0].request);
    EXPECT_EQ(dialog.closed, 0);
    portal->hearAtLast();
    ASSERT_TRUE(eventually([&] { return clock.armed() == 1; }));
    clock.turn(1);
    EXPECT_TRUE(eventually([&] { return dialog.closed == 1; }));
    EXPECT_EQ(answers.size(), 1U);
}

TEST_F(PortalFileChooserTest, theUserMayTakeAnyTime)
{
    open();
    clock.turn(3600);
    drainEvents();
    EXPECT_TRUE(answers.empty());
    portal->respond(portal->calls[0], 0, chose({ QStringLiteral("file:///tmp/a.md") }));
    EXPECT_EQ(answer().outcome, Answer::chosen);
}

TEST_F(PortalFileChooserTest, aPortalThatEndsTakesItsDialogAlong)
{
    open();
    portal.reset();
    EXPECT_EQ(answer().outcome, Answer::cancelled);
    // Its successor is as good.
    portal = std::make_unique<Portal>();
    open();
    portal->respond(portal->calls[0], 0, chose({ QStringLiteral("file:///tmp/a.md") }));
    EXPECT_TRUE(eventually([&] { return answer().outcome == Answer::chosen; }));
}

TEST_F(PortalFileChooserTest, asksForAFolder)
{
    tasks.spawn([](PortalFileChooserTest& self) -> Task<> {
        self.answers.push_back(co_await self.chooser.folder(
            { "Export", "Save", "/home/me/Documents/", {}, {} }, self.window));
    }(*this));
    ASSERT_TRUE(eventually([&] { return !portal->calls.empty(); }));
    const auto& call = portal->calls.at(0);
    EXPECT_FALSE(call.saves);
    EXPECT_EQ(call.options[QStringLiteral("directory")], true);
    EXPECT_FALSE(call.options.contains(QStringLiteral("filters")));
    EXPECT_EQ(call.options[QStringLiteral("current_folder")].toByteArray(),
        QByteArray("/home/me/Documents\0", 19));
    ASSERT_TRUE(eventually([&] { return clock.armed() == 0; }));
    portal->respond(call, 0, chose({ QStringLiteral("file:///home/me/Notes") }));
    EXPECT_EQ(answer(), (Answer{ Answer::chosen, "/home/me/Notes" }));
}

TEST_F(PortalFileChooserTest, askingAgainClosesTheDialogThatIsOpen)
{
    open();
    open("Errands.md");
    ASSERT_EQ(answers.size(), 1U);
    EXPECT_EQ(answers[0].outcome, Answer::cancelled);
    const auto& first = *portal->dialogs.at(portal->calls[0].request);
    EXPECT_TRUE(eventually([&] { return first.closed == 1; }));
    // What is chosen in the first one now counts for nothing.
    portal->respond(portal->calls[0], 0, chose({ QStringLiteral("file:///tmp/first.md") }));
    portal->respond(portal->calls[1], 0, chose({ QStringLiteral("file:///tmp/second.md") }));
    ASSERT_TRUE(eventually([&] { return answers.size() == 2; }));
    EXPECT_EQ(answers[1], (Answer{ Answer::chosen, "/tmp/second.md" }));
}

TEST_F(PortalFileChooserTest, anotherProgramCannotAnswerInThePortalsPlace)
{
    open();
    const auto name = QUuid::createUuid().toString();
    const auto other = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
    Portal::respond(other, portal->calls[0], 0, chose({ QStringLiteral("file:///tmp/other.md") }));
    (void)other.interface()->isServiceRegistered(portalName); // by now the bus has passed it on
    QDBusConnection::disconnectFromBus(name);
    portal->respond(portal->calls[0], 0, chose({ QStringLiteral("file:///tmp/a.md") }));
    EXPECT_EQ(answer(), (Answer{ Answer::chosen, "/tmp/a.md" }));
}

} // namespace
} // namespace vesko

#include "PortalFileChooserTest.moc"

// The command beside a program that is this test, on a bus of their own.

#include "VeskoLinux/desktop/DBusRunningInstance.h"
#include "tests/fakes/EventLoop.h"
#include "tests/linux/PrivateBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QXmlStreamReader>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>

namespace vesko {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// One for all tests: libdbus asks only once where the bus is.
void provideBus()
{
    static const PrivateBus bus;
}

class CommandTest : public testing::Test {
protected:
    struct Ended {
        int code;
        std::string output;
        std::string complaint;
    };

    CommandTest()
    {
        provideBus();
        std::filesystem::copy(VESKO_COMMAND, folder());
        program("touch started; exit 1");
    }
    std::filesystem::path folder() const { return m_folder.path().toStdString(); }
    // What the command finds beside itself.
    void program(const char* script) const
    {
        QFile file(m_folder.filePath(QStringLiteral("vesko-app")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write("#!/bin/sh\ncd \"$(dirname \"$0\")\"\necho \"$@\" >arguments\n");
        file.write(script);
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    // The arguments of the program that was started.
    std::optional<std::string> startedWith() const
    {
        QFile file(m_folder.filePath(QStringLiteral("arguments")));
        if (!file.open(QIODevice::ReadOnly))
            return std::nullopt;
        const auto line = file.readAll();
        return line.endsWith('\n') ? std::optional(line.trimmed().toStdString()) : std::nullopt;
    }
    void run()
    {
        running = std::make_unique<DBusRunningInstance>();
        running->control().onCommand = [this](RemoteCommand command, auto reply) {
            commands.push_back(command);
            reply(answer);
        };
        running->control().status = [this] { return status; };
        ASSERT_TRUE(running->claim({}));
    }
    std::unique_ptr<QProcess> begin(const QStringList& arguments)
    {
        auto command = std::make_unique<QProcess>();
        PrivateBus::begin(*command, m_folder.filePath(QStringLiteral("vesko")), arguments);
        return command;
    }
    static Ended end(QProcess& command)
    {
        EXPECT_TRUE(eventually([&] { return command.state() == QProcess::NotRunning; }));
        EXPECT_EQ(command.exitStatus(), QProcess::NormalExit);
        return { command.exitCode(), command.readAllStandardOutput().toStdString(),
            command.readAllStandardError().toStdString() };
    }
    Ended vesko(const QStringList& arguments) { return end(*begin(arguments)); }
    Ended vesko(const char* argument) { return vesko(QStringList{ QString::fromUtf8(argument) }); }

    std::unique_ptr<DBusRunningInstance> running;
    std::vector<RemoteCommand> commands;
    RemoteAnswer answer = RemoteAnswer::done;
    RemoteStatus status{ QStringLiteral("ready"), QStringLiteral("Готово"), 0 };

private:
    QTemporaryDir m_folder;
};

TEST_F(CommandTest, eachWordReachesTheProgram)
{
    run();
    const struct {
        const char* argument;
        RemoteCommand command;
    } rows[] = {
        { "--toggle", RemoteCommand::toggle },
        { "--start", RemoteCommand::start },
        { "--stop", RemoteCommand::stop },
        { "--cancel", RemoteCommand::cancel },
        { "--press", RemoteCommand::press },
        { "--release", RemoteCommand::release },
        { "--show", RemoteCommand::show },
    };
    for (const auto& row : rows) {
        commands.clear();
        const auto ended = vesko(row.argument);
        EXPECT_EQ(ended.code, 0) << row.argument;
        EXPECT_EQ(ended.output + ended.complaint, "");
        EXPECT_THAT(commands, ElementsAre(row.command));
    }
    EXPECT_EQ(startedWith(), std::nullopt);
}

TEST_F(CommandTest, theExitCodeSaysWhatBecameOfIt)
{
    run();
    const struct {
        const char* argument;
        RemoteAnswer answer;
        int code;
        const char* complaint;
    } rows[] = {
        { "--start", RemoteAnswer::notNow, 4, "vesko: Vesko can't start a dictation now\n" },
        { "--stop", RemoteAnswer::notNow, 4, "vesko: nothing is being recorded\n" },
        { "--toggle", RemoteAnswer::failed, 1, "vesko: it failed; Vesko shows why\n" },
    };
    for (const auto& row : rows) {
        answer = row.answer;
        const auto ended = vesko(row.argument);
        EXPECT_EQ(ended.code, row.code) << row.argument;
        EXPECT_EQ(ended.complaint, row.complaint);
    }
}

TEST_F(CommandTest, whatIsNoUseWithoutAProgramSaysSo)
{
    for (const auto* argument : { "--stop", "--cancel", "--quit" }) {
        const auto ended = vesko(argument);
        EXPECT_EQ(ended.code, 3) << argument;
        EXPECT_EQ(ended.complaint, "vesko: Vesko is not running\n");
    }
    EXPECT_EQ(startedWith(), std::nullopt);
}

TEST_F(CommandTest, theProgramIsStartedWhereThatMakesSense)
{
    program("exec sleep 60");
    for (const auto* argument : { "--toggle", "--start", "--show" }) {
        commands.clear();
        std::filesystem::remove(folder() / "arguments");
        const auto command = begin({ QString::fromUtf8(argument) });
        ASSERT_TRUE(eventually([&] { return startedWith().has_value(); }));
        EXPECT_EQ(startedWith(), "--background");
        run();
        EXPECT_EQ(end(*command).code, 0) << argument;
        EXPECT_EQ(commands.size(), 1U);
        running.reset();
    }
}

TEST_F(CommandTest, aProgramThatCannotStartIsAFailure)
{
    const auto ended = vesko("--toggle");
    EXPECT_EQ(ended.code, 1);
    EXPECT_THAT(ended.complaint, HasSubstr("start of vesko in a terminal"));
}

TEST_F(CommandTest, quitReturnsWhenTheProgramHasEnded)
{
    run();
    running->control().onCommand = [this](RemoteCommand, auto reply) {
        reply(RemoteAnswer::done);
        QTimer::singleShot(0, [this] { running.reset(); });
    };
    EXPECT_EQ(vesko("--quit").code, 0);
    EXPECT_EQ(running, nullptr);
}

TEST_F(CommandTest, theStatusIsALine)
{
    run();
    EXPECT_EQ(vesko("--status").output, "Готово\n");
    status = { QStringLiteral("recording"), QStringLiteral("Запись"), 61.25 };
    EXPECT_EQ(vesko("--status").output, "Запись 1:01\n");
    const auto json = vesko({ QStringLiteral("--status"), QStringLiteral("--json") });
    EXPECT_EQ(json.code, 0);
    EXPECT_THAT(json.output, HasSubstr(R"("state":"recording")"));
    running.reset();
    const auto stopped = vesko("--status");
    EXPECT_EQ(stopped.code, 3);
    EXPECT_EQ(stopped.output, "Vesko is not running\n");
    EXPECT_EQ(startedWith(), std::nullopt);
}

TEST_F(CommandTest, whoFollowsReadsALineAtEachChange)
{
    const auto command = begin({ QStringLiteral("--follow") });
    std::string read;
    const auto comes = [&](const char* line) {
        return eventually([&] {
            read += command->readAllStandardOutput().toStdString();
            return read.ends_with(line);
        });
    };
    ASSERT_TRUE(comes("Vesko is not running\n"));
    run();
    ASSERT_TRUE(comes("Готово\n"));
    status = { QStringLiteral("recording"), QStringLiteral("Запись"), 0 };
    running->control().changed(status);
    ASSERT_TRUE(comes("Запись 0:00\n"));
    running.reset();
    ASSERT_TRUE(comes("Запись 0:00\nVesko is not running\n"));
    EXPECT_EQ(command->state(), QProcess::Running);
    PrivateBus::end(*command);
}

TEST_F(CommandTest, whoFollowsEndsWithItsReader)
{
    QProcess shell; // which waits for both ends of its pipe
    PrivateBus::begin(shell, QStringLiteral("/bin/sh"),
        { QStringLiteral("-c"), QStringLiteral("\"$0\" --follow | head -n 1"),
            QString::fromStdString(folder() / "vesko") });
    EXPECT_EQ(end(shell).output, "Vesko is not running\n");
}

TEST_F(CommandTest, anythingElseBecomesTheProgram)
{
    program("exit 7");
    const struct {
        QStringList arguments;
        const char* passedOn;
    } rows[] = {
        { {}, "" },
        { { QStringLiteral("--background") }, "--background" },
        { { QStringLiteral("--install-openrouter-key") }, "--install-openrouter-key" },
        { { QStringLiteral("any:address?a b") }, "any:address?a b" },
    };
    for (const auto& row : rows) {
        EXPECT_EQ(vesko(row.arguments).code, 7);
        EXPECT_EQ(startedWith(), row.passedOn);
    }
}

TEST_F(CommandTest, needsNeitherBusNorProgramForWhatItKnows)
{
    const auto address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    EXPECT_EQ(vesko("--version").output, "Vesko " VESKO_VERSION "\n");
    const auto help = vesko("--help");
    EXPECT_EQ(help.code, 0);
    EXPECT_THAT(help.output, HasSubstr("--toggle"));
    const auto wrong = vesko("--no-such-thing");
    EXPECT_EQ(wrong.code, 2);
    EXPECT_THAT(wrong.complaint, HasSubstr("unknown argument --no-such-thing"));
    EXPECT_EQ(wrong.output, "");
    const auto toggle = vesko("--toggle");
    EXPECT_EQ(toggle.code, 1);
    EXPECT_THAT(toggle.complaint, HasSubstr("no session bus"));
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    EXPECT_EQ(startedWith(), std::nullopt);
}

// Each member of the interface with its arguments, as such a description has it.
QStringList membersIn(const QByteArray& description)
{
    QStringList members;
    bool ours = false;
    QXmlStreamReader xml(description);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto value = [&](const char* key) {
            return xml.attributes().value(QString::fromUtf8(key)).toString();
        };
        if (xml.name() == QStringLiteral("interface"))
            ours = value("name") == QStringLiteral("app.vesko.Vesko");
        else if (ours && xml.name() == QStringLiteral("arg"))
            members.back() += u' ' + value("type") // what a signal has always goes out
                + (value("direction") == QStringLiteral("in") ? u'<' : u'>');
        else if (ours && xml.name() != QStringLiteral("annotation"))
            members << xml.name().toString() + u' ' + value("name");
    }
    EXPECT_FALSE(xml.hasError());
    members.sort();
    return members;
}

TEST_F(CommandTest, theInterfaceIsTheOneDescribed)
{
    run();
    auto client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("own"));
    auto pending = client.asyncCall(QDBusMessage::createMethodCall(
        QStringLiteral("app.vesko.Vesko"), QStringLiteral("/app/vesko/Vesko"),
        QStringLiteral("org.freedesktop.DBus.Introspectable"), QStringLiteral("Introspect")));
    ASSERT_TRUE(eventually([&] { return pending.isFinished(); }));
    QFile file(QStringLiteral(VESKO_INTERFACE));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const auto described = membersIn(file.readAll());
    EXPECT_EQ(described.size(), 12);
    EXPECT_EQ(membersIn(pending.reply().arguments().value(0).toByteArray()), described);
    QDBusConnection::disconnectFromBus(QStringLiteral("own"));
}

} // namespace
} // namespace vesko

#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <sys/prctl.h>

#include <csignal>
#include <stdexcept>

namespace vesko {

// A session bus of the test's own, which starts no service by itself, under
// DBUS_SESSION_BUS_ADDRESS while this lives. Its processes end with it, and with the test program.
class PrivateBus {
public:
    static constexpr int deadline = 20000; // milliseconds, for what should take a few

    PrivateBus()
        : m_earlier(qgetenv("DBUS_SESSION_BUS_ADDRESS"))
    {
        QFile settings(m_folder.filePath(QStringLiteral("bus.conf")));
        if (!settings.open(QIODevice::WriteOnly))
            throw std::runtime_error("no place for the bus");
        settings.write("<busconfig><type>session</type><listen>unix:dir=" + m_folder.path().toUtf8()
            + "</listen><policy context='default'><allow send_destination='*'/>"
              "<allow eavesdrop='true'/><allow own='*'/></policy></busconfig>");
        settings.close();
        begin(m_daemon, QStringLiteral("dbus-daemon"),
            { QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                QStringLiteral("--config-file"), settings.fileName() });
        while (!m_daemon.canReadLine())
            if (!m_daemon.waitForReadyRead(deadline))
                throw std::runtime_error("dbus-daemon did not start");
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_daemon.readLine().trimmed());
    }
    ~PrivateBus()
    {
        end(m_daemon);
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_earlier);
    }

    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    // Starts a process that ends with the test program.
    static void begin(QProcess& process, const QString& program, const QStringList& arguments)
    {
        process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
        process.start(program, arguments);
        if (!process.waitForStarted(deadline))
            throw std::runtime_error(program.toStdString() + " did not start");
    }
    static void end(QProcess& process)
    {
        process.kill();
        process.waitForFinished(deadline);
    }

    // What a method call answers, as dbus-send prints it; empty if it fails.
    static QByteArray call(const QStringList& arguments)
    {
        QProcess tool;
        tool.start(QStringLiteral("dbus-send"),
            QStringList{ QStringLiteral("--session"), QStringLiteral("--print-reply=literal") }
                + arguments);
        tool.waitForFinished(deadline);
        return tool.exitCode() == 0 ? tool.readAllStandardOutput().trimmed() : QByteArray();
    }

private:
    QTemporaryDir m_folder;
    QByteArray m_earlier;
    QProcess m_daemon;
};

} // namespace vesko

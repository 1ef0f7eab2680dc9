// Whose the shortcut is: a question that each kind of session answers in its own way.

#include "VeskoLinux/doctor/Checks.h"
#include "VeskoLinux/doctor/SessionBus.h"
#include "VeskoLinux/gnome/GnomeShortcut.h"

#include <QDBusArgument>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeySequence>
#include <QRegularExpression>

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstring>

namespace vesko {

namespace {

const char* const takenRemedy = "Choose another one in Vesko's settings, or free this one there.";
const char* const commandRemedy
    = "In its keyboard settings give a shortcut the command: vesko --toggle";

Finding onX11(const std::function<bool()>& isFree)
{
    const auto name = QStringLiteral("app.vesko.Vesko");
    const auto held
        = property(name, QStringLiteral("/app/vesko/Vesko"), name, QStringLiteral("HasShortcut"));
    if (held && held->toBool())
        return Finding::fine("Vesko has it");
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        return Finding::fact("there is no display to ask");
    if (!held && isFree())
        return Finding::fine("nobody has it; Vesko takes it when it starts");
    return Finding::wanting("another program has it; X11 doesn't tell which", takenRemedy);
}

// As it is when Vesko has registered for the first time, and unless the user has changed it.
constexpr int ofVeskos = int(Qt::MetaModifier) | int(Qt::ShiftModifier) | int(Qt::Key_Space);

Finding onPlasma(const QString& service)
{
    const auto place = QStringLiteral("/kglobalaccel");
    const auto interface = QStringLiteral("org.kde.KGlobalAccel");
    const QStringList ours{ QStringLiteral("app.vesko.Vesko"), QStringLiteral("dictate"),
        QStringLiteral("Vesko"), QStringLiteral("Vesko") };
    const auto keys = qdbus_cast<QList<int>>(
        ask(service, place, interface, QStringLiteral("shortcut"), { ours })
            .value_or(QVariant::fromValue(QList<int>())));
    if (!keys.isEmpty() && keys.first() != 0)
        return Finding::fine("the desktop's settings give Vesko "
            + QKeySequence(keys.first()).toString(QKeySequence::PortableText).toStdString());
    // Component and action, each as the program and then as the user calls it.
    const auto owner = ask(service, place, interface, QStringLiteral("action"), { ofVeskos })
                           .value_or(QStringList())
                           .toStringList();
    if (owner.size() > 2 && owner.first() != ours.first())
        return Finding::wanting(owner[2].toStdString() + " has it",
            "Give Vesko another one in the desktop's settings for shortcuts.");
    return Finding::fact("the desktop gives Vesko one when it starts");
}

// The configuration as the compositor has read it, by its own protocol; empty if it doesn't answer.
QByteArray swayConfiguration(const QByteArray& path)
{
    constexpr std::uint32_t getConfiguration = 9;
    constexpr std::uint32_t longest = 1 << 20; // bytes
    constexpr std::size_t headLength = 14;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= qsizetype(sizeof address.sun_path))
        return {};
    std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const timeval patience{ 3, 0 };
    ::setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    ::setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
    std::array<char, headLength> head{ 'i', '3', '-', 'i', 'p', 'c' };
    std::memcpy(head.data() + 10, &getConfiguration, sizeof getConfiguration);
    QByteArray answer;
    std::uint32_t length = 0;
    if (::connect(socket, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0
        && ::send(socket, head.data(), head.size(), MSG_NOSIGNAL) == ssize_t(head.size())
        && ::recv(socket, head.data(), head.size(), MSG_WAITALL) == ssize_t(head.size())) {
        std::memcpy(&length, head.data() + 6, sizeof length);
        answer.resize(std::min(length, longest));
        const auto came
            = ::recv(socket, answer.data(), static_cast<std::size_t>(answer.size()), MSG_WAITALL);
        answer.truncate(std::max<ssize_t>(came, 0));
    }
    ::close(socket);
    return QJsonDocument::fromJson(answer)
        .object()
        .value(QStringLiteral("config"))
        .toString()
        .toUtf8();
}

Finding onSway(const QByteArray& socket)
{
    static const QRegularExpression line(
        QStringLiteral(R"(^\s*bind(?:sym|code)\s+(?:--\S+\s+)*(\S+)\s+exec\s.*\bvesko\s+--)"
                       R"((?:toggle|start|press)\b)"),
        QRegularExpression::MultilineOption);
    const auto bound = line.match(QString::fromUtf8(swayConfiguration(socket)));
    if (bound.hasMatch())
        return Finding::fine(
            "sway's configuration runs Vesko by " + bound.captured(1).toStdString());
    return Finding::wanting("sway's configuration file has no line for Vesko",
        "Unless it includes one, take it from Vesko's settings or \"man vesko\".");
}

} // namespace

Finding lookAtShortcut(bool wayland, const std::function<bool()>& isFree)
{
    if (!wayland)
        return onX11(isFree);
    const auto plasma = QStringLiteral("org.kde.kglobalaccel");
    if (serves(plasma))
        return onPlasma(plasma);
    if (const auto socket = qgetenv("SWAYSOCK"); !socket.isEmpty())
        return onSway(socket);
    if (GnomeShortcut::offered()) {
        const auto keys = GnomeShortcut::boundKeys();
        return keys.empty()
            ? Finding::wanting("no shortcut in GNOME's settings runs Vesko",
                  "Let Vesko add one, in its settings under \"Capture and insertion\".")
            : Finding::fine("GNOME's settings run Vesko by " + keys);
    }
    return Finding::wanting("this desktop gives Vesko no shortcut of its own", commandRemedy);
}

} // namespace vesko

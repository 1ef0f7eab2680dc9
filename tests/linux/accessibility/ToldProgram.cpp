#include "tests/linux/accessibility/ToldProgram.h"

#include "VeskoLinux/accessibility/AtspiBus.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusReply>
#include <QDBusVariant>
#include <QMap>

#include <atspi/atspi-constants.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <utility>

namespace vesko {

struct Reference {
    QString service;
    QDBusObjectPath path;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Reference& reference)
{
    argument.beginStructure();
    argument << reference.service << reference.path;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Reference& reference)
{
    argument.beginStructure();
    argument >> reference.service >> reference.path;
    argument.endStructure();
    return argument;
}

} // namespace vesko

Q_DECLARE_METATYPE(vesko::Reference)

namespace vesko {
namespace {

const QString connectionName = QStringLiteral("told-program");
const QString folder = QStringLiteral("/org/a11y/atspi/accessible");
const QString windowPath = folder + QStringLiteral("/window");
const QString panelPath = folder + QStringLiteral("/panel");
const QString formPath = folder + QStringLiteral("/form");
const QString fieldPath = folder + QStringLiteral("/field");

QString addressOfBus()
{
    const QString service = QStringLiteral("org.a11y.Bus");
    return QDBusReply<QString>(QDBusConnection::sessionBus().call(QDBusMessage::createMethodCall(
        service, QStringLiteral("/org/a11y/bus"), service, QStringLiteral("GetAddress"))));
}

} // namespace

ToldProgram::ToldProgram()
    : role(ATSPI_ROLE_TEXT)
    , m_bus(QDBusConnection::connectToBus(addressOfBus(), connectionName))
{
    qDBusRegisterMetaType<Reference>();
    qDBusRegisterMetaType<QList<Reference>>();
    qDBusRegisterMetaType<QMap<QString, QString>>();
    EXPECT_TRUE(m_bus.registerVirtualObject(folder, this, QDBusConnection::SubPath));
}

ToldProgram::~ToldProgram()
{
    QDBusConnection::disconnectFromBus(connectionName);
}

void ToldProgram::join()
{
    auto embed = QDBusMessage::createMethodCall(QStringLiteral("org.a11y.atspi.Registry"),
        atspi::rootPath, QStringLiteral("org.a11y.atspi.Socket"), QStringLiteral("Embed"));
    embed << QVariant::fromValue(
        Reference{ m_bus.baseService(), QDBusObjectPath(atspi::rootPath) });
    EXPECT_EQ(m_bus.call(embed, QDBus::BlockWithGui).type(), QDBusMessage::ReplyMessage);
}

AtspiAddress ToldProgram::field(int number) const
{
    return { m_bus.baseService(), fieldPath + QString::number(number) };
}

void ToldProgram::tellFocus(int number, bool gained)
{
    auto event = QDBusMessage::createSignal(field(number).path,
        QStringLiteral("org.a11y.atspi.Event.Object"), QStringLiteral("StateChanged"));
    event << QStringLiteral("focused") << int(gained) << 0 << QVariant::fromValue(QDBusVariant(0));
    EXPECT_TRUE(m_bus.send(event));
}

void ToldProgram::goOn()
{
    hesitates = false;
    for (const QDBusMessage& call : std::exchange(m_open, {}))
        EXPECT_TRUE(m_bus.send(call.createReply(states(call.path()))));
}

bool ToldProgram::handleMessage(const QDBusMessage& call, const QDBusConnection&)
{
    const bool asksField = isField(call.path()) && call.member() == QStringLiteral("GetState");
    if (asksField)
        ++m_asked;
    if (silent(call))
        return true;
    if (asksField && hesitates) {
        m_open.push_back(call);
        return true;
    }
    const auto reply = answer(call);
    if (reply)
        m_bus.send(call.createReply(*reply));
    return reply.has_value();
}

bool ToldProgram::isField(const QString& path) const
{
    return path.startsWith(fieldPath);
}

QStringList ToldProgram::childrenOf(const QString& path) const
{
    if (path == atspi::rootPath)
        return { windowPath };
    if (path == windowPath)
        return { panelPath };
    if (path == panelPath)
        return { formPath };
    QStringList all;
    for (int number = 0; path == formPath && number < fields; ++number)
        all.append(field(number).path);
    return all;
}

std::optional<QVariant> ToldProgram::answer(const QDBusMessage& call) const
{
    const QString path = call.path();
    const QString asked = call.member();
    if (asked == QStringLiteral("GetChildren")) {
        QList<Reference> children;
        for (const QString& child : childrenOf(path))
            children.append({ m_bus.baseService(), QDBusObjectPath(child) });
        return QVariant::fromValue(children);
    }
    if (asked == QStringLiteral("GetRole")) {
        const bool frame = path == windowPath || path == atspi::rootPath;
        return uint(isField(path) ? role : frame ? ATSPI_ROLE_FRAME : ATSPI_ROLE_PANEL);
    }
    if (asked == QStringLiteral("GetState"))
        return states(path);
    if (asked == QStringLiteral("GetAttributes"))
        return QVariant::fromValue(QMap<QString, QString>());
    if (asked == QStringLiteral("GetNSelections"))
        return 0;
    if (asked == QStringLiteral("GetText"))
        return written;
    if (asked == QStringLiteral("Get"))
        return QVariant::fromValue(QDBusVariant(property(call.arguments().value(1).toString())));
    return std::nullopt;
}

QVariant ToldProgram::property(const QString& name) const
{
    if (name == QStringLiteral("CharacterCount") || name == QStringLiteral("CaretOffset"))
        return int(written.size());
    if (name == QStringLiteral("Parent"))
        return QVariant::fromValue(Reference{ m_bus.baseService(), QDBusObjectPath(formPath) });
    return QStringLiteral("told");
}

QVariant ToldProgram::states(const QString& path) const
{
    const auto bit = [](int state) { return std::uint64_t(1) << state; };
    auto states = bit(ATSPI_STATE_SHOWING);
    if (isField(path))
        states |= bit(ATSPI_STATE_FOCUSABLE) | bit(ATSPI_STATE_EDITABLE);
    if (path == windowPath)
        states |= bit(ATSPI_STATE_ACTIVE);
    if (path == field(focused).path)
        states |= bit(ATSPI_STATE_FOCUSED);
    return QVariant::fromValue(QList<uint>{ uint(states), uint(states >> 32) });
}

} // namespace vesko

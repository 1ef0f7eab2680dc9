#include "VeskoLinux/desktop/DBusRunningInstance.h"

#include "VeskoCore/base/Localized.h"
#include "VeskoLinux/desktop/LockHolder.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QUuid>

#include <stdexcept>

namespace vesko {

namespace {

const auto name = QStringLiteral("app.vesko.Vesko");
const auto path = QStringLiteral("/app/vesko/Vesko"); // the name as the rules have it
const auto interface = QStringLiteral("org.freedesktop.Application");

constexpr int patience = 5000; // milliseconds
constexpr int attempts = 3;

// Whether the one that runs has taken it.
bool tell(const QDBusConnection& bus, const std::vector<std::string>& addresses)
{
    auto call = QDBusMessage::createMethodCall(name, path, interface,
        addresses.empty() ? QStringLiteral("Activate") : QStringLiteral("Open"));
    call.setAutoStartService(false);
    if (!addresses.empty()) {
        QStringList list;
        for (const auto& address : addresses)
            list << QString::fromStdString(address);
        call << list;
    }
    call << QVariantMap();
    return bus.call(call, QDBus::Block, patience).type() == QDBusMessage::ReplyMessage;
}

std::string unlessOurs(const QString& display)
{
    return display == DBusControl::display() ? std::string() : display.toStdString();
}

// Where the one that runs is, if that isn't here.
std::string otherDisplay(const QDBusConnection& bus)
{
    auto call = QDBusMessage::createMethodCall(
        name, path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    call.setAutoStartService(false);
    call << name << QStringLiteral("Display");
    const auto answer = bus.call(call, QDBus::Block, patience).arguments();
    return unlessOurs(answer.value(0).value<QDBusVariant>().variant().toString());
}

// The bus of another session, as long as this lives.
class OtherBus {
public:
    explicit OtherBus(const QString& address)
        : m_name(QUuid::createUuid().toString())
        , m_bus(QDBusConnection::connectToBus(address, m_name))
    {
    }
    OtherBus(const OtherBus&) = delete;
    OtherBus& operator=(const OtherBus&) = delete;
    ~OtherBus() { QDBusConnection::disconnectFromBus(m_name); }

    const QDBusConnection& connection() const { return m_bus; }
    bool hasVesko(std::int32_t process) const
    {
        return m_bus.isConnected() && m_bus.interface()->servicePid(name) == uint(process);
    }

private:
    QString m_name;
    QDBusConnection m_bus;
};

} // namespace

DBusRunningInstance::DBusRunningInstance()
    : m_connection(QUuid::createUuid().toString())
    , m_control(*new DBusControl(*this, m_connection))
{
}

DBusRunningInstance::~DBusRunningInstance()
{
    QDBusConnection::disconnectFromBus(m_connection);
}

bool DBusRunningInstance::claim(
    const std::vector<std::string>& addresses, bool quiet, const std::filesystem::path& lock)
{
    return claimHere(addresses, quiet) && !findElsewhere(lock, addresses, quiet);
}

bool DBusRunningInstance::claimHere(const std::vector<std::string>& addresses, bool quiet)
{
    // Of its own, since Qt's shared one wants an application object first.
    auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, m_connection);
    if (!bus.isConnected())
        return true;
    // In this order: nobody may find the name and not the object.
    bus.registerObject(
        path, this, QDBusConnection::ExportScriptableInvokables | QDBusConnection::ExportAdaptors);
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (bus.registerService(name))
            return true;
        if (quiet && addresses.empty())
            return false;
        if (tell(bus, addresses)) {
            m_elsewhere = otherDisplay(bus);
            return false;
        }
        // It may have ended just now, and then the name is free.
    }
    throw std::runtime_error(L10N_KEY("Vesko", "Vesko is running already, but does not answer"));
}

bool DBusRunningInstance::findElsewhere(
    const std::filesystem::path& lock, const std::vector<std::string>& addresses, bool quiet)
{
    const auto holder = lockHolder(lock);
    if (!holder)
        return false;
    m_elsewhere = unlessOurs(QString::fromStdString(holder->display));
    if (holder->sessionBus.empty())
        return false;
    const OtherBus other(QString::fromStdString(holder->sessionBus));
    if (!other.hasVesko(holder->process))
        return false;
    if ((!quiet || !addresses.empty()) && !tell(other.connection(), addresses))
        throw std::runtime_error(
            L10N_KEY("Vesko", "Vesko is running already, in another session, but does not answer"));
    return true;
}

void DBusRunningInstance::Activate(const QVariantMap&)
{
    if (onActivate)
        onActivate();
}

void DBusRunningInstance::Open(const QStringList& addresses, const QVariantMap&)
{
    std::vector<std::string> list;
    for (const auto& address : addresses)
        list.push_back(address.toStdString());
    if (onOpen)
        onOpen(list);
}

void DBusRunningInstance::ActivateAction(const QString&, const QVariantList&, const QVariantMap&)
{
    if (calledFromDBus())
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("there is no such action"));
}

} // namespace vesko

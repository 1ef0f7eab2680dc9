#include "VeskoLinux/portal/PortalRequests.h"

#include "VeskoApp/async/EventClock.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <utility>

namespace vesko {

namespace {

const auto portal = QStringLiteral("org.freedesktop.portal.Desktop");
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto request = QStringLiteral("org.freedesktop.portal.Request");
const auto responseSignal = QStringLiteral("Response");

constexpr uint refusedByUser = 1; // of the codes of an answer
constexpr int versionPatience = 5000; // milliseconds

} // namespace

PortalRequests::PortalRequests(EventClock& clock)
    : m_patience(std::make_unique<Timer>(clock))
{
}

PortalRequests::~PortalRequests()
{
    end(std::nullopt);
}

Eventual<PortalRequests::Answer> PortalRequests::ask(const QString& interface,
    const QString& method, QVariantList arguments, QVariantMap options, double patience)
{
    end(std::nullopt);
    m_refused = false;
    auto bus = QDBusConnection::sessionBus();
    // The answer may be there before that to the call, so its place is agreed on beforehand.
    const auto token = QStringLiteral("vesko_paste%1").arg(++m_count);
    m_request = QStringLiteral("%1/request/%2/%3")
                    .arg(portalPath, bus.baseService().mid(1).replace(u'.', u'_'), token);
    bus.connect(portal, m_request, request, responseSignal, this,
        SLOT(response(uint, QVariantMap, QDBusMessage)));
    options.insert(QStringLiteral("handle_token"), token);
    auto call = QDBusMessage::createMethodCall(portal, portalPath, interface, method);
    arguments << options;
    call.setArguments(arguments);
    auto* const heard = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(heard, &QDBusPendingCallWatcher::finished, this, [this, heard, asked = m_request] {
        heard->deleteLater();
        if (heard->isError() && asked == m_request)
            end(std::nullopt);
    });
    m_patience->start(patience, [this] { drop(); });
    return m_asked.emplace();
}

void PortalRequests::drop()
{
    if (!m_asked)
        return;
    auto close
        = QDBusMessage::createMethodCall(portal, m_request, request, QStringLiteral("Close"));
    close.setAutoStartService(false);
    QDBusConnection::sessionBus().send(close);
    end(std::nullopt);
}

Eventual<uint> PortalRequests::version(const QString& interface)
{
    auto question = QDBusMessage::createMethodCall(portal, portalPath,
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << interface << QStringLiteral("version");
    const Eventual<uint> told;
    auto* const answer = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(question, versionPatience), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [answer, told] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        told.set(reply.isValid() ? reply.value().variant().toUInt() : 0);
    });
    return told;
}

void PortalRequests::response(uint code, const QVariantMap& results, const QDBusMessage& message)
{
    if (message.path() != m_request)
        return;
    m_refused = code == refusedByUser;
    end(code == 0 ? Answer(results) : std::nullopt);
}

void PortalRequests::end(Answer answer)
{
    if (!m_asked)
        return;
    m_patience->cancel();
    QDBusConnection::sessionBus().disconnect(portal, std::exchange(m_request, {}), request,
        responseSignal, this, SLOT(response(uint, QVariantMap, QDBusMessage)));
    std::exchange(m_asked, std::nullopt)->set(std::move(answer));
}

} // namespace vesko

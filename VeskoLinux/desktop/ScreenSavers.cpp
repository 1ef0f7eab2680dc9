#include "VeskoLinux/desktop/ScreenSavers.h"

#include "VeskoLinux/desktop/SessionLog.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <algorithm>
#include <array>

namespace vesko {

namespace {

constexpr std::array names{ "org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver",
    "org.cinnamon.ScreenSaver", "org.mate.ScreenSaver", "org.xfce.ScreenSaver" };

QString pathOf(const QString& name)
{
    return u'/' + QString(name).replace(u'.', u'/');
}

} // namespace

ScreenSaver::ScreenSaver(const QString& name)
    : m_name(name)
    , m_watcher(name, QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForOwnerChange)
{
    QDBusConnection::sessionBus().connect(QString(), pathOf(name), name,
        QStringLiteral("ActiveChanged"), this, SLOT(activeChanged(bool)));
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString&, const QString&, const QString& owner) {
            activeChanged(false);
            if (!owner.isEmpty())
                ask();
        });
    ask();
}

void ScreenSaver::ask()
{
    auto question = QDBusMessage::createMethodCall(
        m_name, pathOf(m_name), m_name, QStringLiteral("GetActive"));
    question.setAutoStartService(false);
    auto* answer
        = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<bool> reply = *answer;
        if (reply.isValid())
            activeChanged(reply.value());
        answer->deleteLater();
    });
}

void ScreenSaver::activeChanged(bool active)
{
    if (m_active != active)
        qCInfo(sessionLog, "session_locked=%d", active);
    m_active = active;
}

ScreenSavers::ScreenSavers()
{
    for (const char* name : names)
        m_savers.push_back(std::make_unique<ScreenSaver>(QString::fromLatin1(name)));
}

bool ScreenSavers::active() const
{
    return std::ranges::any_of(m_savers, [](const auto& saver) { return saver->active(); });
}

} // namespace vesko

#include "VeskoLinux/permissions/LinuxPermissions.h"

#include "VeskoLinux/audio/Microphone.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <thread>
#include <utility>

namespace vesko {

namespace {

const auto a11yService = QStringLiteral("org.a11y.Bus");
const auto a11yPath = QStringLiteral("/org/a11y/bus");
const auto a11yStatus = QStringLiteral("org.a11y.Status");
const auto properties = QStringLiteral("org.freedesktop.DBus.Properties");

} // namespace

LinuxPermissions::LinuxPermissions()
    : m_watcher(a11yService, QDBusConnection::sessionBus())
{
    m_home->owner = this;
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
        &LinuxPermissions::lookForAccessibility);
    QDBusConnection::sessionBus().connect(a11yService, a11yPath, properties,
        QStringLiteral("PropertiesChanged"), this, SLOT(lookForAccessibility()));
}

LinuxPermissions::~LinuxPermissions()
{
    const std::scoped_lock guard(m_home->mutex);
    m_home->owner = nullptr;
}

void LinuxPermissions::look()
{
    lookForAccessibility();
    if (!std::exchange(m_looking, true))
        m_tasks.spawn(lookForMicrophone());
}

Task<> LinuxPermissions::lookForMicrophone()
{
    const bool found = co_await ask(&microphoneExists);
    m_looking = false;
    if (std::exchange(m_microphone, found) != found && onChanged)
        onChanged();
}

Task<bool> LinuxPermissions::requestMicrophone()
{
    co_return co_await ask(&microphoneOpens);
}

Eventual<bool> LinuxPermissions::ask(bool (*question)())
{
    const Eventual<bool> answer;
    std::thread([home = m_home, question, answer] {
        const bool is = question();
        const std::scoped_lock guard(home->mutex);
        if (home->owner)
            QMetaObject::invokeMethod(
                home->owner, [is, answer] { answer.set(is); }, Qt::QueuedConnection);
    }).detach();
    return answer;
}

void LinuxPermissions::lookForAccessibility()
{
    auto question
        = QDBusMessage::createMethodCall(a11yService, a11yPath, properties, QStringLiteral("Get"));
    question << a11yStatus << QStringLiteral("IsEnabled");
    question.setAutoStartService(false); // to look is not to start it
    auto* const answer
        = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        const bool is = reply.isValid() && reply.value().variant().toBool();
        if (std::exchange(m_accessibility, is) != is && onChanged)
            onChanged();
        answer->deleteLater();
    });
}

Task<bool> LinuxPermissions::requestAccessibility()
{
    auto request
        = QDBusMessage::createMethodCall(a11yService, a11yPath, properties, QStringLiteral("Set"));
    request << a11yStatus << QStringLiteral("IsEnabled") << QVariant::fromValue(QDBusVariant(true));
    const Eventual<bool> done;
    auto* const answer
        = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(request), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [answer, done] {
        done.set(!answer->isError());
        answer->deleteLater();
    });
    // In the order in which they are sent, so the look sees what this has done.
    lookForAccessibility();
    co_return co_await done;
}

} // namespace vesko

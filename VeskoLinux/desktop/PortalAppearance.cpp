#include "VeskoLinux/desktop/PortalAppearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace vesko {

namespace {

const auto portal = QStringLiteral("org.freedesktop.portal.Desktop");
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto settings = QStringLiteral("org.freedesktop.portal.Settings");

const auto appearance = QStringLiteral("org.freedesktop.appearance");
const auto colorScheme = QStringLiteral("color-scheme"); // 0 no preference, 1 dark, 2 light
const auto contrast = QStringLiteral("contrast"); // 1 for more of it
const auto gnome = QStringLiteral("org.gnome.desktop.interface");
const auto enableAnimations = QStringLiteral("enable-animations");
const auto gnomeAccess = QStringLiteral("org.gnome.desktop.a11y.interface");
const auto gnomeContrast = QStringLiteral("high-contrast");
const auto kde = QStringLiteral("org.kde.kdeglobals.KDE");
const auto animationFactor = QStringLiteral("AnimationDurationFactor"); // 0 for none

} // namespace

PortalAppearance::PortalAppearance()
{
    qRegisterMetaType<QDBusVariant>(); // else Qt may not know it by name, and not find the slot
    QDBusConnection::sessionBus().connect(QString(), portalPath, settings,
        QStringLiteral("SettingChanged"), this,
        SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask(appearance, colorScheme);
    ask(appearance, contrast);
    ask(gnome, enableAnimations);
    ask(gnomeAccess, gnomeContrast);
    ask(kde, animationFactor);
}

void PortalAppearance::ask(const QString& group, const QString& key)
{
    auto question
        = QDBusMessage::createMethodCall(portal, portalPath, settings, QStringLiteral("Read"));
    question << group << key;
    auto* answer
        = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, group, key] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid())
            take(group, key, reply.value().variant());
        answer->deleteLater();
    });
}

void PortalAppearance::settingChanged(
    const QString& group, const QString& key, const QDBusVariant& value)
{
    take(group, key, value.variant());
}

void PortalAppearance::take(const QString& group, const QString& key, const QVariant& value)
{
    // An answer to Read wraps the value twice.
    if (value.userType() == qMetaTypeId<QDBusVariant>()) {
        take(group, key, value.value<QDBusVariant>().variant());
        return;
    }
    if (group == appearance && key == colorScheme) {
        const auto scheme = value.toUInt();
        m_dark = scheme == 1 ? std::optional(true)
            : scheme == 2    ? std::optional(false)
                             : std::nullopt;
    } else if (group == appearance && key == contrast) {
        m_highContrast = value.toUInt() == 1;
    } else if (group == gnomeAccess && key == gnomeContrast) {
        m_highContrast = value.toBool();
    } else if (group == gnome && key == enableAnimations) {
        m_reduceMotion = !value.toBool();
    } else if (group == kde && key == animationFactor) {
        m_reduceMotion = value.toDouble() == 0;
    } else {
        return;
    }
    if (onChanged)
        onChanged();
}

} // namespace vesko

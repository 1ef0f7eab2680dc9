#pragma once

#include "VeskoApp/platform/Appearance.h"

#include <QDBusVariant>
#include <QObject>

namespace vesko {

// The desktop's settings as its portal tells them (org.freedesktop.portal.Settings).
class PortalAppearance final : public QObject, public Appearance {
    Q_OBJECT

public:
    PortalAppearance();

    std::optional<bool> dark() const override { return m_dark; }
    bool reduceMotion() const override { return m_reduceMotion; }
    bool highContrast() const override { return m_highContrast; }

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask(const QString& group, const QString& key);
    void take(const QString& group, const QString& key, const QVariant& value);

    std::optional<bool> m_dark;
    bool m_reduceMotion = false;
    bool m_highContrast = false;
};

} // namespace vesko

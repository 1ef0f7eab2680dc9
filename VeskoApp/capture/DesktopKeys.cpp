#include "VeskoApp/capture/DesktopKeys.h"

#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

namespace vesko {

QString DesktopKeys::suggestion() const
{
    return m_desktop ? QString::fromStdString(m_desktop->suggestion()) : QString();
}

QString DesktopKeys::keys() const
{
    return m_desktop ? QString::fromStdString(m_desktop->keys()) : QString();
}

void DesktopKeys::add()
{
    m_refusal.clear();
    if (!m_desktop->add())
        m_refusal = translated(
            L10N_KEY("Vesko", "The desktop's settings did not take %1. Choose keys there."))
                        .arg(suggestion());
    Q_EMIT changed();
}

void DesktopKeys::remove()
{
    m_refusal.clear();
    m_desktop->remove();
    Q_EMIT changed();
}

} // namespace vesko

#pragma once

#include "VeskoApp/platform/SessionState.h"
#include "VeskoLinux/desktop/Logind.h"
#include "VeskoLinux/desktop/PortalSession.h"
#include "VeskoLinux/desktop/ScreenSavers.h"

#include <QObject>

namespace vesko {

// Puts together what the parts of a desktop tell of the session: logind, the portal, the screen
// saver, and the session manager that Qt speaks to where there is one. Needs the application
// object.
class DesktopSession final : public QObject, public SessionState {
    Q_OBJECT

public:
    DesktopSession();

    bool locked() const override { return m_logind.locked() || m_savers.active(); }

private:
    void end();

    Logind m_logind;
    PortalSession m_portal;
    ScreenSavers m_savers;
};

} // namespace vesko

#pragma once

#include "VeskoApp/account/IdentityProviders.h"
#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/async/Eventual.h"
#include "VeskoApp/platform/Browser.h"
#include "VeskoCore/account/GoogleAuthorization.h"

#include <optional>

namespace vesko {

// Signs in with Google in the user's own browser. The page leads back by an address of a scheme
// that the desktop knows to be this program's, and whoever is told of such an address passes it on
// here.
//
// No program learns that its page has been closed, so the user can cancel, and a sign-in that has
// not come back after ten minutes counts as cancelled.
class SystemIdentityProviders final : public IdentityProviders {
public:
    SystemIdentityProviders(Browser& browser, EventClock& clock, GoogleEndpoints google);

    Task<GoogleCode> googleAuthorizationCode(
        std::string clientID, std::string nonce, std::string verifier) override;
    void cancel() override;

    // An address was opened with this program. It ends the sign-in under way, for good or ill;
    // without one, and for another scheme, it is refused. So none counts twice.
    void handleRedirect(const std::string& address);

private:
    struct Web {
        std::string scheme;
        Eventual<std::optional<std::string>> redirect; // nothing: cancelled
    };
    void end(std::optional<std::string> redirect);

    Browser& m_browser;
    GoogleEndpoints m_google;
    std::optional<Web> m_web; // the page that the user is at
    Timer m_limit;
};

} // namespace vesko

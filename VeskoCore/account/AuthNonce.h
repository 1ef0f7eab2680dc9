#pragma once

#include <string>
#include <string_view>

namespace vesko {

// Values that nobody can guess, and what is derived from them, for the protocols of the identity
// providers.
struct AuthNonce {
    // 32 bytes from the system's secure generator as 43 characters of URL-safe base64. Serves as
    // nonce, as state and as PKCE verifier. Throws std::system_error if the system has none.
    static std::string make();
    // The S256 code challenge of RFC 7636, section 4.2: 43 characters.
    static std::string codeChallenge(std::string_view verifier);
};

} // namespace vesko

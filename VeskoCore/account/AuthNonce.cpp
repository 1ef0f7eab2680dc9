#include "VeskoCore/account/AuthNonce.h"

#include "VeskoCore/base/Digest.h"

#include <cerrno>
#include <system_error>
#include <unistd.h>

namespace vesko {

std::string AuthNonce::make()
{
    std::string bytes(32, '\0');
    if (getentropy(bytes.data(), bytes.size()) != 0)
        throw std::system_error(errno, std::generic_category(), "getentropy");
    return base64URL(bytes);
}

std::string AuthNonce::codeChallenge(std::string_view verifier)
{
    return base64URL(sha256(verifier));
}

} // namespace vesko

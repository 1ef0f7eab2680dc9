#pragma once

#include <string>
#include <string_view>

namespace vesko {

// The SHA-256 of the bytes (FIPS 180-4): 32 bytes.
std::string sha256(std::string_view bytes);
// Two lower-case digits a byte.
std::string hexadecimal(std::string_view bytes);
// Standard base64 with padding, in one line (RFC 4648, section 4).
std::string base64(std::string_view bytes);
// The URL-safe alphabet without padding (RFC 4648, section 5).
std::string base64URL(std::string_view bytes);

} // namespace vesko

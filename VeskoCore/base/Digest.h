#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

struct evp_md_ctx_st;

namespace vesko {

// The SHA-256 of the bytes (FIPS 180-4): 32 bytes.
std::string sha256(std::string_view bytes);
// The SHA-1 of bytes that come in parts: for files whose publisher gives no better sum.
class Sha1 {
public:
    Sha1();
    void add(std::string_view bytes);
    std::string finished(); // 20 bytes

private:
    struct Free {
        void operator()(evp_md_ctx_st* context) const;
    };
    std::unique_ptr<evp_md_ctx_st, Free> m_context;
};

// Two lower-case digits a byte.
std::string hexadecimal(std::string_view bytes);
// Standard base64 with padding, in one line (RFC 4648, section 4).
std::string base64(std::string_view bytes);
// About how long a JSON text around a base64 text of that length is, one of whose 64 letters is
// escaped there.
constexpr std::size_t roomForEscapes(std::size_t base64Length)
{
    return base64Length + base64Length / 50 + 4096;
}
// The URL-safe alphabet without padding (RFC 4648, section 5).
std::string base64URL(std::string_view bytes);

} // namespace vesko

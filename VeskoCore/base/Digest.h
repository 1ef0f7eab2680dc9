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
// Bytes that stand in a document as base64, which is made as it is written.
struct Base64 {
    std::string_view bytes;

    // About how long a JSON text around it is; one of the 64 letters is escaped there.
    std::size_t roomInDocument() const
    {
        const auto length = (bytes.size() + 2) / 3 * 4;
        return length + length / 50 + 4096;
    }
};
// The URL-safe alphabet without padding (RFC 4648, section 5).
std::string base64URL(std::string_view bytes);

} // namespace vesko

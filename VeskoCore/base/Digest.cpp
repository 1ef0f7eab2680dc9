#include "VeskoCore/base/Digest.h"

#include "VeskoCore/base/DynamicLibrary.h"

#include <openssl/evp.h>
#include <openssl/sha.h>

namespace vesko {

namespace {

// Loaded with the first digest.
struct LibCrypto {
    DynamicLibrary library{ "libcrypto.so.3" };
    decltype(&EVP_EncodeBlock) encodeBlock = library["EVP_EncodeBlock"];
    decltype(&SHA256) sha256 = library["SHA256"];
    decltype(&EVP_sha1) sha1 = library["EVP_sha1"];
    decltype(&EVP_MD_CTX_new) contextNew = library["EVP_MD_CTX_new"];
    decltype(&EVP_MD_CTX_free) contextFree = library["EVP_MD_CTX_free"];
    decltype(&EVP_DigestInit_ex) digestInit = library["EVP_DigestInit_ex"];
    decltype(&EVP_DigestUpdate) digestUpdate = library["EVP_DigestUpdate"];
    decltype(&EVP_DigestFinal_ex) digestFinal = library["EVP_DigestFinal_ex"];
};

const LibCrypto& libcrypto()
{
    static const LibCrypto library;
    return library;
}

const unsigned char* octets(std::string_view bytes)
{
    return reinterpret_cast<const unsigned char*>(bytes.data());
}

unsigned char* octets(std::string& bytes)
{
    return reinterpret_cast<unsigned char*>(bytes.data());
}

} // namespace

void Sha1::Free::operator()(evp_md_ctx_st* context) const
{
    libcrypto().contextFree(context);
}

Sha1::Sha1()
    : m_context(libcrypto().contextNew())
{
    libcrypto().digestInit(m_context.get(), libcrypto().sha1(), nullptr);
}

void Sha1::add(std::string_view bytes)
{
    libcrypto().digestUpdate(m_context.get(), bytes.data(), bytes.size());
}

std::string Sha1::finished()
{
    std::string digest(SHA_DIGEST_LENGTH, '\0');
    libcrypto().digestFinal(m_context.get(), octets(digest), nullptr);
    return digest;
}

std::string sha256(std::string_view bytes)
{
    std::string digest(SHA256_DIGEST_LENGTH, '\0');
    libcrypto().sha256(octets(bytes), bytes.size(), octets(digest));
    return digest;
}

std::string hexadecimal(std::string_view bytes)
{
    std::string digits;
    for (const char byte : bytes) {
        digits += "0123456789abcdef"[static_cast<unsigned char>(byte) >> 4];
        digits += "0123456789abcdef"[byte & 0x0F];
    }
    return digits;
}

std::string base64(std::string_view bytes)
{
    // Not filled with anything first: audio is long. The library of GCC 12 may tell a larger size
    // than was asked for.
    std::string text;
    text.resize_and_overwrite((bytes.size() + 2) / 3 * 4, [&](char* begin, std::size_t) {
        return libcrypto().encodeBlock(
            reinterpret_cast<unsigned char*>(begin), octets(bytes), static_cast<int>(bytes.size()));
    });
    return text;
}

std::string base64URL(std::string_view bytes)
{
    std::string text = base64(bytes);
    for (char& letter : text) {
        if (letter == '+')
            letter = '-';
        else if (letter == '/')
            letter = '_';
    }
    text.erase(text.find_last_not_of('=') + 1);
    return text;
}

} // namespace vesko

#include "VeskoCore/account/EmailAddress.h"

#include "VeskoCore/base/Text.h"

#include <algorithm>
#include <unicode/uchar.h>

namespace vesko {

namespace {

constexpr std::size_t addressLimit = 254; // characters
constexpr std::size_t localLimit = 64; // characters
constexpr std::size_t codeLength = 6;

bool hasWhiteSpace(std::string_view text)
{
    for (std::size_t at = 0; at < text.size();)
        if (u_isUWhiteSpace(static_cast<UChar32>(nextCodePoint(text, at))))
            return true;
    return false;
}

bool isDomain(std::string_view domain)
{
    return domain.contains('.') && !domain.starts_with('.') && !domain.ends_with('.')
        && !domain.contains("..");
}

} // namespace

std::optional<std::string> EmailAddress::normalized(std::string_view text)
{
    std::string address = lowercased(trimmed(text));
    if (hasMoreCharacters(address, addressLimit) || hasWhiteSpace(address)
        || std::ranges::count(address, '@') != 1)
        return std::nullopt;
    const auto at = address.find('@');
    const auto local = std::string_view(address).substr(0, at);
    if (local.empty() || hasMoreCharacters(local, localLimit)
        || !isDomain(std::string_view(address).substr(at + 1)))
        return std::nullopt;
    return address;
}

bool EmailAddress::isCode(std::string_view text)
{
    return text.size() == codeLength
        && std::ranges::all_of(text, [](char digit) { return digit >= '0' && digit <= '9'; });
}

} // namespace vesko

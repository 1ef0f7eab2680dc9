#include "VeskoCore/account/QueryItems.h"

#include <algorithm>
#include <charconv>

namespace vesko {

namespace {

bool isUnreserved(char letter)
{
    return (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z')
        || (letter >= '0' && letter <= '9')
        || std::string_view("-._~").find(letter) != std::string_view::npos;
}

std::string encoded(std::string_view text)
{
    std::string result;
    for (const char letter : text) {
        if (isUnreserved(letter)) {
            result += letter;
        } else {
            result += '%';
            result += "0123456789ABCDEF"[static_cast<unsigned char>(letter) >> 4];
            result += "0123456789ABCDEF"[letter & 0x0F];
        }
    }
    return result;
}

std::string decoded(std::string_view text)
{
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        unsigned char byte = 0;
        const auto pair = text.substr(at + 1, 2);
        if (text[at] == '%' && pair.size() == 2
            && std::from_chars(pair.begin(), pair.end(), byte, 16).ptr == pair.end()) {
            result += static_cast<char>(byte);
            at += 2;
        } else {
            result += text[at];
        }
    }
    return result;
}

} // namespace

std::string encodedQuery(const QueryItems& items)
{
    std::string query;
    for (const auto& [name, value] : items) {
        if (!query.empty())
            query += '&';
        query += encoded(name);
        if (value)
            query += '=' + encoded(*value);
    }
    return query;
}

std::optional<QueryItems> queryItems(std::string_view url)
{
    url = url.substr(0, url.find('#'));
    const auto mark = url.find('?');
    if (mark == std::string_view::npos)
        return std::nullopt;
    QueryItems items;
    for (auto rest = url.substr(mark + 1); !rest.empty();) {
        const auto item = rest.substr(0, rest.find('&'));
        rest.remove_prefix(std::min(item.size() + 1, rest.size()));
        const auto equals = item.find('=');
        items.emplace_back(decoded(item.substr(0, equals)),
            equals == std::string_view::npos ? std::nullopt
                                             : std::optional(decoded(item.substr(equals + 1))));
    }
    return items;
}

const QueryItems::value_type* firstItem(const QueryItems& items, std::string_view name)
{
    const auto found = std::ranges::find(items, name, &QueryItems::value_type::first);
    return found == items.end() ? nullptr : &*found;
}

} // namespace vesko

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vesko {

// The names and values of a URL's query, in their order and decoded. An item without "=" has no
// value.
using QueryItems = std::vector<std::pair<std::string, std::optional<std::string>>>;

// "a=1&b=2", with everything but the unreserved characters of RFC 3986 percent-encoded: right in a
// URL as well as in the body of a form.
std::string encodedQuery(const QueryItems& items);

// The items of a URL; nothing if it has no query. A "%" that begins no pair of digits stands for
// itself.
std::optional<QueryItems> queryItems(std::string_view url);

// The first item of that name; null if there is none.
const QueryItems::value_type* firstItem(const QueryItems& items, std::string_view name);

} // namespace vesko

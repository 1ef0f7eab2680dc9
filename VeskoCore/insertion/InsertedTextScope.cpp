#include "VeskoCore/insertion/InsertedTextScope.h"

#include "VeskoCore/base/Text.h"

namespace vesko {

namespace {

constexpr std::size_t longestField = 32'768;
constexpr std::size_t longestFragment = 8'000; // characters

// The byte offset behind so many UTF-16 code units; nothing amid a surrogate pair or behind the
// end.
std::optional<std::size_t> offsetOf(std::string_view text, std::int64_t units)
{
    std::size_t at = 0;
    while (units > 0 && at < text.size())
        units -= nextCodePoint(text, at) > 0xFFFF ? 2 : 1;
    return units == 0 ? std::optional(at) : std::nullopt;
}

} // namespace

std::optional<InsertedTextScope> InsertedTextScope::from(
    std::string_view field, TextRange selection, std::string_view inserted)
{
    if (utf16Length(field) > longestField || inserted.empty()
        || hasMoreCharacters(inserted, longestFragment))
        return std::nullopt;
    const auto begin = offsetOf(field, selection.location);
    if (!begin)
        return std::nullopt;
    const auto length = offsetOf(field.substr(*begin), selection.length);
    if (!length)
        return std::nullopt;
    return InsertedTextScope{ .original = std::string(inserted),
        .prefix = std::string(field.substr(0, *begin)),
        .suffix = std::string(field.substr(*begin + *length)) };
}

std::optional<std::string> InsertedTextScope::editedFragment(std::string_view value) const
{
    if (!value.starts_with(prefix) || !value.ends_with(suffix)
        || value.size() < prefix.size() + suffix.size() || hasMoreCharacters(value, longestField))
        return std::nullopt;
    const auto fragment = value.substr(prefix.size(), value.size() - prefix.size() - suffix.size());
    if (hasMoreCharacters(fragment, longestFragment))
        return std::nullopt;
    return std::string(fragment);
}

} // namespace vesko

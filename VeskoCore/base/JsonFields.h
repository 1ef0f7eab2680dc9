#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <tuple>
#include <type_traits>

namespace vesko {

enum class JsonKey : std::uint8_t {
    required,
    mayBeMissing, // on reading, and then the member keeps its default; it is always written
};

// A key of a record's JSON form and the member that it stands for. A member that is a
// std::optional is left out of the JSON when it has no value, and never null.
template <class Record, class Value>
struct JsonField {
    std::string_view key;
    Value Record::* member;
    JsonKey presence = JsonKey::required;
};

struct NoJsonForm { };

// The JSON form of a record, specialised beside it: a tuple of JsonField in the order of the keys.
// The writer and the reader know nothing else about the record.
template <class Record>
inline constexpr NoJsonForm jsonFields{};

// The raw texts of an enumeration, specialised beside it: an array in the order of the values,
// which count from 0.
template <class Enumeration>
inline constexpr NoJsonForm jsonNames{};

// The keys of the alternatives of a std::variant, or of a class derived from one, specialised
// beside it: an array in the order of the alternatives. The JSON form is an object with the key of
// the alternative at hand, under it an object with the alternative's own form as "_0".
template <class Variant>
inline constexpr NoJsonForm jsonCases{};

inline constexpr std::string_view jsonPayloadKey = "_0";

template <class T>
concept JsonRecord = !std::is_same_v<std::remove_cv_t<decltype(jsonFields<T>)>, NoJsonForm>;

template <class T>
concept JsonEnumeration
    = std::is_enum_v<T> && !std::is_same_v<std::remove_cv_t<decltype(jsonNames<T>)>, NoJsonForm>;

template <class T>
concept JsonVariant = !std::is_same_v<std::remove_cv_t<decltype(jsonCases<T>)>, NoJsonForm>;

// Whether the keys stand in the order in which they have to be written, each of them once.
template <JsonRecord Record>
consteval bool jsonKeysAreSorted()
{
    return std::apply(
        [](const auto&... field) {
            std::string_view last;
            return ((last < field.key && (last = field.key, true)) && ...);
        },
        jsonFields<Record>);
}

} // namespace vesko

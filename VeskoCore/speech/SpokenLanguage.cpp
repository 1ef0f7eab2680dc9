#include "VeskoCore/speech/SpokenLanguage.h"

#include "VeskoCore/base/Text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/uloc.h>
#include <unicode/unistr.h>
#include <utility>

namespace vesko::SpokenLanguage {

namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 14> regionDefaults{ {
    { "ru", "ru-RU" },
    { "en", "en-US" },
    { "es", "es-ES" },
    { "de", "de-DE" },
    { "fr", "fr-FR" },
    { "pt", "pt-BR" },
    { "pl", "pl-PL" },
    { "uk", "uk-UA" },
    { "it", "it-IT" },
    { "nl", "nl-NL" },
    { "tr", "tr-TR" },
    { "ja", "ja-JP" },
    { "zh", "zh-CN" },
    { "ko", "ko-KR" },
} };

std::string utf8(const icu::UnicodeString& text)
{
    std::string bytes;
    text.toUTF8String(bytes);
    return bytes;
}

std::string lowerCased(std::string_view text)
{
    return utf8(icu::UnicodeString::fromUTF8(text).toLower(icu::Locale::getRoot()));
}

using NameFunction = decltype(&uloc_getDisplayName);

std::optional<std::string> nameIn(
    const std::string& interface, NameFunction function, const char* locale)
{
    UErrorCode status = U_ZERO_ERROR;
    std::array<char16_t, 256> name;
    const std::int32_t length
        = function(locale, interface.c_str(), name.data(), name.size(), &status);
    // The warning says that there is no name and that the code stands in for it.
    if (status == U_USING_DEFAULT_WARNING || U_FAILURE(status) || length <= 0)
        return std::nullopt;
    return utf8(icu::UnicodeString(name.data(), length));
}

// The name of a language, or of a whole tag. None for what is no well-formed tag.
std::optional<std::string> nameOf(const std::string& tag, bool region, const std::string& interface)
{
    UErrorCode status = U_ZERO_ERROR;
    std::array<char, ULOC_FULLNAME_CAPACITY> locale;
    std::int32_t taken = 0;
    uloc_forLanguageTag(tag.c_str(), locale.data(), locale.size(), &taken, &status);
    // An empty locale is the unknown language, which has a name that helps nobody.
    if (status != U_ZERO_ERROR || static_cast<std::size_t>(taken) != tag.size() || !locale[0])
        return std::nullopt;
    const auto language = nameIn(interface, &uloc_getDisplayLanguage, locale.data());
    return language && region ? nameIn(interface, &uloc_getDisplayName, locale.data()) : language;
}

} // namespace

std::vector<std::string> offered()
{
    std::vector<std::string> tags;
    for (const auto& [code, tag] : regionDefaults)
        tags.emplace_back(tag);
    return tags;
}

std::string code(std::string_view tag)
{
    const std::size_t first = std::min(tag.find_first_not_of('-'), tag.size());
    const std::string_view piece = tag.substr(first, tag.find('-', first) - first);
    return lowerCased(piece.empty() ? tag : piece);
}

std::string tag(std::string_view code)
{
    std::string lower = lowerCased(code);
    const auto* const row
        = std::ranges::find(regionDefaults, lower, &decltype(regionDefaults)::value_type::first);
    return row == regionDefaults.end() ? lower : std::string(row->second);
}

std::string name(const std::string& tag)
{
    return nameOf(code(tag), false, "en_US").value_or(tag);
}

std::string displayName(
    const std::string& tag, bool region, const std::optional<std::string>& interface)
{
    const std::string shown
        = nameOf(region ? tag : code(tag), region, interface.value_or("en")).value_or(tag);
    const std::string_view first = firstCharacters(shown, 1);
    return utf8(icu::UnicodeString::fromUTF8(first).toUpper(icu::Locale::getRoot()))
        + shown.substr(first.size());
}

std::size_t letters(std::string_view text)
{
    const auto units = icu::UnicodeString::fromUTF8(text);
    std::size_t count = 0;
    for (std::int32_t at = 0; at < units.length(); at = units.moveIndex32(at, 1)) {
        if (U_GET_GC_MASK(units.char32At(at)) & (U_GC_L_MASK | U_GC_M_MASK))
            ++count;
    }
    return count;
}

std::optional<Question> question(const std::optional<std::string>& detected, double confidence,
    std::size_t letters, std::string_view current, bool answered,
    const std::vector<std::string>& preferred)
{
    if (current != "auto" || answered)
        return std::nullopt;
    Question question;
    std::vector<std::string> candidates;
    if (detected && confidence >= minimumConfidence && letters >= minimumLetters) {
        question.detected = tag(code(*detected));
        candidates.push_back(*question.detected);
    }
    for (const auto& language : preferred)
        candidates.push_back(tag(code(language)));
    for (const auto& candidate : candidates) {
        const bool known = std::ranges::any_of(question.options,
            [&](const std::string& option) { return code(option) == code(candidate); });
        if (!known && question.options.size() < maximumOptions)
            question.options.push_back(candidate);
    }
    if (question.options.empty())
        return std::nullopt;
    return question;
}

bool needsRedo(std::string_view chosen, const std::optional<std::string>& detected)
{
    return detected && code(chosen) != code(*detected);
}

} // namespace vesko::SpokenLanguage

#include "VeskoLinux/speech/Cld2LanguageRecognizer.h"

#include "VeskoCore/base/DynamicLibrary.h"

// CLD2's header uses it and doesn't say so.
#include <cstdio>

#include <algorithm>
#include <array>
#include <cld2/public/compact_lang_det.h>
#include <cld2/public/encodings.h>
#include <string_view>

namespace vesko {

namespace {

constexpr std::size_t lookedAt = 8192; // bytes

// Its tables are a quarter of a megabyte, which only a dictation needs: loaded with its first use.
struct Cld2 {
    DynamicLibrary library{ "libcld2.so.0" };
    // As a linker knows them.
    decltype(CLD2::LanguageCode)* languageCode = library["_ZN4CLD212LanguageCodeENS_8LanguageE"];
    decltype(CLD2::ExtDetectLanguageSummaryCheckUTF8)* detect
        = library["_ZN4CLD233ExtDetectLanguageSummaryCheckUTF8EPKcibPKNS_8CLDHintsEiPNS_8LanguageEP"
                  "iPdPSt6vectorINS_11ResultChunkESaISA_EES7_PbS7_"];
};

const Cld2& cld2()
{
    static const Cld2 loaded;
    return loaded;
}

struct Detection {
    CLD2::Language language = CLD2::UNKNOWN_LANGUAGE; // also of a text that is not UTF-8
    int percent = 0;
    bool reliable = false;
};

Detection detected(std::string_view text)
{
    const CLD2::CLDHints none{ nullptr, nullptr, CLD2::UNKNOWN_ENCODING, CLD2::UNKNOWN_LANGUAGE };
    std::array<CLD2::Language, 3> languages;
    std::array<int, 3> percents;
    std::array<double, 3> scores;
    int letters = 0;
    bool reliable = false;
    int valid = 0;
    cld2().detect(text.data(), static_cast<int>(text.size()), true, &none, 0, languages.data(),
        percents.data(), scores.data(), nullptr, &letters, &reliable, &valid);
    if (static_cast<std::size_t>(valid) < text.size())
        return {};
    return { .language = languages[0], .percent = percents[0], .reliable = reliable };
}

bool isInsideCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// The end of the word at a position, or of the character where words have no end.
std::size_t cutBehind(std::string_view text, std::size_t at)
{
    constexpr std::size_t longWord = 24;
    const auto space = text.substr(0, at + longWord).find_first_of(" \n", at);
    if (space != std::string_view::npos)
        return space;
    while (at < text.size() && isInsideCharacter(text[at]))
        ++at;
    return at;
}

// How many of so many equal parts are for the language, less those against it.
int votes(std::string_view text, std::size_t parts, CLD2::Language language)
{
    int sum = 0;
    std::size_t begin = 0;
    for (std::size_t part = 1; part <= parts; ++part) {
        const std::size_t end = cutBehind(text, text.size() * part / parts);
        const auto found = detected(text.substr(begin, end - begin));
        if (found.reliable && found.language != CLD2::UNKNOWN_LANGUAGE)
            sum += found.language == language ? 1 : -1;
        begin = end;
    }
    return sum;
}

// Empty for what is no language: unknown, or a mere script.
std::string tagOf(CLD2::Language language)
{
    const std::string code = cld2().languageCode(language);
    if (code == "iw")
        return "he";
    if (code == "jw")
        return "jv";
    return code == "un" || code.starts_with("xx") ? "" : code;
}

} // namespace

std::optional<TextLanguageRecognizer::Finding> Cld2LanguageRecognizer::recognize(
    const std::string& text) const
{
    std::string_view start = text;
    if (start.size() > lookedAt)
        start = start.substr(0, cutBehind(start, lookedAt));
    const auto whole = detected(start);
    const auto language = tagOf(whole.language);
    if (language.empty())
        return std::nullopt;
    const double agreement
        = std::max(0, votes(start, 2, whole.language) + votes(start, 3, whole.language)) / 5.0;
    return Finding{ .language = language,
        .confidence = whole.reliable ? std::min(whole.percent / 100.0, agreement) : 0 };
}

} // namespace vesko

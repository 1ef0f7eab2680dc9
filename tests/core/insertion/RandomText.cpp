#include "tests/core/insertion/RandomText.h"

#include "tests/core/insertion/IcuText.h"

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

namespace vesko {

namespace {

const std::vector<std::string_view> everyPiece{ "a", "b", "A", "e", "x", "f", "i", "I", "s", "S",
    "k", "K", "j", "n", "t", "h", "cat", "New", "york",
    // Letters whose other case is longer, shorter or somebody else's.
    "ß", "ẞ", "ss", "SS", "İ", "ı", "i\u0307", "ﬁ", "ﬀ", "ﬃ", "ﬅ", "ﬆ", "Σ", "σ", "ς", "\u212A",
    "\u212B", "Å", "å", "A\u030A", "ŉ", "ʼ", "ǰ", "j\u030C", "ẖ", "ẚ", "ʾ", "ſ", "µ", "μ", "ΐ", "ᾳ",
    "ᾼ", "α", "ι", "\u0345", "ῼ", "և", "ե", "ւ", "Ǆ", "ǅ", "ǆ", "Ω", "\u2126", "ω", "ϴ", "θ", "Ꭰ",
    "ꭰ", "ა", "Ა", "𐐀", "𐐨", "Ж", "ж", "й", "и\u0306",
    // Scripts without case, marks and clusters.
    "漢", "字", "か", "が", "か\u3099", "한", "\u1112\u1161\u11AB", "नि", "क्ष", "ก", "ำ", "א", "שׁ",
    "ع", "لا", "é", "e\u0301", "\u0301", "\u0308", "\u0323", "\u20E3", "\u0E33", "\u200D", "\u200B",
    "\uFE0F", "😀", "👩\u200D👩\u200D👧", "👍🏽", "🇩🇪", "🇩", "❤\uFE0F",
    // Numbers and what stands beside words.
    "1", "9", "²", "Ⅷ", "ⅷ", "Ⓐ", "ⓐ", "٣", "𝟙", "_", "‿", " ", " ", " ", "\t", "\n", "\r\n",
    "\u00A0", "\u2028", "\u3000", ".", ",", "-", "'", "’", "+", "*", "?", "(", ")", "[", "]", "{",
    "}", "|", "\\", "^", "$", "#", "&", "/", ":", "@", "\"", "\\E", "\\p{L}" };

} // namespace

RandomText::RandomText(unsigned seed)
    : m_random(seed)
{
    chooseAlphabet();
}

std::size_t RandomText::number(std::size_t end)
{
    return std::uniform_int_distribution<std::size_t>(0, end - 1)(m_random);
}

void RandomText::chooseAlphabet()
{
    m_alphabet.clear();
    for (auto left = 3 + number(9); left > 0; --left)
        m_alphabet.push_back(oneOf(everyPiece));
}

std::string RandomText::pieces(std::size_t fewest, std::size_t most)
{
    std::string text;
    for (auto left = fewest + number(most - fewest + 1); left > 0; --left)
        text += oneOf(m_alphabet);
    return text;
}

std::string RandomText::varied(std::string_view text)
{
    UErrorCode status = U_ZERO_ERROR;
    auto whole = units(text);
    switch (number(7)) {
    case 0:
        return utf8(whole.toLower(icu::Locale::getRoot()));
    case 1:
        return utf8(whole.toUpper(icu::Locale::getRoot()));
    case 2:
        return utf8(whole.foldCase());
    case 3:
        return utf8(icu::Normalizer2::getNFDInstance(status)->normalize(whole, status));
    case 4:
        return utf8(icu::Normalizer2::getNFCInstance(status)->normalize(whole, status));
    case 5: {
        icu::UnicodeString mixed;
        for (std::int32_t at = 0; at < whole.length(); at = whole.moveIndex32(at, 1)) {
            icu::UnicodeString one(whole.char32At(at));
            mixed += oneIn(2) ? one.toUpper(icu::Locale::getRoot()) : one;
        }
        return utf8(mixed);
    }
    default:
        return std::string(text);
    }
}

} // namespace vesko

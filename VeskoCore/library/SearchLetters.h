#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace vesko {

// What a search compares. Each code point stands for no letter, one, or several: its primary
// weights in the root collation of Unicode, as ICU has it. So case, accents, width and the kind of
// kana don't count, "ß" is "ss" and "ﬁ" is "fi"; accents of their own, joiners and control
// characters are no letters, while a blank, a mark and an emoji are. Letters that merely look like
// one with an accent, such as the Cyrillic "й", are letters of their own.
using SearchLetter = std::uint32_t;

class SearchLetters {
public:
    // The letters of 256 code points, in the order of the code points.
    class Page {
    public:
        std::span<const SearchLetter> letters(char32_t codePoint) const
        {
            const auto at = codePoint % size;
            return std::span(m_letters).subspan(m_begins[at], m_begins[at + 1] - m_begins[at]);
        }
        // Whether it may change, or change places with, what stands before it in the text when
        // that is composed (Unicode's NFC).
        bool joins(char32_t codePoint) const { return (m_traits[codePoint % size] & joining) != 0; }
        // Whether it may become one code point with what stands before it.
        bool composes(char32_t codePoint) const
        {
            return (m_traits[codePoint % size] & composing) != 0;
        }

    private:
        friend class SearchLetters;
        static constexpr std::size_t size = 256;
        static constexpr std::uint8_t joining = 1;
        static constexpr std::uint8_t composing = 2;

        explicit Page(char32_t first);

        std::array<std::uint16_t, size + 1> m_begins{};
        std::array<std::uint8_t, size> m_traits{};
        std::vector<SearchLetter> m_letters;
    };

    // The page of a code point up to 0x10FFFF. Made when it is first asked for, and then kept; any
    // thread may ask.
    static const Page& page(char32_t codePoint);
};

} // namespace vesko

#pragma once

#include "VeskoCore/library/ByteFilter.h"
#include "VeskoCore/library/SearchLetters.h"

#include <string>
#include <string_view>

namespace vesko {

// Looks for a query in texts, ignoring case and diacritics: a text contains the query if the
// query's letters (see SearchLetters) stand in it one after the other. Canonically equivalent
// texts are alike. The languages with a dotless i have it told from the other; apart from that
// every language finds the same. A query without any letter is contained in every text.
// It looks at the texts as they are and remembers none, so it can't be behind an edit and takes no
// memory for them; texts of gigabytes a second where they are ASCII. Texts and query are UTF-8,
// each below 2 GB.
class TextSearch {
public:
    // The language as an ISO 639 code.
    TextSearch(std::string_view query, std::string_view language);

    bool foundIn(std::string_view text);

private:
    // The characters below 0x80 that are this letter.
    std::string asciiForms(SearchLetter letter) const;
    // The next position where the text may begin to show the query, or the end.
    std::size_t nextCandidate(std::string_view text, std::size_t from) const;
    bool isCandidate(std::string_view text, std::size_t at) const;
    // Which bytes the characters beyond ASCII that it may begin with begin with.
    std::array<bool, 0x100> leads() const;
    void learnTwoByteCharacters();
    // Whether the query may begin with a code point beyond ASCII, or with what it is composed to.
    bool mayBeginWith(char32_t codePoint) const;
    // Whether the ASCII characters from here on are surely not the query from this letter on.
    bool isOther(std::string_view text, std::size_t at, std::size_t letter) const;
    // Whether the query begins with one of m_letters, behind which the text goes on at `next`.
    bool beginsAmongLetters(std::string_view text, std::size_t next);

    // Appends the letters of a code point, with whatever is to be composed with it, to m_letters.
    // The position behind it.
    std::size_t appendUnit(std::string_view text, std::size_t from);
    void appendComposed(std::string_view unit);
    void append(char32_t codePoint);

    std::array<SearchLetter, 0x80> m_ascii{}; // 0 for what is no letter
    std::vector<SearchLetter> m_query;
    // Whether the query begins with a character of two bytes, of which Latin texts are full.
    enum class Beginning : std::uint8_t {
        impossible,
        possible,
        letter, // the character is the query's first letter and no more
    };
    std::array<Beginning, 0x800> m_twoBytes{};
    ByteFilter m_filter; // marks every byte where the query may begin
    std::vector<SearchLetter> m_letters; // those of the text from a candidate on
};

} // namespace vesko

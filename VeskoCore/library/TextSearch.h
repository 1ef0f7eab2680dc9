#pragma once

#include "VeskoCore/library/ByteFilter.h"
#include "VeskoCore/library/SearchLetters.h"

#include <optional>
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

    bool foundIn(std::string_view text) { return find(text, 0).has_value(); }

    // Bytes of a text, from the first to behind the last.
    struct Match {
        std::size_t begin;
        std::size_t end;

        bool operator==(const Match&) const = default;
    };
    // The first match that begins at this position or behind it. None for a query without letters.
    std::optional<Match> next(std::string_view text, std::size_t from);

private:
    // Where a match stands: the characters from `begin` on, without the first `skipped` letters.
    struct Place {
        std::size_t begin;
        std::size_t skipped;
    };
    std::optional<Place> find(std::string_view text, std::size_t from);
    // The characters below 0x80 that are this letter.
    std::string asciiForms(SearchLetter letter) const;
    // The first bytes of the characters beyond ASCII that the query may begin with.
    std::array<bool, 0x100> leads(std::string_view query) const;

    // The next position where the text may begin to show the query, or the end.
    std::size_t nextCandidate(std::string_view text, std::size_t from) const;
    bool isCandidate(std::string_view text, std::size_t at) const;
    // Whether the query may begin with a code point beyond ASCII, or with what it is composed to.
    bool mayBeginWith(char32_t codePoint) const;
    // Whether the text from here on is surely not the query, as far as can be told at a glance.
    bool isOther(std::string_view text, std::size_t at) const;
    // With which of m_letters, behind which the text goes on at `next`, the query begins.
    std::optional<std::size_t> beginsAmongLetters(std::string_view text, std::size_t next);

    // Appends the letters of a code point, with whatever is to be composed with it, to m_letters.
    // The position behind it.
    std::size_t appendUnit(std::string_view text, std::size_t from);
    void appendComposed(std::string_view unit);
    void append(char32_t codePoint);

    // The letters of the characters of up to two bytes, of which Latin texts are made. 0 for those
    // that are none or several, or may be composed with what stands before them.
    std::array<SearchLetter, 0x800> m_short{};
    std::vector<SearchLetter> m_query;
    ByteFilter m_filter; // marks every byte where the query may begin
    std::vector<SearchLetter> m_letters; // those of the text from a candidate on
};

} // namespace vesko

#pragma once

#include "VeskoCore/base/SharedArray.h"
#include "VeskoCore/library/DictionaryEntry.h"
#include "VeskoCore/library/DictionarySuggestion.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unicode/regex.h>
#include <unicode/unistr.h>
#include <vector>

namespace vesko {

// Applying a dictionary in its plainest form: one regular expression of all terms, and a table of
// what replaces them. What the real function does quickly has to end as it does here.
class LiteralDictionary {
public:
    explicit LiteralDictionary(const SharedArray<DictionaryEntry>& dictionary);

    std::string apply(std::string_view text);
    // Of the last text.
    int replacedMatches() const { return m_replaced; }
    int matchesLeftAlone() const { return m_leftAlone; }

private:
    std::map<icu::UnicodeString, icu::UnicodeString> m_replacements; // by the lower-cased term
    std::unique_ptr<icu::RegexMatcher> m_matcher; // none for no terms
    int m_replaced = 0;
    int m_leftAlone = 0;
};

// Finding corrections in its plainest form: regular expressions and the whole table of distances.
std::vector<DictionarySuggestion> literalCorrections(
    std::string_view original, std::string_view edited);

} // namespace vesko

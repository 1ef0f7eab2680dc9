#include "tests/core/library/LiteralSearch.h"

#include <algorithm>
#include <map>
#include <memory>
#include <unicode/coleitr.h>
#include <unicode/normalizer2.h>
#include <unicode/tblcoll.h>

namespace vesko {

bool LiteralSearch::isFound(const std::string& query, const std::string& text)
{
    const auto wanted = letters(query);
    const auto all = letters(text);
    return wanted.empty() || !std::ranges::search(all, wanted).empty();
}

std::vector<std::uint32_t> LiteralSearch::letters(const std::string& text)
{
    static UErrorCode status = U_ZERO_ERROR;
    static const std::unique_ptr<icu::Collator> root(
        icu::Collator::createInstance(icu::Locale::getRoot(), status));
    static std::map<UChar32, std::vector<std::uint32_t>> known;
    const auto composed = icu::Normalizer2::getNFCInstance(status)->normalize(
        icu::UnicodeString::fromUTF8(text), status);
    std::vector<std::uint32_t> letters;
    for (std::int32_t at = 0; at < composed.length();) {
        const auto codePoint = composed.char32At(at);
        at += U16_LENGTH(codePoint);
        auto [place, isNew] = known.try_emplace(codePoint);
        if (isNew) {
            const std::unique_ptr<icu::CollationElementIterator> elements(
                dynamic_cast<icu::RuleBasedCollator&>(*root).createCollationElementIterator(
                    icu::UnicodeString(codePoint)));
            for (auto element = elements->next(status);
                element != icu::CollationElementIterator::NULLORDER;
                element = elements->next(status)) {
                const auto primary = static_cast<std::uint32_t>(element) >> 16;
                if (primary == 0)
                    continue;
                if ((element & 0xC0) == 0xC0)
                    place->second.back() |= primary;
                else
                    place->second.push_back(primary << 16);
            }
        }
        letters.insert(letters.end(), place->second.begin(), place->second.end());
    }
    return letters;
}

} // namespace vesko

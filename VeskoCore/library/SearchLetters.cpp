#include "VeskoCore/library/SearchLetters.h"

#include <atomic>
#include <memory>
#include <stdexcept>
#include <unicode/coleitr.h>
#include <unicode/normalizer2.h>
#include <unicode/tblcoll.h>
#include <unicode/uchar.h>

namespace vesko {

namespace {

void require(UErrorCode status)
{
    if (U_FAILURE(status))
        throw std::runtime_error("ICU has no collation");
}

// The root collation is made of rules, like every other that ICU has.
const icu::RuleBasedCollator& rootCollation()
{
    static const std::unique_ptr<const icu::RuleBasedCollator> collation([] {
        UErrorCode status = U_ZERO_ERROR;
        auto* root = icu::Collator::createInstance(icu::Locale::getRoot(), status);
        require(status);
        return dynamic_cast<icu::RuleBasedCollator*>(root);
    }());
    return *collation;
}

// ICU hands out a weight of more than 16 bits in two elements, the second of which is marked.
bool isContinuation(std::int32_t element)
{
    constexpr std::int32_t mark = 0xC0;
    return (element & mark) == mark;
}

void appendLetters(std::vector<SearchLetter>& letters, icu::CollationElementIterator& elements,
    const icu::UnicodeString& text)
{
    using icu::CollationElementIterator;
    UErrorCode status = U_ZERO_ERROR;
    elements.setText(text, status);
    for (auto element = elements.next(status); element != CollationElementIterator::NULLORDER;
        element = elements.next(status)) {
        const auto weight = static_cast<SearchLetter>(
            static_cast<std::uint16_t>(CollationElementIterator::primaryOrder(element)));
        if (weight == 0)
            continue;
        if (isContinuation(element))
            letters.back() |= weight;
        else
            letters.push_back(weight << 16);
    }
    require(status);
}

} // namespace

SearchLetters::Page::Page(char32_t first)
{
    UErrorCode status = U_ZERO_ERROR;
    const auto* composition = icu::Normalizer2::getNFCInstance(status);
    require(status);
    const std::unique_ptr<icu::CollationElementIterator> elements(
        rootCollation().createCollationElementIterator(icu::UnicodeString()));
    for (std::size_t at = 0; at < size; ++at) {
        const auto codePoint = static_cast<UChar32>(first + at);
        // Each by itself, so that no word depends on which letters a language counts as one.
        const auto composed = composition->normalize(icu::UnicodeString(codePoint), status);
        require(status);
        for (std::int32_t unit = 0; unit < composed.length();) {
            const auto part = composed.char32At(unit);
            appendLetters(m_letters, *elements, icu::UnicodeString(part));
            unit += U16_LENGTH(part);
        }
        m_begins[at + 1] = static_cast<std::uint16_t>(m_letters.size());
        if (composition->hasBoundaryBefore(codePoint))
            continue;
        m_traits[at] = joining;
        if (u_getIntPropertyValue(codePoint, UCHAR_NFC_QUICK_CHECK) != UNORM_YES)
            m_traits[at] |= composing;
    }
}

const SearchLetters::Page& SearchLetters::page(char32_t codePoint)
{
    static std::array<std::atomic<const Page*>, 0x110000 / Page::size> pages{};
    auto& place = pages[codePoint / Page::size];
    if (const auto* present = place.load(std::memory_order_acquire))
        return *present;
    std::unique_ptr<const Page> made(new Page(codePoint - codePoint % Page::size));
    const Page* present = nullptr;
    if (place.compare_exchange_strong(present, made.get(), std::memory_order_acq_rel))
        present = made.release();
    return *present;
}

} // namespace vesko

#include "VeskoCore/library/ByteFilter.h"

#include <algorithm>
#include <vector>

namespace vesko {

namespace {

constexpr std::uint8_t caseBit = 0x20;
constexpr std::uint8_t anyBit = 0xFF;

struct Bytes {
    std::uint8_t first, last;
};

std::vector<Bytes> rangesOf(const std::array<bool, 0x100>& isIn)
{
    std::vector<Bytes> ranges;
    for (std::size_t value = 0; value < isIn.size(); ++value) {
        const auto byte = static_cast<std::uint8_t>(value);
        if (!isIn[value])
            continue;
        if (!ranges.empty() && ranges.back().last + 1 == byte)
            ranges.back().last = byte;
        else
            ranges.push_back({ byte, byte });
    }
    return ranges;
}

// Makes one of the nearest neighbours.
void joinNearest(std::vector<Bytes>& ranges)
{
    const auto gap = [&](std::size_t at) { return ranges[at].first - ranges[at - 1].last; };
    std::size_t nearest = 1;
    for (std::size_t at = 2; at < ranges.size(); ++at)
        if (gap(at) < gap(nearest))
            nearest = at;
    ranges[nearest - 1].last = ranges[nearest].last;
    ranges.erase(ranges.begin() + static_cast<std::ptrdiff_t>(nearest));
}

} // namespace

ByteFilter::Form ByteFilter::everywhere(std::uint8_t mask, std::uint8_t value)
{
    Form form;
    form.mask += mask;
    form.value += value;
    return form;
}

ByteFilter::Form ByteFilter::formOf(const Set& set)
{
    if (!set || set->size() > 2)
        return everywhere(anyBit, anyBit);
    if (set->empty())
        return everywhere(0, 0); // a zero byte, which texts don't have
    const auto first = static_cast<std::uint8_t>(set->front());
    const auto last = static_cast<std::uint8_t>(set->back());
    if (first == last)
        return everywhere(0, first);
    if (last == (first | caseBit))
        return everywhere(caseBit, last);
    return everywhere(anyBit, anyBit);
}

ByteFilter::ByteFilter(const std::array<Set, mostSets>& sets, const std::array<bool, 0x100>& leads)
{
    std::transform(sets.begin(), sets.begin() + m_forms.size(), m_forms.begin(), formOf);
    m_all = formOf(std::nullopt);
    for (std::size_t at = 0; at < sets.size() && sets[at]; ++at) {
        const auto form = formOf(sets[at]);
        m_all.mask[at] = form.mask[at];
        m_all.value[at] = form.value[at];
        m_within[at] = m_within[at + 1] = anyBit;
    }
    auto ranges = rangesOf(leads);
    while (ranges.size() > m_leads.size())
        joinNearest(ranges);
    for (std::size_t at = 0; at < m_leads.size() && !ranges.empty(); ++at) {
        const auto& range = ranges[std::min(at, ranges.size() - 1)];
        m_leads[at].first += range.first;
        m_leads[at].extent += static_cast<std::uint8_t>(range.last - range.first);
    }
}

} // namespace vesko

#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <optional>
#include <string>

namespace vesko {

// Marks the bytes of a UTF-8 text that may be the first of what is looked for, sixteen at a time:
// an ASCII character of the first set before others of the second and the third, and the first
// bytes of some longer characters. It may mark too many, never too few. Of a marked one it tells by
// a look at the sixteen bytes from there on whether they differ from all of the sets.
class ByteFilter {
public:
    // Compilers turn this into the machine's vectors.
    using Block = std::uint8_t __attribute__((vector_size(16)));

    ByteFilter() = default;
    // Behind an ASCII character may also stand what is not ASCII or may be no letter at all; from
    // there on all is possible, as it is for a set of nothing. The leads are by byte.
    using Set = std::optional<std::string>;
    static constexpr std::size_t mostSets = sizeof(Block) - 1;
    ByteFilter(const std::array<Set, mostSets>& sets, const std::array<bool, 0x100>& leads);

    // The second and third blocks are the text one and two bytes on. Sets every bit of a byte, or
    // none.
    Block marks(Block first, Block second, Block third) const
    {
        const Block ascii = m_forms[0].holds(first)
            & ((m_forms[1].holds(second) & (m_forms[2].holds(third) | ~isPlain(third)))
                | ~isPlain(second));
        return ascii | m_leads[0].holds(first) | m_leads[1].holds(first) | m_leads[2].holds(first)
            | m_leads[3].holds(first);
    }

    // Whether what begins with these bytes is surely not what is looked for: they and the next are
    // plain characters, and not all of them are of their sets.
    bool excludes(Block bytes) const
    {
        return isAny(~m_all.holds(bytes)) && !isAny(~isPlain(bytes) & m_within);
    }

private:
    // The bytes for which `byte | mask` is `value`.
    struct Form {
        Block mask{};
        Block value{};

        Block holds(Block bytes) const { return (bytes | mask) == value; }
    };
    // The bytes from one on.
    struct Range {
        Block first{};
        Block extent{}; // to the last

        Block holds(Block bytes) const { return bytes - first <= extent; }
    };

    static Form formOf(const Set& set);
    static Block isPlain(Block bytes)
    {
        constexpr std::uint8_t blank = 0x20, tilde = 0x7E;
        return bytes - blank <= tilde - blank;
    }

    static bool isAny(Block bytes)
    {
        const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(bytes);
        return (halves[0] | halves[1]) != 0;
    }

    std::array<Form, 3> m_forms;
    Form m_all; // of each byte its own set
    Block m_within{}; // the bytes of the sets, and the one behind them
    std::array<Range, 4> m_leads;
};

} // namespace vesko

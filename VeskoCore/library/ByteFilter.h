#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <optional>
#include <string>

namespace vesko {

// Marks the bytes of a UTF-8 text that may be the first of what is looked for, a block at a time:
// an ASCII character of the first set before others of the second and the third, and the first
// bytes of some longer characters. It may mark too many, never too few. Of a marked one it tells by
// a look at the bytes from there on whether they differ from all of the sets. Blocks go by
// reference, since a function for one kind of processor may call one for all of them.
class ByteFilter {
public:
    // Compilers turn this into the machine's vectors.
    using Block = std::uint8_t __attribute__((vector_size(32)));
    using Words = std::array<std::uint64_t, sizeof(Block) / sizeof(std::uint64_t)>;

    ByteFilter() = default;
    // Behind an ASCII character may also stand what is not ASCII or may be no letter at all; from
    // there on all is possible, as it is for a set of nothing. The leads are by byte.
    using Set = std::optional<std::string>;
    static constexpr std::size_t mostSets = sizeof(Block) - 1;
    ByteFilter(const std::array<Set, mostSets>& sets, const std::array<bool, 0x100>& leads);

    // The second and third blocks are the text one and two bytes on. Sets every bit of a byte, or
    // none.
    [[gnu::always_inline]] Words marks(
        const Block& first, const Block& second, const Block& third) const
    {
        auto marks
            = Block((third | m_forms[2].mask) == m_forms[2].value) | Block(third - blank > plain);
        marks &= Block((second | m_forms[1].mask) == m_forms[1].value);
        marks |= Block(second - blank > plain);
        marks &= Block((first | m_forms[0].mask) == m_forms[0].value);
        for (const auto& range : m_leads)
            marks |= Block(first - range.first <= range.extent);
        return std::bit_cast<Words>(marks);
    }

    // Whether what begins with these bytes is surely not what is looked for: they and the next are
    // plain characters, and not all of them are of their sets.
    [[gnu::always_inline]] bool excludes(const Block& bytes) const
    {
        const auto others = Block((bytes | m_all.mask) != m_all.value);
        const auto unknown = Block(bytes - blank > plain) & m_within;
        return isAny(std::bit_cast<Words>(others)) && !isAny(std::bit_cast<Words>(unknown));
    }

    [[gnu::always_inline]] static bool isAny(const Words& words)
    {
        return (words[0] | words[1] | words[2] | words[3]) != 0;
    }

private:
    // The bytes from the blank to the tilde are plain characters.
    static constexpr std::uint8_t blank = 0x20;
    static constexpr std::uint8_t plain = 0x7E - blank;

    // The bytes for which `byte | mask` is `value`.
    struct Form {
        Block mask{};
        Block value{};
    };
    // The bytes from one on.
    struct Range {
        Block first{};
        Block extent{}; // to the last
    };

    static Form everywhere(std::uint8_t mask, std::uint8_t value);
    static Form formOf(const Set& set);

    std::array<Form, 3> m_forms;
    Form m_all; // of each byte its own set
    Block m_within{}; // the bytes of the sets, and the one behind them
    std::array<Range, 4> m_leads;
};

} // namespace vesko

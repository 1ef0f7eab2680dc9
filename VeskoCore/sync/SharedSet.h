#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <span>
#include <vector>

namespace vesko {

// A sorted set held by value whose copies share what did not change: a copy costs one reference
// count, and a change copies the blocks that it touches and the table of blocks. No order in which
// elements come makes it slower, so it may hold what a stranger chose. Elements are compared with <
// and immutable once they are in, so copies may be read on different threads.
template <class T>
class SharedSet {
    // A few neighbours, at least one.
    struct Block {
        T first; // once more, so that a search need not visit the elements
        std::shared_ptr<const T[]> elements;
        std::size_t size;

        const T* begin() const { return elements.get(); }
        const T* end() const { return begin() + size; }
    };
    using Table = std::vector<Block>;

public:
    class Iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = const T*;
        using reference = const T&;

        Iterator() = default;
        reference operator*() const { return m_block->elements[m_offset]; }
        pointer operator->() const { return &**this; }
        Iterator& operator++()
        {
            if (++m_offset == m_block->size) {
                ++m_block;
                m_offset = 0;
            }
            return *this;
        }
        Iterator operator++(int)
        {
            const auto before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const Iterator&, const Iterator&) = default;

    private:
        friend SharedSet;
        Iterator(const Block* block, std::size_t offset)
            : m_block(block)
            , m_offset(offset)
        {
        }

        const Block* m_block = nullptr;
        std::size_t m_offset = 0;
    };

    std::size_t size() const { return m_size; }
    bool empty() const { return m_size == 0; }
    Iterator begin() const { return { m_table ? m_table->data() : nullptr, 0 }; }
    Iterator end() const { return { m_table ? m_table->data() + m_table->size() : nullptr, 0 }; }

    // The first element that is not less than this one.
    Iterator lowerBound(const T& element) const
    {
        if (empty())
            return end();
        // Only the last block that begins before the element can hold it and smaller ones.
        auto block
            = std::ranges::upper_bound(*m_table, element, std::ranges::less(), &Block::first);
        if (block == m_table->begin())
            return begin();
        --block;
        const auto at = std::ranges::lower_bound(*block, element);
        if (at == block->end())
            return { std::to_address(block + 1), 0 };
        return { std::to_address(block), static_cast<std::size_t>(at - block->begin()) };
    }

    // The element that equals this one, or null.
    const T* find(const T& element) const
    {
        const auto at = lowerBound(element);
        return at != end() && !(element < *at) ? &*at : nullptr;
    }

    // Takes elements out, as far as they are in, and others in, none of which may be in already.
    // Both lists are ascending and without repeats, and have nothing in common.
    void change(const std::vector<T>& going, const std::vector<T>& coming)
    {
        if (going.empty() && coming.empty())
            return;
        const auto blocks = m_table ? std::span(*m_table) : std::span<const Block>();
        Table fresh;
        fresh.reserve(blocks.size() + coming.size() / goodSize + 1);
        auto size = m_size + coming.size();
        std::vector<T> merged;
        if (blocks.empty())
            merged = coming;
        cut(merged, fresh);
        auto gone = going.begin();
        auto come = coming.begin();
        for (std::size_t index = 0; index < blocks.size(); ++index) {
            const bool last = index + 1 == blocks.size();
            const auto share = [&](auto from, auto end) {
                return last ? end : std::lower_bound(from, end, blocks[index + 1].first);
            };
            const auto goneEnd = share(gone, going.end());
            const auto comeEnd = share(come, coming.end());
            if (gone == goneEnd && come == comeEnd) {
                fresh.push_back(blocks[index]);
                continue;
            }
            merged.clear();
            for (const T& element : blocks[index]) {
                while (come != comeEnd && *come < element)
                    merged.push_back(*come++);
                while (gone != goneEnd && *gone < element)
                    ++gone;
                if (gone != goneEnd && !(element < *gone))
                    --size;
                else
                    merged.push_back(element);
            }
            merged.insert(merged.end(), come, comeEnd);
            cut(merged, fresh);
            gone = goneEnd;
            come = comeEnd;
        }
        m_table = std::make_shared<const Table>(std::move(fresh));
        m_size = size;
    }

    friend bool operator==(const SharedSet& a, const SharedSet& b)
    {
        return a.m_table == b.m_table
            || (a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin()));
    }

private:
    static constexpr std::size_t goodSize = 32;

    // Moves the elements into blocks of between half and one and a half times the good size, if
    // there are that many.
    static void cut(std::vector<T>& elements, Table& into)
    {
        const auto count = elements.size();
        const auto pieces = std::max<std::size_t>((count + goodSize / 2) / goodSize, count > 0);
        auto at = elements.begin();
        for (std::size_t piece = 1; piece <= pieces; ++piece) {
            const auto end = elements.begin() + static_cast<std::ptrdiff_t>(count * piece / pieces);
            const auto size = static_cast<std::size_t>(end - at);
            const auto block = std::make_shared<T[]>(size);
            std::move(at, end, block.get());
            into.push_back({ block[0], block, size });
            at = end;
        }
    }

    std::shared_ptr<const Table> m_table;
    std::size_t m_size = 0;
};

} // namespace vesko

#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace vesko {

// A list held by value that only grows, and whose copies share what they have in common: a copy
// costs one reference count, and growing copies the table of blocks and the last block. Elements
// never change, so copies may be read on different threads.
template <class T>
class SharedList {
    using Block = std::vector<T>;
    using Table = std::vector<std::shared_ptr<const Block>>;

public:
    std::size_t size() const { return m_size; }
    const T& operator[](std::size_t index) const
    {
        return (*(*m_table)[index / blockSize])[index % blockSize];
    }

    void append(const std::vector<T>& elements)
    {
        Table fresh;
        fresh.reserve((m_size + elements.size()) / blockSize + 1);
        if (m_table)
            fresh = *m_table;
        for (auto at = elements.begin(); at != elements.end();) {
            Block block;
            if (!fresh.empty() && fresh.back()->size() < blockSize) {
                block = *fresh.back();
                fresh.pop_back();
            }
            const auto room = static_cast<std::ptrdiff_t>(blockSize - block.size());
            const auto end = at + std::min(room, elements.end() - at);
            block.insert(block.end(), at, end);
            fresh.push_back(std::make_shared<const Block>(std::move(block)));
            at = end;
        }
        m_table = std::make_shared<const Table>(std::move(fresh));
        m_size += elements.size();
    }

private:
    static constexpr std::size_t blockSize = 64;

    std::shared_ptr<const Table> m_table;
    std::size_t m_size = 0;
};

} // namespace vesko

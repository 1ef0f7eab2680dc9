#pragma once

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace vesko {

// An array held by value whose copies share what did not change: a copy costs one reference count
// however many elements there are, and changing one element copies that element and the table of
// pointers, never its neighbours. Elements themselves are immutable once they stand in an array,
// so copies may be read on different threads.
template <class T>
class SharedArray {
    using Pointer = std::shared_ptr<const T>;
    using Table = std::vector<Pointer>;

public:
    class Iterator {
    public:
        using iterator_category = std::random_access_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = const T*;
        using reference = const T&;

        Iterator() = default;
        explicit Iterator(const Pointer* at)
            : m_at(at)
        {
        }
        reference operator*() const { return **m_at; }
        pointer operator->() const { return m_at->get(); }
        reference operator[](difference_type by) const { return *m_at[by]; }
        Iterator& operator++()
        {
            ++m_at;
            return *this;
        }
        Iterator operator++(int) { return Iterator{ m_at++ }; }
        Iterator& operator--()
        {
            --m_at;
            return *this;
        }
        Iterator operator--(int) { return Iterator{ m_at-- }; }
        Iterator& operator+=(difference_type by)
        {
            m_at += by;
            return *this;
        }
        Iterator& operator-=(difference_type by)
        {
            m_at -= by;
            return *this;
        }
        friend Iterator operator+(Iterator it, difference_type by) { return it += by; }
        friend Iterator operator+(difference_type by, Iterator it) { return it += by; }
        friend Iterator operator-(Iterator it, difference_type by) { return it -= by; }
        friend difference_type operator-(Iterator a, Iterator b) { return a.m_at - b.m_at; }
        friend auto operator<=>(Iterator, Iterator) = default;

    private:
        const Pointer* m_at = nullptr;
    };

    SharedArray() = default;
    SharedArray(std::initializer_list<T> elements)
        : SharedArray(std::vector<T>(elements))
    {
    }
    explicit SharedArray(std::vector<T> elements)
    {
        Table table;
        table.reserve(elements.size());
        for (auto& element : elements)
            table.push_back(std::make_shared<const T>(std::move(element)));
        adopt(std::move(table));
    }
    // Of elements that other arrays may hold as well; none is null.
    explicit SharedArray(std::vector<std::shared_ptr<const T>> elements)
    {
        adopt(std::move(elements));
    }

    std::size_t size() const { return m_table ? m_table->size() : 0; }
    bool empty() const { return size() == 0; }
    const T& operator[](std::size_t index) const { return *(*m_table)[index]; }
    const T& back() const { return *m_table->back(); }
    Iterator begin() const { return Iterator{ m_table ? m_table->data() : nullptr }; }
    Iterator end() const { return begin() + static_cast<std::ptrdiff_t>(size()); }

    // The element's identity: two arrays that show the same pointer share the element.
    const Pointer& shared(std::size_t index) const { return (*m_table)[index]; }

    void append(T element)
    {
        auto table = copyOfTable(1);
        table.push_back(std::make_shared<const T>(std::move(element)));
        adopt(std::move(table));
    }

    void set(std::size_t index, T element)
    {
        auto table = copyOfTable(0);
        table[index] = std::make_shared<const T>(std::move(element));
        adopt(std::move(table));
    }

    // Replaces the element by a copy that `change` has worked on.
    template <class Change>
    void edit(std::size_t index, Change change)
    {
        T element = (*this)[index];
        change(element);
        set(index, std::move(element));
    }

    // The same for all that the predicate says, with one table for them together.
    template <class Predicate, class Change>
    void editIf(Predicate predicate, Change change)
    {
        auto table = copyOfTable(0);
        for (auto& shared : table) {
            if (!predicate(*shared))
                continue;
            T element = *shared;
            change(element);
            shared = std::make_shared<const T>(std::move(element));
        }
        adopt(std::move(table));
    }

    template <class Predicate>
    void removeIf(Predicate predicate)
    {
        auto table = copyOfTable(0);
        std::erase_if(table, [&](const Pointer& element) { return predicate(*element); });
        adopt(std::move(table));
    }

    friend bool operator==(const SharedArray& a, const SharedArray& b)
    {
        if (a.m_table == b.m_table)
            return true;
        if (a.size() != b.size())
            return false;
        for (std::size_t index = 0; index < a.size(); ++index)
            if (a.shared(index) != b.shared(index) && !(a[index] == b[index]))
                return false;
        return true;
    }

private:
    Table copyOfTable(std::size_t room) const
    {
        Table table;
        table.reserve(size() + room);
        if (m_table)
            table.insert(table.end(), m_table->begin(), m_table->end());
        return table;
    }
    void adopt(Table table) { m_table = std::make_shared<const Table>(std::move(table)); }

    std::shared_ptr<const Table> m_table;
};

} // namespace vesko

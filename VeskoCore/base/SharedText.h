#pragma once

#include <concepts>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace vesko {

// A text held by value whose copies share it, as what was heard and what became of it are mostly
// the same. The text itself never changes, so copies may be read on different threads.
class SharedText {
public:
    SharedText() = default;
    SharedText(std::string text) // NOLINT(google-explicit-constructor): it stands for a text
        : m_text(text.empty() ? nullptr : std::make_shared<const std::string>(std::move(text)))
    {
    }
    SharedText(const char* text) // NOLINT(google-explicit-constructor)
        : SharedText(std::string(text))
    {
    }

    operator const std::string&() const // NOLINT(google-explicit-constructor)
    {
        static const std::string none;
        return m_text ? *m_text : none;
    }
    operator std::string_view() const // NOLINT(google-explicit-constructor)
    {
        return static_cast<const std::string&>(*this);
    }

    bool empty() const { return !m_text; }
    std::size_t size() const { return m_text ? m_text->size() : 0; }
    bool sharedWith(const SharedText& other) const { return m_text == other.m_text; }

    // Another text in place of this one; the copies keep what they have.
    SharedText& operator+=(std::string_view end)
    {
        std::string longer;
        longer.reserve(size() + end.size());
        longer += std::string_view(*this);
        longer += end;
        return *this = SharedText(std::move(longer));
    }

    friend bool operator==(const SharedText& a, const SharedText& b)
    {
        return a.sharedWith(b) || std::string_view(a) == std::string_view(b);
    }
    template <std::convertible_to<std::string_view> Text>
    friend bool operator==(const SharedText& a, const Text& b)
    {
        return std::string_view(a) == std::string_view(b);
    }

private:
    std::shared_ptr<const std::string> m_text; // none: the empty text
};

} // namespace vesko

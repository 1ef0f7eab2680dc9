#pragma once

#include <concepts>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace vesko {

// A key or a token. Its bytes stand in memory of their own that is in no core dump, that a forked
// child finds empty, and that is not swapped out as far as the system lets it be locked; they are
// wiped with the last copy. Copies share them, and may be used on different threads. Whoever makes
// one wipes the text that it was made from.
class Secret {
public:
    Secret() = default; // empty
    template <std::convertible_to<std::string_view> Text>
        requires(!std::same_as<Text, Secret>)
    Secret(const Text& text) // NOLINT(google-explicit-constructor): it stands for a text
        : Secret(std::string_view(text), {})
    {
    }
    // Wipes the text.
    static Secret taken(std::string& text);

    operator std::string_view() const; // NOLINT(google-explicit-constructor)
    bool empty() const { return !m_pages; }

    template <std::convertible_to<std::string_view> Text>
    friend bool operator==(const Secret& a, const Text& b)
    {
        return std::string_view(a) == std::string_view(b);
    }

private:
    class Pages;
    struct Direct { };

    Secret(std::string_view text, Direct);

    std::shared_ptr<const Pages> m_pages;
};

// So that what a text held can't be found in memory any more; it is empty then.
void wipe(std::string& text);

// The value of a variable of the environment, which no longer holds it: neither for this process,
// nor for those that it starts, nor for those who look at it from outside. Empty if there is none.
// Before there are threads.
Secret takeFromEnvironment(const char* name);

} // namespace vesko

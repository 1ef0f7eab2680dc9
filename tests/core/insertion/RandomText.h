#pragma once

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace vesko {

// Short texts out of what is hard about text: letters of many scripts that fold to others, to
// several or to none, marks that combine, pairs of surrogates, emoji with joiners, signs that mean
// something in a regular expression, white space and line ends of every kind. Each draws from a few
// pieces only, so that two texts of the same source have much in common.
class RandomText {
public:
    explicit RandomText(unsigned seed);

    // Below `end`, evenly.
    std::size_t number(std::size_t end);
    bool oneIn(std::size_t chances) { return number(chances) == 0; }
    template <class T>
    const T& oneOf(const std::vector<T>& values)
    {
        return values[number(values.size())];
    }

    // Takes other pieces from now on.
    void chooseAlphabet();
    // So many pieces and up to the most.
    std::string pieces(std::size_t fewest, std::size_t most);
    // The text in another case, partly or wholly, or in another encoding of the same characters.
    std::string varied(std::string_view text);

private:
    std::mt19937 m_random;
    std::vector<std::string_view> m_alphabet;
};

} // namespace vesko

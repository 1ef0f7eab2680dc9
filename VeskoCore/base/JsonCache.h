#pragma once

#include <memory>
#include <string>
#include <unordered_map>

namespace vesko {

// Remembers, from one writing of a document to the next, the JSON texts of the elements of its
// shared arrays. An element is known by its identity, and as elements never change, so is its text.
// Costs as much memory as the document's text.
class JsonCache {
public:
    // Bytes of one element's text: what a reader has to be able to hold at once.
    static constexpr std::size_t longestText = 40 << 20;

    // Nothing for an element that has not been added.
    const std::string* find(const std::shared_ptr<const void>& element);
    const std::string& add(std::shared_ptr<const void> element, std::string text);
    // Drops what was neither found nor added since the last time.
    void forgetUnused();

private:
    struct Entry {
        std::shared_ptr<const void> element; // keeps its identity from being given to another
        std::string text;
        bool used = true;
    };

    std::unordered_map<const void*, Entry> m_entries;
};

} // namespace vesko

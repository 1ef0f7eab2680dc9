#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vesko {

// A model file as its publisher describes it.
struct PublishedModel {
    std::string name; // "base"
    std::string size; // as published: "142 MiB"
    std::string sha1; // 40 lower-case digits
    std::string source; // where these words stand

    bool operator==(const PublishedModel&) const = default;

    std::string file() const { return "ggml-" + name + ".bin"; }
    // The published size, in bytes: it is rounded, so the file may be a tenth larger.
    std::uintmax_t bytes() const;
};

// The list in SpeechModels.json. Throws std::runtime_error, with words for a developer, for text
// that is none.
std::vector<PublishedModel> publishedModels(const std::string& json);

} // namespace vesko

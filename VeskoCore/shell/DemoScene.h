#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace vesko {

// What the program shows at its start when it is run to be photographed.
struct DemoScene {
    enum Kind { note, project, dictionary, settings };

    Kind kind = note;
    std::size_t projectIndex = 0; // of a project scene
    std::size_t noteIndex = 0; // of a note or project scene, among the notes then visible

    // Reads "note=N", "project=P,N", "dictionary" or "settings", N and P in decimal digits alone.
    // Nothing for any other text.
    static std::optional<DemoScene> fromText(std::string_view text);

    bool operator==(const DemoScene&) const = default;
};

} // namespace vesko

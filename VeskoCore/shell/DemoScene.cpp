#include "VeskoCore/shell/DemoScene.h"

#include <charconv>

namespace vesko {

namespace {

std::optional<std::size_t> indexFromText(std::string_view text)
{
    std::size_t index = 0;
    const char* start = text.data();
    const char* end = start + text.size();
    const auto [stopped, error] = std::from_chars(start, end, index);
    if (error != std::errc() || stopped != end)
        return std::nullopt;
    return index;
}

} // namespace

std::optional<DemoScene> DemoScene::fromText(std::string_view text)
{
    constexpr std::string_view notePrefix = "note=";
    constexpr std::string_view projectPrefix = "project=";

    if (text == "dictionary")
        return DemoScene{ .kind = dictionary };
    if (text == "settings")
        return DemoScene{ .kind = settings };
    if (text.starts_with(notePrefix)) {
        if (const auto index = indexFromText(text.substr(notePrefix.size())))
            return DemoScene{ .kind = note, .noteIndex = *index };
    }
    if (text.starts_with(projectPrefix)) {
        const std::string_view indexes = text.substr(projectPrefix.size());
        const std::size_t comma = indexes.find(',');
        if (comma == std::string_view::npos)
            return std::nullopt;
        const auto projectIndex = indexFromText(indexes.substr(0, comma));
        const auto noteIndex = indexFromText(indexes.substr(comma + 1));
        if (projectIndex && noteIndex)
            return DemoScene{
                .kind = project, .projectIndex = *projectIndex, .noteIndex = *noteIndex
            };
    }
    return std::nullopt;
}

} // namespace vesko

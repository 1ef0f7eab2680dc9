#include "VeskoApp/library/MarkdownFiles.h"

#include "VeskoCore/base/Text.h"
#include "VeskoCore/base/UserFile.h"

#include <algorithm>
#include <map>

namespace vesko {

namespace {

constexpr std::size_t longestName = 80; // characters
constexpr std::size_t roomForName = 200; // bytes, with room for a number and the ending

} // namespace

std::string markdownName(const Note& note)
{
    const auto title = note.displayTitle();
    auto characters = longestName;
    auto name = firstCharacters(title, characters);
    while (name.size() > roomForName)
        name = firstCharacters(title, --characters);
    std::string safe(name);
    std::ranges::replace(safe, '/', '-');
    return safe + ".md";
}

std::string markdownOf(const Library& library, const Note& note)
{
    const auto project = std::ranges::find_if(
        library.projects, [&](const Project& candidate) { return candidate.id == note.projectID; });
    return note.markdown(
        project == library.projects.end() ? std::nullopt : std::optional(project->name));
}

std::vector<std::filesystem::path> writeMarkdownFiles(
    const Library& library, const std::set<Uuid>& ids, const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    std::map<std::string, int> numbers; // many notes may have one name
    for (const auto& note : library.notes) {
        if (!ids.contains(note.id))
            continue;
        const std::filesystem::path name = markdownName(note);
        auto file = folder / name;
        for (int& number = numbers[name.string()]; std::filesystem::exists(file);) {
            number = std::max(2, number + 1);
            file = folder / (name.stem().string() + ' ' + std::to_string(number) + ".md");
        }
        writeUserFile(FileSystem::posix(), file, markdownOf(library, note));
        files.push_back(std::move(file));
    }
    return files;
}

} // namespace vesko

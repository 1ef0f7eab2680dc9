#pragma once

#include "VeskoCore/library/Library.h"

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace vesko {

// The name that is offered for a note's file: no longer than a folder takes it.
std::string markdownName(const Note& note);
// The note with its project's name.
std::string markdownOf(const Library& library, const Note& note);

// Writes each of the notes to a file of its name in the folder; where one of that name is there, it
// gets a number. The files, in the library's order. Blocks; throws std::system_error, and what is
// written by then stays.
std::vector<std::filesystem::path> writeMarkdownFiles(
    const Library& library, const std::set<Uuid>& ids, const std::filesystem::path& folder);

} // namespace vesko

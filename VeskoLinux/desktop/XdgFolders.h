#pragma once

#include <filesystem>
#include <vector>

namespace vesko {

// The folders of the XDG base directory rules, all absolute; a variable that holds no absolute
// path counts as unset.

// Where programs keep the user's settings.
std::filesystem::path configFolder();
// Where programs keep the user's data.
std::filesystem::path dataFolder();
// Where the files of the running program are: of a build "bin", and "libexec/vesko" once installed.
std::filesystem::path programFolder();
// What a user, or the desktop at login, starts the program with.
std::filesystem::path programPath();
// Where the values of this installation may stand: beside the program, then in its data folder.
std::vector<std::filesystem::path> deploymentFolders();

} // namespace vesko

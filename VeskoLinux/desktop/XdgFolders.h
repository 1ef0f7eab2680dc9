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
// The file of the running program.
std::filesystem::path programPath();
// Where the values of this installation may stand: beside the program, then in its data folder.
std::vector<std::filesystem::path> deploymentFolders();

} // namespace vesko

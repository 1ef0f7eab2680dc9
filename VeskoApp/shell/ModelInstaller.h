#pragma once

#include <filesystem>
#include <ostream>
#include <string>

namespace vesko {

// Loads a speech model without an interface, and tells how far it is. Blocks; gives the status that
// the process is to end with. Ended in the middle, by a signal or the power, the next time goes on
// where it was. `list` is the content of SpeechModels.json, the address the folder that the files
// stand in, with "/" at its end.
int installModel(const std::string& name, const std::string& list, const std::string& address,
    const std::filesystem::path& folder, std::ostream& out, std::ostream& error);

} // namespace vesko

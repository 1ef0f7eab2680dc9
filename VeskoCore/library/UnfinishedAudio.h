#pragma once

#include "VeskoCore/base/FileSystem.h"

namespace vesko {

// A recording's file grows, playable at each moment. At its end it is written once more, as an
// ordinary one, beside the first, and takes that one's place.

// Where the second one is until then.
std::filesystem::path unfinishedAudio(const std::filesystem::path& audio);

// After the program was ended in between: what is whole takes its place all the same, and what
// isn't goes, if there is what grew. Throws std::system_error; then both are left for the next
// time.
void settleUnfinishedAudio(FileSystem& files, const std::filesystem::path& audio);

} // namespace vesko

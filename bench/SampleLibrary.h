#pragma once

#include "VeskoCore/library/Library.h"

namespace vesko::bench {

// The same library every time: 10,000 notes, most of them dictated, whose JSON takes about 50 MB.
Library sampleLibrary();

} // namespace vesko::bench

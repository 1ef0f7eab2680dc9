#pragma once

#include "VeskoCore/shell/PanelPlacement.h"

#include <vector>

namespace vesko {

// What of each screen is free of panels, the main screen first.
std::vector<ScreenArea> screens();

} // namespace vesko

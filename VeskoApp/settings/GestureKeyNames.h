#pragma once

#include "VeskoApp/platform/KeyInput.h"

#include <QString>

namespace vesko {

// The name on the key, for the user to read.
QString shownName(GestureKey key);

} // namespace vesko

#pragma once

#include "VeskoApp/platform/RunningInstance.h"

namespace vesko {

// A test calls what a second start would.
class FakeRunningInstance final : public RunningInstance { };

} // namespace vesko

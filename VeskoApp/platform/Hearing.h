#pragma once

#include "VeskoApp/platform/SoundListener.h"

#include <memory>

namespace vesko {

// Works on a recording while it is made. Destroying it stops the work at once. Main thread.
class Hearing {
public:
    virtual ~Hearing() = default;

    // For the recorder, before the recording is started.
    virtual std::shared_ptr<SoundListener> listener() = 0;
};

} // namespace vesko

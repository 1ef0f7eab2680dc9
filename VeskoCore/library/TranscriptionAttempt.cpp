#include "VeskoCore/library/TranscriptionAttempt.h"

#include "VeskoCore/base/Localized.h"

namespace vesko {

const char* label(AttemptStatus status)
{
    switch (status) {
    case AttemptStatus::running:
        return L10N_KEY("Vesko", "In progress");
    case AttemptStatus::ready:
        return L10N_KEY("Vesko", "Done");
    case AttemptStatus::failed:
        return L10N_KEY("Vesko", "Failed");
    case AttemptStatus::interrupted:
        break;
    }
    return L10N_KEY("Vesko", "Interrupted");
}

} // namespace vesko

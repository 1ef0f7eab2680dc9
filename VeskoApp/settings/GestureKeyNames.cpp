#include "VeskoApp/settings/GestureKeyNames.h"

#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

namespace vesko {

QString shownName(GestureKey key)
{
    switch (key) {
    case GestureKey::fn:
        return translated(L10N_KEY("Vesko", "Function key"));
    case GestureKey::rightControl:
        return translated(L10N_KEY("Vesko", "Right Ctrl"));
    case GestureKey::rightAlt:
        return translated(L10N_KEY("Vesko", "Right Alt"));
    case GestureKey::menu:
        return translated(L10N_KEY("Vesko", "Menu"));
    case GestureKey::pause:
        return translated(L10N_KEY("Vesko", "Pause"));
    case GestureKey::scrollLock:
        return translated(L10N_KEY("Vesko", "Scroll Lock"));
    }
    return {};
}

} // namespace vesko

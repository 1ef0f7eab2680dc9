#include "VeskoCore/shell/StatusIconPlacement.h"

namespace vesko {

bool StatusIconPlacement::iconHidden(
    double itemMinX, double itemMaxX, const std::optional<Span>& notch, bool visible)
{
    return !visible || (notch && itemMaxX > notch->lower && itemMinX < notch->upper);
}

} // namespace vesko

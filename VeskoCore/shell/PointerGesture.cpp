#include "VeskoCore/shell/PointerGesture.h"

#include <cmath>

namespace vesko {

bool PointerGesture::move(double x, double y)
{
    isDrag = isDrag || std::hypot(x - startX, y - startY) > dragThreshold;
    return isDrag;
}

} // namespace vesko

#pragma once

#include <QIcon>

namespace vesko {

// The five-line mark, taller while recording; light strokes for a dark desktop.
QIcon statusIcon(bool recording, bool dark);

} // namespace vesko

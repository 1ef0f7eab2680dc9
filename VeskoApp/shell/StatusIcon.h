#pragma once

#include <QIcon>

namespace vesko {

// The five-line mark, taller while recording; to be seen on light and on dark panels.
QIcon statusIcon(bool recording);

} // namespace vesko

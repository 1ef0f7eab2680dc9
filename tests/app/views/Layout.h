#pragma once

#include <QQuickWindow>

#include <string>
#include <vector>

namespace vesko {

// What of a window's texts a user can't read as it was meant: in words, one a line. Texts that are
// cut off or elided, that stand in each other, or that stick out of the window or of the part of it
// that is scrolled.
std::vector<std::string> flawsOf(QQuickWindow& window);

} // namespace vesko

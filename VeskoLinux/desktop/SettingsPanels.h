#pragma once

#include "VeskoApp/platform/Desktop.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace vesko {

// The commands that may open that part of the settings, the best first; `desktops` is what
// XDG_CURRENT_DESKTOP says. What is not installed is to be passed over.
std::vector<QStringList> settingsCommands(SettingsPanel panel, const QString& desktops);

} // namespace vesko

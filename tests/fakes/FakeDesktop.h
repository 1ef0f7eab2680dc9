#pragma once

#include "VeskoApp/platform/Desktop.h"

#include <vector>

namespace vesko {

class FakeDesktop final : public Desktop {
public:
    std::vector<const QWindow*> broughtHere;
    std::vector<const QWindow*> floating;
    std::vector<std::filesystem::path> openedFolders;
    std::vector<SettingsPanel> openedSettings;

    void bringHere(QWindow& window) override { broughtHere.push_back(&window); }
    void floatEverywhere(QWindow& window) override { floating.push_back(&window); }
    void openFolder(const std::filesystem::path& folder) override
    {
        openedFolders.push_back(folder);
    }
    void openSettings(SettingsPanel panel) override { openedSettings.push_back(panel); }
};

} // namespace vesko

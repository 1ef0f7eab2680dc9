#pragma once

#include "VeskoApp/platform/Desktop.h"

#include <QRegion>

#include <vector>

namespace vesko {

class FakeDesktop final : public Desktop {
public:
    std::vector<const QWindow*> broughtHere;
    std::vector<const QWindow*> floating;
    std::vector<std::filesystem::path> openedFolders;
    std::vector<std::filesystem::path> shownFiles;
    std::vector<SettingsPanel> openedSettings;
    bool hasSettings = true;
    bool seesThrough = true;
    QRegion visible; // of the window that was cut last

    void bringHere(QWindow& window) override { broughtHere.push_back(&window); }
    void floatEverywhere(QWindow& window) override { floating.push_back(&window); }
    bool blends() const override { return seesThrough; }
    void cut(QWindow& /*window*/, const QRegion& region) override { visible = region; }
    void openFolder(const std::filesystem::path& folder) override
    {
        openedFolders.push_back(folder);
    }
    void showFile(const std::filesystem::path& file) override { shownFiles.push_back(file); }
    bool openSettings(SettingsPanel panel) override
    {
        openedSettings.push_back(panel);
        return hasSettings;
    }
};

} // namespace vesko

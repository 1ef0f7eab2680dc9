#pragma once

#include "VeskoApp/platform/Desktop.h"

#include <cstdint>

struct xcb_connection_t;

namespace vesko {

// An EWMH desktop under X11, or the X11 that a Wayland desktop has inside. On any other every
// window stays where the desktop puts it.
class X11Desktop final : public Desktop {
public:
    // After the application has been made.
    X11Desktop();

    void bringHere(QWindow& window) override;
    void floatEverywhere(QWindow& window) override;
    bool blends() const override;
    void cut(QWindow& window, const QRegion& visible) override;
    void openFolder(const std::filesystem::path& folder) override;
    void showFile(const std::filesystem::path& file) override;
    bool openSettings(SettingsPanel panel) override;

private:
    bool managerKeepsAbove() const;
    void makeOwnGroup(std::uint32_t window) const;
    std::uint32_t atom(const char* name) const;
    std::uint32_t cardinal(std::uint32_t window, const char* property, std::uint32_t absent) const;

    xcb_connection_t* m_connection = nullptr; // Qt's own, so that requests keep their order
    std::uint32_t m_root = 0;
    std::uint32_t m_compositor = 0; // the selection of whoever is one
};

} // namespace vesko

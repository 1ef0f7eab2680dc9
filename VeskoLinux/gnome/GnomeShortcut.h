#pragma once

#include "VeskoApp/platform/DesktopShortcut.h"

#include <filesystem>
#include <string>

namespace vesko {

// One of the user's own shortcuts in GNOME's settings for the keyboard.
class GnomeShortcut final : public DesktopShortcut {
public:
    // Whether this session has the service that obeys these settings.
    static bool offered();
    // The keys of a shortcut of the user's, whoever made it, that starts dictations; empty without
    // one.
    static std::string boundKeys();

    // What is run is this program, told to begin or end a dictation.
    explicit GnomeShortcut(std::filesystem::path program);

    std::string keys() const override;
    std::string suggestion() const override;
    bool add() override;
    void remove() override;

private:
    std::string m_command;
};

} // namespace vesko

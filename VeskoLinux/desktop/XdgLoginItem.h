#pragma once

#include "VeskoApp/platform/LoginItem.h"

#include <filesystem>

namespace vesko {

// Starts the program in the background at login, by a desktop entry in the autostart folder of the
// user's configuration folder. A desktop's own settings may switch the entry off by marks in the
// file; it then counts as not registered.
class XdgLoginItem final : public LoginItem {
public:
    // The configuration folder need not exist; the program's path is absolute.
    XdgLoginItem(const std::filesystem::path& configurationFolder, std::filesystem::path program);

    LoginStatus status() const override;
    void enable() override;
    void disable() override;

private:
    std::filesystem::path m_entry;
    std::filesystem::path m_program;
};

} // namespace vesko

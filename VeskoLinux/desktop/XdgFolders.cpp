#include "VeskoLinux/desktop/XdgFolders.h"

#include <cstdlib>
#include <stdexcept>

namespace vesko {

namespace {

std::filesystem::path home()
{
    const char* value = std::getenv("HOME");
    if (!value || *value != '/')
        throw std::runtime_error("HOME is not set to an absolute path");
    return value;
}

std::filesystem::path folder(const char* variable, const char* underHome)
{
    const char* value = std::getenv(variable);
    return value && *value == '/' ? std::filesystem::path(value) : home() / underHome;
}

} // namespace

std::filesystem::path configFolder()
{
    return folder("XDG_CONFIG_HOME", ".config");
}

std::filesystem::path dataFolder()
{
    return folder("XDG_DATA_HOME", ".local/share");
}

std::filesystem::path programFolder()
{
    return std::filesystem::canonical("/proc/self/exe").parent_path();
}

std::filesystem::path programPath()
{
    return programFolder() / "vesko";
}

std::vector<std::filesystem::path> deploymentFolders()
{
    return { programFolder(), programFolder().parent_path().parent_path() / "share/vesko" };
}

} // namespace vesko

// Bytes stand as the settings' file. Whatever they are, values are read or not, the first write
// goes well, and what could not be read is kept beside it.

#include "VeskoLinux/desktop/CborSettings.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

using namespace vesko;

namespace {

void require(bool kept)
{
    if (!kept)
        std::abort();
}

struct Home {
    std::filesystem::path path = "/dev/shm/vesko-fuzz-" + std::to_string(::getpid());
    Home() { std::filesystem::create_directories(path / "vesko"); }
    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;
    ~Home() { std::filesystem::remove_all(path); }
};

bool anySetAside(const std::filesystem::path& folder)
{
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().filename().string().starts_with("settings.damaged-"))
            return true;
    return false;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Home home;
    const auto folder = home.path / "vesko";
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        std::filesystem::remove_all(entry.path());
    std::ofstream(folder / "settings.cbor", std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));

    CborSettings settings(home.path);
    const bool readable = settings.value("language").has_value();
    const auto before = settings.value("language");
    const auto* const number = before ? std::get_if<double>(&*before) : nullptr;
    const bool comparable = !number || !std::isnan(*number);
    settings.set("vesko", SettingValue{ std::string("here") });
    require(settings.saved());
    const CborSettings again(home.path);
    require(again.get<std::string>("vesko") == "here");
    if (readable)
        require((again.value("language") == before || !comparable) && !anySetAside(folder));
    return 0;
}

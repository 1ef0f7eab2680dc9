#include "tests/linux/audio/SoundServer.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <numbers>
#include <sstream>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace vesko {

namespace {

using namespace std::chrono_literals;

const std::filesystem::path& folder()
{
    static const struct Folder {
        std::filesystem::path path;
        Folder()
        {
            std::string name
                = (std::filesystem::temp_directory_path() / "vesko-sound-XXXXXX").string();
            if (!::mkdtemp(name.data()))
                throw std::runtime_error("mkdtemp");
            path = name;
        }
        ~Folder() { std::filesystem::remove_all(path); }
    } folder;
    return folder.path;
}

std::string socketPath()
{
    return (folder() / "native").string();
}

// Without norewinds a sink works in blocks of two seconds while no one hears it, and what is played
// into one that has begun never reaches its monitor.
std::string sink(const std::string& name)
{
    return "module-null-sink norewinds=1 sink_name=" + name;
}
std::string sinkOfMicrophone(const std::string& name)
{
    return sink(name) + " rate=48000 channels=1";
}

bool answers()
{
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = socketPath();
    path.copy(address.sun_path, sizeof(address.sun_path) - 1);
    const int result
        = ::connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address));
    ::close(descriptor);
    return result == 0;
}

std::string writeTone(double decibels)
{
    const std::string file = (folder() / "tone").string();
    std::ofstream out(file, std::ios::binary);
    const double peak = 32767 * std::numbers::sqrt2 * std::pow(10, decibels / 20);
    for (int i = 0; i < 48000 * 60; ++i) {
        const auto sample = static_cast<std::int16_t>(
            std::lround(peak * std::sin(2 * std::numbers::pi * 440 * i / 48000)));
        out.write(reinterpret_cast<const char*>(&sample), sizeof(sample));
    }
    return file;
}

void unload(const std::string& argument)
{
    std::istringstream modules(Child::run({ "pactl", "list", "short", "modules" }));
    for (std::string line; std::getline(modules, line);) {
        std::replace(line.begin(), line.end(), '\t', ' ');
        if (line.find(argument) != std::string::npos)
            return static_cast<void>(
                Child::run({ "pactl", "unload-module", line.substr(0, line.find(' ')) }));
    }
    throw std::runtime_error("No module has " + argument);
}

} // namespace

void SoundServer::keepToOurselves()
{
    ::setenv("PULSE_SERVER", ("unix:" + socketPath()).c_str(), 1);
    ::setenv("PULSE_COOKIE", (folder() / "cookie").c_str(), 1);
}

SoundServer::SoundServer(Microphone microphone)
{
    keepToOurselves();
    std::vector<std::string> command{ "env", "-u", "PULSE_SERVER", "HOME=" + folder().string(),
        "XDG_RUNTIME_DIR=" + folder().string(), "PULSE_RUNTIME_PATH=" + folder().string(),
        "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
        "--log-target=file:" + (folder() / "log").string(), "-L", sink("vout") };
    if (microphone == Microphone::present)
        command.insert(command.end(),
            { "-L", sinkOfMicrophone("vmic"), "-L",
                "module-remap-source source_name=mic master=vmic.monitor" });
    command.insert(command.end(),
        { "-L", "module-native-protocol-unix auth-anonymous=1 socket=" + socketPath() });
    std::filesystem::remove(socketPath());
    m_server = std::make_unique<Child>(command);
    const auto deadline = std::chrono::steady_clock::now() + 20s;
    while (!answers()) {
        if (std::chrono::steady_clock::now() > deadline)
            throw std::runtime_error("PulseAudio does not come up");
        std::this_thread::sleep_for(5ms);
    }
    if (microphone == Microphone::present) {
        Child::run({ "pactl", "set-default-source", "mic" });
        Child::run({ "pactl", "set-default-sink", "vout" });
    }
}

void SoundServer::playTone(double decibels, const std::string& sink)
{
    m_tone = std::make_unique<Child>(std::vector<std::string>{ "pacat", "--device=" + sink, "--raw",
        "--rate=48000", "--channels=1", "--format=s16le", writeTone(decibels) });
    // Until the microphone hears it.
    Child listener({ "parec", "--device=" + sink + ".monitor", "--latency-msec=10", "--raw" });
    while (true) {
        const std::string heard = listener.bytes(4096);
        if (heard.empty())
            throw std::runtime_error("The microphone is dead");
        for (const char byte : heard)
            if (byte)
                return;
    }
}

void SoundServer::addMicrophone(const std::string& name, const std::string& sink)
{
    Child::run({ "pactl", "load-module", "module-null-sink", "rate=48000", "channels=1",
        "norewinds=1", "sink_name=" + sink });
    Child::run({ "pactl", "load-module", "module-remap-source", "source_name=" + name,
        "master=" + sink + ".monitor" });
}

void SoundServer::removeMicrophone(const std::string& name)
{
    unload("source_name=" + name + " ");
}

void SoundServer::removeSink(const std::string& name)
{
    unload("sink_name=" + name + " ");
}

void SoundServer::suspendMicrophone(const std::string& name, bool suspend)
{
    Child::run({ "pactl", "suspend-source", name, suspend ? "1" : "0" });
}

std::string SoundServer::list(const std::string& kind)
{
    return Child::run({ "pactl", "list", "short", kind });
}

void SoundServer::kill()
{
    m_server->kill();
    std::filesystem::remove(socketPath());
}

} // namespace vesko

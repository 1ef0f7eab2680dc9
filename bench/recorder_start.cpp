// From the key press to the first sample that will stand in the file, against the sound server's
// own command-line recorder from its start to its first sample. Rounds alternate, so that what
// else the machine does meets both.

#include "VeskoLinux/audio/GstRecorder.h"
#include "tests/linux/audio/EventLoop.h"
#include "tests/linux/audio/SoundServer.h"

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <thread>

using namespace vesko;

namespace {

constexpr int rounds = 25;
constexpr double aim = 1.2;

using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point begin)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

double ours(GstRecorder& recorder, const std::filesystem::path& file)
{
    const auto begin = Clock::now();
    recorder.open();
    while (recorder.currentTime() == 0)
        std::this_thread::sleep_for(std::chrono::microseconds(100));
    const double time = millisecondsSince(begin);

    // It counts only if the file comes about; and the recorder builds its next parts meanwhile.
    await(recorder.start(file));
    recorder.stop();
    await([](GstRecorder& of) -> Task<> { co_await of.finished(); }(recorder));
    if (std::filesystem::file_size(file) < 1000)
        throw std::runtime_error("The file is empty");
    std::filesystem::remove(file);
    return time;
}

double yardstick()
{
    const auto begin = Clock::now();
    Child recorder({ "parec", "--latency-msec=10", "--raw", "--channels=1" });
    recorder.bytes(65536);
    return millisecondsSince(begin);
}

double median(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + rounds / 2, values.end());
    return values[rounds / 2];
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const SoundServer server;
    // Keeps the virtual microphone at work in short blocks, as a real one is.
    const Child reader(
        { "sh", "-c", "exec parec --device=mic --latency-msec=10 --raw >/dev/null" });
    GstRecorder recorder;
    recorder.prepare();
    const auto file = std::filesystem::temp_directory_path()
        / ("vesko-bench-" + std::to_string(QCoreApplication::applicationPid()) + ".m4a");
    ours(recorder, file); // the first ones load plugins and libraries from the disk
    yardstick();

    std::vector<double> own;
    std::vector<double> others;
    for (int i = 0; i < rounds; ++i) {
        own.push_back(ours(recorder, file));
        others.push_back(yardstick());
    }
    const double ratio = median(own) / median(others);
    std::printf("key press to first sample, vs the sound server's recorder, ms"
                "\t%.1f\t%.1f\t%.2f\t%.2f\t%s\n",
        median(own), median(others), ratio, aim, ratio <= aim ? "met" : "over");
}

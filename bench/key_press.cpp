// Our own share of a key press, with a library of 10,000 notes: from the trigger until the recorder
// is told to take in sound. Everything behind the controller is a machine in memory.

#include "VeskoApp/shell/AppModel.h"
#include "VeskoCore/base/AtomicFile.h"
#include "VeskoCore/base/JsonWriter.h"
#include "bench/Budget.h"
#include "bench/SampleLibrary.h"
#include "tests/fakes/EventLoop.h"
#include "tests/fakes/FakePlatform.h"

#include <QCoreApplication>
#include <QTemporaryDir>

using namespace vesko;

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const std::filesystem::path root = folder.path().toStdString();
    AtomicFile(FileSystem::posix(), root / "library.json")
        .write(JsonWriter::write(bench::sampleLibrary(), JsonWriter::Form::pretty));

    FakePlatform platform;
    platform.settings.set("provider", SettingValue{ std::string("apple") });
    AppModel model(
        platform.all, [&] { return std::make_unique<LibraryStore>(root, platform.clock); },
        OpenRouterClient("https://provider.example/api/v1/"));
    if (!eventually([&] { return model.library().ready(); }))
        return 1;
    std::vector<double> taken;
    for (int round = 0; round < bench::rounds; ++round) {
        taken.push_back(bench::seconds([&] {
            model.capture().toggleDictation();
            return eventually([&] { return platform.recorder.running(); });
        }));
        if (!eventually([&] { return model.capture().phase() == Phase::recording; }))
            return 1;
        model.capture().toggleDictation();
        if (!eventually([&] { return model.capture().phase() == Phase::idle; }))
            return 1;
    }
    bench::report(
        "key press to the recorder's start call, vs 5 ms", bench::median(taken), 0.005, 1);
}

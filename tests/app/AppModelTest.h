#pragma once

#include "VeskoApp/shell/AppModel.h"
#include "tests/fakes/EventLoop.h"
#include "tests/fakes/FailingFileSystem.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <memory>

namespace vesko {

constexpr const char* storageText
    = "Vesko could not save this change. Check free disk space and access to the data folder.";

// A controller over a library in a temporary folder, on a machine that works, whose user has
// chosen on-device speech.
class AppModelTest : public testing::Test {
protected:
    AppModelTest() { choose("provider", std::string("apple")); }
    ~AppModelTest() override { hurryDisk(); }

    // Before open: what the settings hold when the program starts.
    template <class T>
    void choose(const std::string& key, T value)
    {
        machine.settings.values.insert_or_assign(key, SettingValue{ value });
    }

    // The program starts, and is ready.
    void open()
    {
        start();
        ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
        drainEvents();
    }
    // The program starts.
    void start()
    {
        model = std::make_unique<AppModel>(
            machine.all,
            [this] {
                m_diskReady.wait(false);
                return std::make_unique<LibraryStore>(root(), machine.clock, files);
            },
            OpenRouterClient(openRouterURL, openRouterTransport), analytics, accounts);
    }
    // Before the start: the library takes until hurryDisk to be opened.
    void slowDisk() { m_diskReady = false; }
    void hurryDisk()
    {
        m_diskReady = true;
        m_diskReady.notify_all();
    }

    void dictate()
    {
        model->capture().toggleDictation();
        ASSERT_TRUE(reach(Phase::recording));
    }
    // Ends the capture under way and lets its run end.
    void finish()
    {
        model->capture().toggleDictation();
        ASSERT_TRUE(reach(Phase::idle));
    }
    [[nodiscard]] bool reach(Phase phase)
    {
        return eventually([&] { return model->capture().phase() == phase; });
    }
    // No change of the library can be saved until repairStore.
    void breakStore() const
    {
        if (std::filesystem::exists(root() / "library.json"))
            std::filesystem::rename(root() / "library.json", root() / "aside");
        std::filesystem::create_directory(root() / "library.json");
    }
    void repairStore() const
    {
        std::filesystem::remove(root() / "library.json");
        if (std::filesystem::exists(root() / "aside"))
            std::filesystem::rename(root() / "aside", root() / "library.json");
    }

    std::filesystem::path root() const { return folder.path() / "Vesko"; }
    const Note& onlyNote() const
    {
        EXPECT_EQ(model->library().contents().notes.size(), 1U);
        return model->library().contents().notes.back();
    }
    const Recording& onlyRecording() const
    {
        EXPECT_EQ(onlyNote().recordings.size(), 1U);
        return onlyNote().recordings.back();
    }
    const TranscriptionAttempt& onlyAttempt() const
    {
        EXPECT_EQ(onlyRecording().attempts.size(), 1U);
        return onlyRecording().attempts.back();
    }
    std::filesystem::path audioFile() const
    {
        return root() / "recordings" / onlyRecording().fileName;
    }

    TemporaryFolder folder;
    FailingFileSystem files; // as the library sees it
    FakePlatform machine;
    std::string openRouterURL = "http://127.0.0.1:1/api/v1/";
    HttpTransport openRouterTransport;
    AnalyticsBundle analytics;
    AccountDeployment accounts;
    std::unique_ptr<AppModel> model; // ends before the machine

private:
    std::atomic<bool> m_diskReady = true;
};

} // namespace vesko

#include "VeskoApp/exchange/LibraryExchange.h"

#include "tests/app/library/LibraryTest.h"
#include "tests/fakes/Files.h"

#include <QFile>

namespace vesko {
namespace {

struct LibraryExchangeTest : LibraryTest {
    QWindow above;
    const std::filesystem::path archive = folder.path() / "all.zip";

    LibraryExchange& exchange() { return model->exchange(); }
    static QString shown(const std::filesystem::path& path)
    {
        return QFile::decodeName(path.c_str());
    }
    [[nodiscard]] bool ended()
    {
        return eventually([&] { return exchange().work().isEmpty(); });
    }
    std::string told() { return model->status().message(); }
    std::string complained() { return model->status().errorMessage(); }
    void exportAll()
    {
        exchange().exportTo(shown(archive));
        ASSERT_TRUE(ended());
        ASSERT_EQ(told(), "Library exported");
    }
    // The library is emptied, behind the back of what runs.
    void openAnother()
    {
        model.reset();
        std::filesystem::rename(root(), folder.path() / "aside");
        open();
    }
};

TEST_F(LibraryExchangeTest, ALibraryThatIsRefusedIsLeftAlone)
{
    std::filesystem::create_directories(root());
    putBytes(root() / "library.json", "{");
    start();
    ASSERT_TRUE(eventually([&] { return !model->library().refusal().empty(); }));
    drainEvents();
    exchange().exportTo(shown(archive));
    EXPECT_TRUE(exchange().work().isEmpty());
    EXPECT_FALSE(std::filesystem::exists(archive));
}

TEST_F(LibraryExchangeTest, TheLibraryGoesOutAndIntoAnother)
{
    open();
    write("Balcony", "tomatoes");
    hear(write("Voice", ""), "hello");
    exportAll();

    openAnother();
    exchange().importFrom(shown(archive));
    ASSERT_TRUE(ended());
    EXPECT_EQ(told(), "Notes imported: 2");
    const auto& notes = model->library().contents().notes;
    ASSERT_EQ(notes.size(), 2U);
    EXPECT_EQ(notes[0].title, "Balcony");
    EXPECT_FALSE(std::filesystem::exists(root() / "recordings" / ".import"));

    exchange().importFrom(shown(archive));
    ASSERT_TRUE(ended());
    EXPECT_EQ(told(), "All notes of this archive are here already.");
    EXPECT_EQ(model->library().contents().notes.size(), 2U);
}

TEST_F(LibraryExchangeTest, TheDesktopIsAskedForTheFile)
{
    open();
    int exportPaths = 0;
    int importPaths = 0;
    QObject::connect(
        &exchange(), &LibraryExchange::exportPathWanted, [&exportPaths] { ++exportPaths; });
    QObject::connect(
        &exchange(), &LibraryExchange::importPathWanted, [&importPaths] { ++importPaths; });
    exchange().chooseExport(&above);
    ASSERT_EQ(machine.fileChooser.asked.size(), 1U);
    EXPECT_EQ(machine.fileChooser.asked[0].title, "Export library…");
    EXPECT_TRUE(machine.fileChooser.asked[0].file.filename().string().ends_with(".zip"));
    machine.fileChooser.answer.set({ FileChooser::Answer::cancelled, {} });
    drainEvents();
    EXPECT_EQ(exchange().work(), QString());

    exchange().chooseExport(&above);
    machine.fileChooser.answer.set({ FileChooser::Answer::unavailable, {} });
    exchange().chooseImport(&above);
    machine.fileChooser.answer.set({ FileChooser::Answer::unavailable, {} });
    drainEvents();
    EXPECT_EQ(exportPaths, 1);
    EXPECT_EQ(importPaths, 1);

    exchange().chooseExport(&above);
    machine.fileChooser.answer.set({ FileChooser::Answer::chosen, archive });
    ASSERT_TRUE(ended());
    EXPECT_TRUE(std::filesystem::exists(archive));
}

TEST_F(LibraryExchangeTest, WhatIsCancelledLeavesNothing)
{
    open();
    write("Balcony", "tomatoes");
    const auto before = contentOf(root());
    exchange().exportTo(shown(archive));
    EXPECT_EQ(exchange().work(), QStringLiteral("Exporting the library…"));
    exchange().cancel();
    ASSERT_TRUE(ended());
    EXPECT_EQ(told(), "Cancelled. Nothing was changed.");
    EXPECT_EQ(complained(), "");
    EXPECT_FALSE(std::filesystem::exists(archive));

    exportAll();
    exchange().importFrom(shown(archive));
    EXPECT_EQ(exchange().work(), QStringLiteral("Importing…"));
    exchange().cancel();
    ASSERT_TRUE(ended());
    EXPECT_EQ(told(), "Cancelled. Nothing was changed.");
    EXPECT_EQ(contentOf(root()), before);
}

TEST_F(LibraryExchangeTest, OneThingGoesOnAtATime)
{
    open();
    exchange().exportTo(shown(archive));
    exchange().exportTo(shown(folder.path() / "second.zip"));
    ASSERT_TRUE(ended());
    drainEvents();
    EXPECT_TRUE(std::filesystem::exists(archive));
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "second.zip"));
}

TEST_F(LibraryExchangeTest, WhatGoesWrongIsSaidInWords)
{
    open();
    putBytes(archive, "words");
    exchange().importFrom(shown(archive));
    ASSERT_TRUE(ended());
    EXPECT_EQ(complained(),
        "This file is no library that Vesko has exported, or it is damaged. Nothing was changed.");
    exchange().exportTo(QStringLiteral("/proc/all.zip"));
    ASSERT_TRUE(ended());
    EXPECT_EQ(complained(),
        "Vesko could not complete this operation. Your saved files were preserved. Check the data "
        "folder and try again.");
    exchange().exportTo(QStringLiteral("/dev/full"));
    ASSERT_TRUE(ended());
    EXPECT_NE(complained(), "");
}

TEST_F(LibraryExchangeTest, ADictationGoesOnBesideIt)
{
    open();
    dictate();
    exportAll();
    EXPECT_EQ(model->capture().phase(), Phase::recording);
    finish();
    EXPECT_EQ(model->library().contents().notes.size(), 1U);
}

TEST_F(LibraryExchangeTest, WhatAKilledImportLeftGoesAtTheStart)
{
    const auto remains = root() / "recordings" / ".import";
    std::filesystem::create_directories(remains);
    putBytes(remains / "library.json", "{}");
    open();
    EXPECT_TRUE(eventually([&] { return !std::filesystem::exists(remains); }));
}

} // namespace
} // namespace vesko

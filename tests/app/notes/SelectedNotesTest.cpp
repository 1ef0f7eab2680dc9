// What is done with the notes that are selected, and what of it can be taken back.

#include "VeskoApp/notes/SelectedNotes.h"
#include "VeskoApp/notes/NoteDrag.h"
#include "tests/app/library/LibraryTest.h"
#include "tests/fakes/Files.h"

#include <QDir>
#include <QUrl>

namespace vesko {

namespace {

class SelectedNotesTest : public LibraryTest {
protected:
    void open()
    {
        LibraryTest::open();
        selected = std::make_unique<SelectedNotes>(machine.clock, machine.fileChooser,
            model->library(), model->selection(), model->notes(), model->status());
        garden = makeProject("Garden");
        first = write("Balcony", "tomatoes");
        second = write("Errands", "bread");
        third = write("other", "");
        model->notes().assign({ { second, garden } });
        EXPECT_TRUE(eventually([&] { return note(second).projectID == garden; }));
        model->selection().setSelectedNoteID(first);
        model->selection().toggle(second);
    }
    bool isOffered(const QString& text)
    {
        return eventually([&] { return selected->undoText() == text; });
    }
    static QString text(const Uuid& id) { return QString::fromStdString(id.text()); }

    std::unique_ptr<SelectedNotes> selected; // ends before the model
    Uuid garden, first, second, third;
};

TEST_F(SelectedNotesTest, SeveralSayHowManyTheyAre)
{
    open();
    EXPECT_EQ(selected->count(), 2);
    EXPECT_EQ(selected->title(), QStringLiteral("2 notes selected"));
    EXPECT_EQ(selected->trashQuestion(), QStringLiteral("Move 2 notes to Trash?"));
    EXPECT_EQ(selected->removeQuestion(),
        QStringLiteral("Delete 2 notes and their recordings permanently?"));
}

TEST_F(SelectedNotesTest, SeveralGoToTheTrashAndAreTakenBackAtOnce)
{
    open();
    selected->trash();
    EXPECT_EQ(selected->undoText(), QString()); // until they are there
    ASSERT_TRUE(isOffered(QStringLiteral("2 notes moved to Trash")));
    EXPECT_TRUE(note(first).deletedAt && note(second).deletedAt && !note(third).deletedAt);
    EXPECT_EQ(selected->count(), 0);
    model->selection().setSelectedProjectID(garden);
    selected->undo();
    ASSERT_TRUE(eventually([&] { return !note(first).deletedAt && !note(second).deletedAt; }));
    EXPECT_EQ(selected->count(), 2); // both are shown again
    EXPECT_EQ(selected->undoText(), QString());
}

TEST_F(SelectedNotesTest, SeveralGoToAProjectAndBackToWhereEachWas)
{
    open();
    model->selection().toggle(third);
    selected->assign(text(garden)); // where one of them is already
    ASSERT_TRUE(isOffered(QStringLiteral("2 notes moved to another project")));
    EXPECT_EQ(note(first).projectID, garden);
    EXPECT_EQ(note(third).projectID, garden);
    selected->undo();
    ASSERT_TRUE(eventually([&] { return !note(first).projectID; }));
    EXPECT_EQ(note(second).projectID, garden);
    EXPECT_EQ(note(third).projectID, std::nullopt);

    selected->assign({});
    ASSERT_TRUE(isOffered(QStringLiteral("Note moved to another project")));
    EXPECT_EQ(note(second).projectID, std::nullopt);
    selected->undo();
    ASSERT_TRUE(eventually([&] { return note(second).projectID == garden; }));
}

TEST_F(SelectedNotesTest, WhatChangesNothingCanNotBeTakenBack)
{
    open();
    model->selection().setSelectedNoteID(second);
    selected->assign(text(garden));
    drainEvents();
    EXPECT_EQ(selected->undoText(), QString());
}

TEST_F(SelectedNotesTest, OnceOneIsElsewhereNothingIsTakenBack)
{
    open();
    selected->trash();
    ASSERT_TRUE(isOffered(QStringLiteral("2 notes moved to Trash")));
    model->notes().restore({ first });
    ASSERT_TRUE(isOffered({}));
    selected->undo();
    drainEvents();
    EXPECT_TRUE(note(second).deletedAt);
}

TEST_F(SelectedNotesTest, TheLastMoveIsTheOneThatIsTakenBack)
{
    open();
    selected->assign(text(garden));
    ASSERT_TRUE(isOffered(QStringLiteral("Note moved to another project")));
    selected->trash();
    ASSERT_TRUE(isOffered(QStringLiteral("2 notes moved to Trash")));
    machine.clock.turn(9);
    EXPECT_NE(selected->undoText(), QString());
    machine.clock.turn(1);
    EXPECT_EQ(selected->undoText(), QString());
}

TEST_F(SelectedNotesTest, SeveralAreRestoredAndDeletedForGood)
{
    open();
    selected->trash();
    ASSERT_TRUE(isOffered(QStringLiteral("2 notes moved to Trash")));
    model->selection().setShowingTrash(true);
    model->selection().selectAll();
    selected->restore();
    ASSERT_TRUE(eventually([&] { return !note(first).deletedAt && !note(second).deletedAt; }));
    model->notes().trash({ first, second });
    ASSERT_TRUE(eventually([&] { return note(first).deletedAt.has_value(); }));
    model->selection().selectAll();
    selected->deletePermanently();
    ASSERT_TRUE(eventually([&] { return !model->library().note(first); }));
    EXPECT_FALSE(model->library().note(second));
    EXPECT_TRUE(model->library().note(third));
}

TEST_F(SelectedNotesTest, SeveralAreExportedIntoTheFolderThatTheUserNames)
{
    open();
    QWindow above;
    selected->chooseExport(&above);
    ASSERT_EQ(machine.fileChooser.asked.size(), 1U);
    EXPECT_TRUE(std::filesystem::is_directory(machine.fileChooser.asked[0].file.parent_path()));
    model->selection().setSelectedNoteID(third); // it stays with those that were asked for
    machine.fileChooser.answer.set({ FileChooser::Answer::chosen, folder.path() });
    ASSERT_TRUE(eventually([&] { return model->status().message() == "Markdown exported"; }));
    EXPECT_EQ(bytesOf(folder.path() / "Balcony.md"), "# Balcony\n\ntomatoes\n");
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "Errands.md"));
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "other.md"));
}

TEST_F(SelectedNotesTest, WithoutADialogThePathOfAFolderIsAskedForHere)
{
    open();
    QWindow above;
    int wanted = 0;
    QObject::connect(selected.get(), &SelectedNotes::exportPathWanted, [&] { ++wanted; });
    selected->chooseExport(&above);
    machine.fileChooser.answer.set({ FileChooser::Answer::unavailable, {} });
    drainEvents();
    EXPECT_EQ(wanted, 1);
    EXPECT_TRUE(selected->exportPath().startsWith(u'~'));
    selected->exportTo(QString::fromStdString(folder.path().string()));
    ASSERT_TRUE(eventually([&] { return model->status().message() == "Markdown exported"; }));
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "Errands.md"));
}

struct NoteDragTest : SelectedNotesTest {
    std::shared_ptr<QTemporaryDir> dragFolder = std::make_shared<QTemporaryDir>();
    int failures = 0;

    std::unique_ptr<NoteDrag> drag(std::set<Uuid> ids)
    {
        return std::make_unique<NoteDrag>(model->library().contents(), std::move(ids), dragFolder,
            [this](const std::exception_ptr&) { ++failures; });
    }
    std::size_t filesWritten() const
    {
        return QDir(dragFolder->path()).entryList(QDir::Files).size();
    }
};

TEST_F(NoteDragTest, ItsFilesAreWrittenOnceAProgramAsksForThem)
{
    open();
    const auto dragged = drag({ first, second });
    EXPECT_EQ(dragged->formats(), (QStringList{ NoteDrag::ours, QStringLiteral("text/uri-list") }));
    EXPECT_TRUE(dragged->hasFormat(NoteDrag::ours));
    EXPECT_FALSE(dragged->data(NoteDrag::ours).isEmpty());
    EXPECT_EQ(filesWritten(), 0U);
    const auto urls = dragged->urls();
    ASSERT_EQ(urls.size(), 2);
    EXPECT_EQ(bytesOf(urls[0].toLocalFile().toStdString()), "# Balcony\n\ntomatoes\n");
    EXPECT_EQ(urls[1].fileName(), QStringLiteral("Errands.md"));
    EXPECT_FALSE(dragged->data(QStringLiteral("text/uri-list")).isEmpty());
    EXPECT_EQ(filesWritten(), 2U);
    EXPECT_EQ(failures, 0);
}

TEST_F(NoteDragTest, AFileThatCannotBeWrittenIsToldAndNothingIsDropped)
{
    open();
    const auto dragged = drag({ first });
    dragFolder->remove();
    EXPECT_TRUE(dragged->urls().isEmpty());
    EXPECT_EQ(failures, 1);
}

TEST_F(NoteDragTest, MoreThanSomeAreForOurOwnPlacesAlone)
{
    open();
    std::set<Uuid> many;
    while (many.size() <= NoteDrag::mostFiles)
        many.insert(Uuid::random());
    const auto dragged = drag(std::move(many));
    EXPECT_EQ(dragged->formats(), QStringList{ NoteDrag::ours });
    EXPECT_TRUE(dragged->urls().isEmpty());
}

TEST_F(SelectedNotesTest, WithoutASelectionNothingIsDone)
{
    open();
    model->selection().setSelectedNoteID(std::nullopt);
    const auto before = model->library().contents();
    QWindow above;
    selected->trash();
    selected->restore();
    selected->deletePermanently();
    selected->assign(text(garden));
    selected->chooseExport(&above);
    drainEvents();
    EXPECT_EQ(model->library().contents(), before);
    EXPECT_TRUE(machine.fileChooser.asked.empty());
}

} // namespace

} // namespace vesko

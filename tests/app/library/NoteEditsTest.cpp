// What has been typed and is not on disk.

#include "tests/app/library/LibraryTest.h"

namespace vesko {

namespace {

using NoteEditsTest = LibraryTest;

TEST_F(NoteEditsTest, AnEditIsPendingUntilItIsSaved)
{
    open();
    const auto id = write("", "");
    const NoteEdits::PendingEdit edit{ "Title", "Text", "" };
    model->edits().setPending(id, edit);
    EXPECT_EQ(model->edits().pending().at(id), edit);
    awaited(savedEdit(id, edit));
    EXPECT_TRUE(model->edits().pending().empty());
    EXPECT_EQ(note(id).title, "Title");
    EXPECT_EQ(note(id).body, "Text");
}

TEST_F(NoteEditsTest, ANewerEditStaysPending)
{
    open();
    const auto id = write("", "");
    for (const NoteEdits::PendingEdit& newer : { NoteEdits::PendingEdit{ "Title!", "Text", "" },
             { "Title", "Text!", "" }, { "Title", "Text", "!" } }) {
        model->edits().setPending(id, newer);
        awaited(savedEdit(id, { "Title", "Text", "" }));
        EXPECT_EQ(model->edits().pending().at(id), newer);
    }
}

TEST_F(NoteEditsTest, AFailedSaveKeepsTheEditAndTheQuitTriesAgain)
{
    open();
    const auto id = write("", "");
    model->edits().setPending(id, { "", "typed", "" });
    breakStore();
    EXPECT_TRUE(eventually([failed = model->edits().save(id, { "", "typed", "" }), this] {
        return model->status().errorMessage() == storageFailed;
    }));
    EXPECT_EQ(model->edits().pending().size(), 1U);
    model->status().dismissError();
    EXPECT_EQ(model->status().errorMessage(), "");
    EXPECT_FALSE(awaited(model->prepareToQuit()));
    EXPECT_EQ(model->status().errorMessage(), storageFailed);
    repairStore();
    EXPECT_TRUE(awaited(model->prepareToQuit()));
    EXPECT_EQ(note(id).body, "typed");
}

TEST_F(NoteEditsTest, QuittingAtOnceWritesEveryPendingEdit)
{
    open();
    const auto first = write("", "");
    const auto second = write("", "");
    model->edits().setPending(first, { "One", "1", "" });
    model->edits().setPending(second, { "Two", "2", "" });
    EXPECT_TRUE(awaited(model->prepareToQuit()));
    model.reset();
    const LibraryStore store(root(), machine.clock);
    EXPECT_EQ(store.snapshot().notes[0].body, "1");
    EXPECT_EQ(store.snapshot().notes[1].body, "2");
}

} // namespace

} // namespace vesko

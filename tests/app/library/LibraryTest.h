#pragma once

#include "tests/app/AppModelTest.h"

namespace vesko {

// A controller over a library that is made note by note.
class LibraryTest : public AppModelTest {
protected:
    // A new text note, saved with this text and selected.
    Uuid write(const std::string& title, const std::string& body)
    {
        const auto before = model->library().contents().notes.size();
        model->notes().newNote();
        EXPECT_TRUE(eventually([&] { return model->library().contents().notes.size() > before; }));
        const auto id = model->library().contents().notes.back().id;
        machine.clock.turn(1); // no two changes fall on one moment
        awaited(savedEdit(id, { title, body, "" }));
        return id;
    }
    // The edit has been saved, or throws why not.
    Task<> savedEdit(Uuid id, NoteEdits::PendingEdit edit)
    {
        if (const auto failure = co_await model->edits().save(id, std::move(edit)))
            std::rethrow_exception(failure);
    }
    const Note& note(const Uuid& id) const { return *model->library().note(id); }
    Uuid makeProject(const std::string& name)
    {
        const auto before = model->library().contents().projects.size();
        model->notes().createProject(name);
        EXPECT_TRUE(
            eventually([&] { return model->library().contents().projects.size() > before; }));
        return model->library().contents().projects.back().id;
    }
    void moveToTrash(const Uuid& id)
    {
        model->notes().trash({ id });
        ASSERT_TRUE(eventually([&] { return note(id).deletedAt.has_value(); }));
    }
    // A transcript lands in the note from its first recording, or from one more.
    void hear(const Uuid& id, const std::string& words)
    {
        machine.clock.turn(1);
        model->selection().setSelectedNoteID(id);
        model->capture().recordNote(true);
        ASSERT_TRUE(reach(Phase::recording));
        machine.recognizer.hears = words;
        model->capture().recordNote(true);
        ASSERT_TRUE(reach(Phase::idle));
    }
};

inline const std::string storageFailed
    = "Vesko could not save this change. Check free disk space and access to the data folder.";

} // namespace vesko

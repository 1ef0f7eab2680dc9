#pragma once

#include "tests/app/capture/AppModelTest.h"

namespace vesko {

// A controller over a library that is made note by note.
class LibraryTest : public AppModelTest {
protected:
    // A new text note, saved with this text and selected.
    Uuid write(const std::string& title, const std::string& body)
    {
        const auto before = model->library().notes.size();
        model->newNote();
        EXPECT_TRUE(eventually([&] { return model->library().notes.size() > before; }));
        const auto id = model->library().notes.back().id;
        machine.clock.turn(1); // no two changes fall on one moment
        awaited(model->editNote(id, { title, body, "" }));
        return id;
    }
    const Note& note(const Uuid& id) const { return *model->note(id); }
    Uuid makeProject(const std::string& name)
    {
        const auto before = model->library().projects.size();
        model->createProject(name);
        EXPECT_TRUE(eventually([&] { return model->library().projects.size() > before; }));
        return model->library().projects.back().id;
    }
    void moveToTrash(const Uuid& id)
    {
        model->trash(note(id), false);
        ASSERT_TRUE(eventually([&] { return note(id).deletedAt.has_value(); }));
    }
    // A transcript lands in the note from its first recording, or from one more.
    void hear(const Uuid& id, const std::string& words)
    {
        machine.clock.turn(1);
        model->setSelectedNoteID(id);
        model->recordNote(true);
        ASSERT_TRUE(reach(Phase::recording));
        machine.recognizer.hears = words;
        model->recordNote(true);
        ASSERT_TRUE(reach(Phase::idle));
    }
};

inline const std::string storageFailed
    = "Vesko could not save this change. Check free disk space and access to the data folder.";

} // namespace vesko

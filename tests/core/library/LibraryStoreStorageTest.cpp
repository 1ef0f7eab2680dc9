#include "tests/core/library/LibraryFixture.h"

#include <gmock/gmock.h>

namespace vesko {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class LibraryStoreStorageTest : public LibraryFixture {
protected:
    // A note with a recording of this moment that was heard, with its audio.
    Uuid heard(const std::string& text = "words")
    {
        const auto note = store.createNote(NoteKind::voice, std::nullopt);
        const auto recording = store.beginRecording(note.id);
        putBytes(store.audioURL(recording), "sound");
        store.finishRecording(recording.id, 3);
        if (!text.empty())
            store.completeAttempt(recording.id,
                store.beginAttempt(recording.id, "OpenRouter", "model", std::nullopt).id,
                { text, text, {}, {}, {} });
        clock.turn(1h);
        return note.id;
    }
    const Note& note(const Uuid& id) const
    {
        return *std::ranges::find(store.snapshot().notes, id, &Note::id);
    }
    const Recording& recording(const Uuid& id) const { return note(id).recordings.at(0); }
    std::filesystem::path audio(const Uuid& id) const
    {
        return root / "recordings" / recording(id).fileName;
    }
    bool hasAudio(const Uuid& id) const { return std::filesystem::exists(audio(id)); }
    Uuid trashed()
    {
        const auto id = heard();
        store.trashNotes({ id });
        clock.turn(1h);
        return id;
    }

    // Nothing can remove what stands there until it is a file again.
    void pin(const Uuid& id) const
    {
        std::filesystem::remove(audio(id));
        std::filesystem::create_directory(audio(id));
    }
    void unpin(const Uuid& id) const
    {
        std::filesystem::remove(audio(id));
        putBytes(audio(id), "sound");
    }

    LibraryStore store{ root, clock };
};

TEST_F(LibraryStoreStorageTest, OldAudioGoesAndItsTextStays)
{
    const auto old = heard();
    const auto before = clock.now();
    const auto young = heard();
    const auto kept = note(old);

    EXPECT_EQ(store.giveUpAudio(before), 1U);
    EXPECT_EQ(recording(old).audioRemovedAt, clock.now());
    EXPECT_FALSE(recording(young).audioRemovedAt);
    EXPECT_TRUE(hasAudio(old)) << "the mark comes first";
    store.clearRemovedAudio();
    EXPECT_FALSE(hasAudio(old));
    EXPECT_TRUE(hasAudio(young));

    EXPECT_EQ(note(old).body, kept.body);
    EXPECT_EQ(note(old).updatedAt, kept.updatedAt);
    EXPECT_EQ(recording(old).attempts, kept.recordings[0].attempts);
    EXPECT_EQ(saved(), onDisk(store.snapshot()));
    EXPECT_EQ(store.giveUpAudio(before), 0U);
}

TEST_F(LibraryStoreStorageTest, WhatIsNotHeardYetKeepsItsAudio)
{
    const auto silent = heard("");
    const auto again = heard();
    store.beginAttempt(recording(again).id, "OpenRouter", "model", std::nullopt);
    const auto running = store.createNote(NoteKind::voice, std::nullopt);
    store.beginRecording(running.id);
    clock.turn(1h);
    EXPECT_EQ(store.giveUpAudio(clock.now()), 0U);
    for (const auto& id : { silent, again, running.id })
        EXPECT_FALSE(recording(id).audioRemovedAt);
}

TEST_F(LibraryStoreStorageTest, WhatAKillLeftGoesLater)
{
    const auto id = heard();
    store.giveUpAudio(clock.now());
    const auto marked = store.snapshot();
    pin(id);
    EXPECT_THROW(store.clearRemovedAudio(), std::system_error);
    unpin(id);
    store.clearRemovedAudio();
    EXPECT_FALSE(hasAudio(id));
    store.clearRemovedAudio();
    EXPECT_EQ(store.snapshot(), marked);
}

TEST_F(LibraryStoreStorageTest, NothingIsMarkedThatCannotBeSaved)
{
    const auto id = heard();
    std::filesystem::remove(root / "library.json");
    std::filesystem::create_directory(root / "library.json");
    EXPECT_THROW(store.giveUpAudio(clock.now()), VeskoError);
    EXPECT_FALSE(recording(id).audioRemovedAt);
    EXPECT_TRUE(hasAudio(id));
}

TEST_F(LibraryStoreStorageTest, RemovedAudioIsNotTranscribedAgain)
{
    const auto id = heard();
    store.giveUpAudio(clock.now());
    try {
        store.beginAttempt(recording(id).id, "OpenRouter", "model", std::nullopt);
        ADD_FAILURE() << "transcribed";
    } catch (const VeskoError& error) {
        EXPECT_EQ(error.kind(), VeskoError::notFound);
    }
}

TEST_F(LibraryStoreStorageTest, TheTrashIsEmptiedUpToAMoment)
{
    const auto kept = heard();
    const auto old = trashed();
    const auto before = clock.now();
    const auto young = trashed();
    const auto itsAudio = audio(old);

    EXPECT_THAT(store.emptyTrash(before), ElementsAre(old));
    EXPECT_FALSE(std::filesystem::exists(itsAudio));
    ASSERT_EQ(store.snapshot().notes.size(), 2U);
    EXPECT_TRUE(hasAudio(kept));
    EXPECT_TRUE(hasAudio(young));
    EXPECT_EQ(saved(), onDisk(store.snapshot()));
    EXPECT_EQ(bytesOf(root / "library.backup.json"), bytesOf(root / "library.json"))
        << "nothing of it is left in the backup";
    EXPECT_THAT(store.emptyTrash(before), IsEmpty());
}

TEST_F(LibraryStoreStorageTest, ANoteWhoseAudioStaysIsNotForgotten)
{
    const auto first = trashed();
    trashed();
    pin(first);
    EXPECT_THROW(store.emptyTrash(clock.now()), std::system_error);
    ASSERT_EQ(store.snapshot().notes.size(), 1U);
    EXPECT_EQ(store.snapshot().notes[0].id, first);
    EXPECT_TRUE(hasAudio(first));
}

} // namespace
} // namespace vesko

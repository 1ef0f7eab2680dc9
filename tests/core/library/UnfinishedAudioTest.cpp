// The program was ended while it made a recording's file an ordinary one.

#include "tests/core/library/LibraryFixture.h"

namespace vesko {
namespace {

std::string box(const std::string& name, const std::string& content, bool large = false)
{
    const auto number = [](std::uint64_t value, int bytes) {
        std::string text;
        while (bytes-- > 0)
            text += char(value >> unsigned(bytes * 8));
        return text;
    };
    return large ? number(1, 4) + name + number(content.size() + 16, 8) + content
                 : number(content.size() + 8, 4) + name + content;
}

const std::string grown
    = box("ftyp", "grown") + box("moov", "") + box("moof", "") + box("mdat", "sound");
const std::string whole = box("ftyp", "whole") + box("mdat", "sound", true) + box("moov", "index");

class UnfinishedAudioTest : public LibraryFixture {
protected:
    // What stands in the place of the recording once the library has been opened, and whether
    // there is something beside it.
    std::pair<std::string, bool> afterOpening(
        RecordingStatus status, const std::string& audio, const std::string& beside)
    {
        std::filesystem::remove_all(root);
        const auto recording = recordingWith(status);
        putNote(recording);
        std::filesystem::create_directories(root / "recordings");
        const auto path = root / "recordings" / recording.fileName;
        const auto other = path.string() + ".tmp";
        if (!audio.empty())
            putBytes(path, audio);
        putBytes(other, beside);
        const LibraryStore store(root, clock);
        return { bytesOf(path), std::filesystem::exists(other) };
    }
};

TEST_F(UnfinishedAudioTest, WhatIsWholeTakesItsPlace)
{
    for (const auto status : { RecordingStatus::recording, RecordingStatus::recorded,
             RecordingStatus::transcribing, RecordingStatus::interrupted, RecordingStatus::failed })
        for (const auto& audio : { grown, std::string() })
            EXPECT_EQ(afterOpening(status, audio, whole), std::pair(whole, false)) << label(status);
}

TEST_F(UnfinishedAudioTest, WhatIsCutAnywhereGoes)
{
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_EQ(afterOpening(RecordingStatus::recording, grown, whole.substr(0, length)),
            std::pair(grown, false))
            << length;
}

TEST_F(UnfinishedAudioTest, WhatIsCutStaysWhereThereIsNothingElse)
{
    const auto cut = whole.substr(0, 30);
    EXPECT_EQ(afterOpening(RecordingStatus::recording, "", cut), std::pair(std::string(), true));
}

TEST_F(UnfinishedAudioTest, NonsenseIsNotWhole)
{
    for (const auto& beside : { std::string("noise noise noise"), std::string(16, '\0'), grown,
             box("ftyp", "") + std::string("\0\0\0\1moov\0\0\0\0\0\0\0\0", 16), whole + "more" })
        EXPECT_EQ(afterOpening(RecordingStatus::recording, grown, beside), std::pair(grown, false));
    std::string many;
    for (int count = 0; count < 100; ++count)
        many += box("free", "");
    EXPECT_EQ(afterOpening(RecordingStatus::recording, grown, many + box("moov", "")),
        std::pair(grown, false));
}

TEST_F(UnfinishedAudioTest, NothingElseIsTouched)
{
    const auto recording = recordingWith(RecordingStatus::recording);
    putNote(recording);
    const auto recordings = root / "recordings";
    std::filesystem::create_directories(recordings);
    const auto path = (recordings / recording.fileName).string();
    putBytes(path, grown);
    putBytes(recordings / "another.m4a.tmp", "a user's");
    putBytes(folder.path() / "elsewhere", whole);
    std::filesystem::create_symlink(folder.path() / "elsewhere", path + ".tmp");
    const LibraryStore store(root, clock);
    EXPECT_EQ(store.snapshot().notes.size(), 1U);
    EXPECT_EQ(bytesOf(path), grown);
    EXPECT_EQ(bytesOf(recordings / "another.m4a.tmp"), "a user's");
    EXPECT_TRUE(std::filesystem::is_symlink(path + ".tmp"));
}

TEST_F(UnfinishedAudioTest, WhateverFailsTheNextOpeningMendsIt)
{
    int opened = 0;
    for (int at = 0;; ++at) {
        std::filesystem::remove_all(root);
        const auto recording = recordingWith(RecordingStatus::interrupted);
        putNote(recording);
        std::filesystem::create_directories(root / "recordings");
        const auto path = (root / "recordings" / recording.fileName).string();
        putBytes(path, grown);
        putBytes(path + ".tmp", whole);
        FailingFileSystem files;
        files.fault = FailingFileSystem::Fault::error;
        files.number = EIO;
        files.at = at;
        try {
            const LibraryStore store(root, clock, files);
            EXPECT_EQ(store.snapshot().notes.size(), 1U);
            ++opened;
        } catch (const std::exception&) {
            EXPECT_EQ(bytesOf(path), grown); // not as far as that
        }
        const LibraryStore store(root, clock);
        EXPECT_EQ(bytesOf(path), whole);
        EXPECT_FALSE(std::filesystem::exists(path + ".tmp"));
        if (files.calls <= at)
            break;
    }
    EXPECT_GT(opened, 5); // it is no reason not to open the library
}

} // namespace
} // namespace vesko

#include "VeskoCore/library/Note.h"

#include "tests/core/Repeated.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

using enum NoteKind;

Note noteWith(NoteKind kind, const std::string& title, const std::string& body)
{
    Note note;
    note.kind = kind;
    note.title = title;
    note.body = body;
    return note;
}

// A recording with one attempt for each of these texts.
Recording recordingWith(const std::vector<std::optional<std::string>>& texts)
{
    Recording recording;
    for (const auto& text : texts) {
        recording.attempts.emplace_back();
        recording.attempts.back().text = text;
    }
    return recording;
}

TEST(NoteTitle, IsTheTitleOrTheFirstLineOrAKey)
{
    struct Case {
        const char* name;
        NoteKind kind;
        std::string title, body, displayTitle, listTitle;
    };
    for (const auto& [name, kind, title, body, displayTitle, listTitle] : {
             Case{ "title", text, "title", "body", "title", "title" },
             Case{ "title of a capture", dictation, "title", "body", "title", "title" },
             Case{ "title with white space around", voice, "\n title\u2003", "", "title", "title" },
             Case{ "first line", text, "", "first\nsecond", "first", "first" },
             Case{ "first line of a dictation", dictation, "", "first\nsecond", "first",
                 "Dictation" },
             Case{ "first line of a voice note", voice, " \n", "first", "first", "Voice note" },
             Case{ "empty lines are dropped", text, "", "\n\r\n\u2029first\r\nsecond", "first",
                 "first" },
             Case{ "a line of blanks stands", text, "", "  \nsecond", "  ", "  " },
             Case{ "the line is not trimmed", text, " ", " first \n", " first ", " first " },
             Case{ "nothing typed", text, "", "\n\n", "Untitled note", "Untitled note" },
             Case{ "nothing dictated", dictation, " ", "\n\n", "Voice capture", "Dictation" },
             Case{ "nothing said", voice, "", "", "Voice capture", "Voice note" },
             Case{ "80 characters of 100", text, "", repeated("x", 100), repeated("x", 80),
                 repeated("x", 80) },
             Case{ "80 characters of several code points", text, "",
                 repeated("👩‍👩‍👧", 81), repeated("👩‍👩‍👧", 80),
                 repeated("👩‍👩‍👧", 80) },
             Case{ "a title is not cut", text, repeated("x", 100), "", repeated("x", 100),
                 repeated("x", 100) },
         }) {
        const auto note = noteWith(kind, title, body);
        EXPECT_EQ(note.displayTitle(), displayTitle) << name;
        EXPECT_EQ(note.listTitle(), listTitle) << name;
    }
}

TEST(NoteTitle, HasAPromptForEachKind)
{
    EXPECT_STREQ(noteWith(dictation, "x", "").untitledLabel(), "Dictation");
    EXPECT_STREQ(noteWith(voice, "x", "").untitledLabel(), "Voice note");
    EXPECT_STREQ(noteWith(text, "x", "").untitledLabel(), "Note title");
}

TEST(ClipboardText, IsTitleAndTextOrTheOneThereIs)
{
    struct Case {
        const char* name;
        std::string title, body, expected;
    };
    for (const auto& [name, title, body, expected] : {
             Case{ "both", "title", "body", "title\n\nbody" },
             Case{ "white space around both", " title\n", "\n\n body \n", "title\n\nbody" },
             Case{ "no title", " ", " body\nmore ", "body\nmore" },
             Case{ "no text", " title ", " \n", "title" },
             Case{ "neither", " ", "\n", "" },
             Case{ "the text opens with the title", "A", " \tA \t\nB", "A \t\nB" },
             Case{ "the text is the title", "A", "A", "A" },
             Case{ "with another line end", "A", "A\r\nB", "A\r\nB" },
             Case{ "with a separator of lines", "A", "A\u2028B", "A\u2028B" },
             Case{ "in another encoding", "caf\u00e9", "cafe\u0301\nB", "cafe\u0301\nB" },
             Case{ "in another case", "A", "a\nB", "A\n\na\nB" },
             Case{ "as the beginning of a line", "A", "A B", "A\n\nA B" },
             Case{ "in the second line", "A", "B\nA", "A\n\nB\nA" },
         })
        EXPECT_EQ(noteWith(text, title, body).clipboardText(), expected) << name;
}

TEST(ClipboardText, OfABlankBodyIsTheNewestThatWasHeard)
{
    struct Case {
        const char* name;
        std::string title, body;
        std::vector<Recording> recordings;
        std::string expected;
    };
    const auto none = recordingWith({ std::nullopt });
    for (const auto& [name, title, body, recordings, expected] : {
             Case{ "one recording", "", " ", { recordingWith({ " heard\n" }) }, "heard" },
             Case{ "the last of two", "", "",
                 { recordingWith({ "old" }), recordingWith({ "new" }) }, "new" },
             Case{ "the last has no text", "", "", { recordingWith({ "old" }), none, Recording() },
                 "old" },
             Case{ "the last has a blank text", "title", "",
                 { recordingWith({ "old" }), recordingWith({ " " }) }, "title" },
             Case{ "a later attempt failed", "", "", { recordingWith({ "heard", std::nullopt }) },
                 "heard" },
             Case{ "none has a text", "", "", { none }, "" },
             Case{ "a body goes first", "", "body", { recordingWith({ "heard" }) }, "body" },
             Case{ "what was heard opens with the title", "A", "", { recordingWith({ "A\nB" }) },
                 "A\nB" },
         }) {
        auto note = noteWith(dictation, title, body);
        note.recordings = recordings;
        EXPECT_EQ(note.clipboardText(), expected) << name;
    }
}

} // namespace
} // namespace vesko

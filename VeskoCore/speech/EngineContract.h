#pragma once

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// What Vesko and a speech engine, a program of its own, say to each other; docs/engines.md is the
// contract. Pure functions, any thread.
namespace vesko {

// The engine didn't keep to the contract, or said that it can't. Holds nothing that it wrote.
class EngineFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// How an engine introduces itself.
struct EngineHello {
    std::string name = {}; // of lower-case letters, digits, '.', '-' and '_'
    std::string version = {};
    std::string licence = {};
    std::vector<std::string> languages = {}; // tags
    bool detectsLanguage = false;
    int longestPiece = 12; // seconds of sound that it wants at once

    bool operator==(const EngineHello&) const = default;

    // Whether it speaks the language of a tag in some region, or for "auto" finds it out itself.
    bool speaks(std::string_view tag) const;
};

// Takes an engine's first lines one by one, without their ends, until it is ready.
class EngineHelloReader {
public:
    // Whether that was the last one. Throws EngineFailure for what no engine of this contract says.
    bool take(std::string_view line);
    // After the last one.
    const EngineHello& hello() const { return m_hello; }

private:
    std::size_t m_lines = 0;
    EngineHello m_hello;
};

// What an engine heard in one piece of sound.
struct EngineAnswer {
    std::string text = {}; // trimmed; empty for no words
    std::optional<std::string> language = {}; // the tag that it found
    std::optional<std::string> model = {}; // that it used

    bool operator==(const EngineAnswer&) const = default;
};

// Takes the lines of one answer, without their ends, until it is whole.
class EngineAnswerReader {
public:
    // Whether that was the last one. Throws EngineFailure for an answer that is none, and if the
    // engine says that it failed.
    bool take(std::string_view line);
    const EngineAnswer& answer() const { return m_answer; }

private:
    std::size_t m_lines = 0;
    EngineAnswer m_answer;
};

// The lines that Vesko sends, each with its end. What a line can't hold becomes a blank.
std::string engineLanguageLine(std::string_view tag);
std::string enginePromptLine(std::string_view words);
std::string enginePieceLine(std::size_t bytes);

// A program's output as a text of one line: blanks for line ends and other control characters, and
// none at its ends. Throws EngineFailure for bytes that are not UTF-8.
std::string spokenText(std::string_view output);

} // namespace vesko

#include "VeskoCore/speech/EngineContract.h"

#include "VeskoCore/base/Text.h"
#include "VeskoCore/speech/SpokenLanguage.h"

#include <algorithm>
#include <charconv>
#include <simdjson.h>
#include <utility>

namespace vesko {

namespace {

constexpr std::size_t mostLines = 64;
constexpr std::size_t longestName = 40, longestTag = 35; // a tag as BCP 47 asks programs to take

// The first word and what stands behind it.
std::pair<std::string_view, std::string_view> wordAndRest(std::string_view line)
{
    const auto blank = line.find(' ');
    return blank == std::string_view::npos
        ? std::pair{ line, std::string_view() }
        : std::pair{ line.substr(0, blank), trimmed(line.substr(blank)) };
}

bool consistsOf(std::string_view text, std::string_view others)
{
    return std::ranges::all_of(text, [&](char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || others.contains(c);
    });
}

bool isName(std::string_view text)
{
    return !text.empty() && text.size() <= longestName && consistsOf(text, ".-_");
}

bool isTag(std::string_view text)
{
    return !text.empty() && text.size() <= longestTag
        && consistsOf(text, "ABCDEFGHIJKLMNOPQRSTUVWXYZ-");
}

std::string requiredTag(std::string_view text)
{
    if (!isTag(text))
        throw EngineFailure("the engine named a language that is none");
    return std::string(text);
}

int pieceSeconds(std::string_view text)
{
    int seconds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    if (error != std::errc() || end != text.data() + text.size() || seconds < 5 || seconds > 60)
        throw EngineFailure("the engine asked for pieces of no length");
    return seconds;
}

// Of bytes that are UTF-8.
std::string withoutControls(std::string_view text)
{
    std::string plain(text);
    std::ranges::replace_if(plain, [](unsigned char c) { return c < 0x20 || c == 0x7F; }, ' ');
    return plain;
}

std::string checkedLine(std::string_view line, std::size_t& lines)
{
    if (++lines > mostLines)
        throw EngineFailure("the engine said too much");
    return spokenText(line);
}

} // namespace

bool EngineHello::speaks(std::string_view tag) const
{
    if (tag == "auto")
        return detectsLanguage;
    return std::ranges::any_of(languages, [wanted = SpokenLanguage::code(tag)](const auto& own) {
        return SpokenLanguage::code(own) == wanted;
    });
}

bool EngineHelloReader::take(std::string_view line)
{
    const std::string text = checkedLine(line, m_lines);
    const auto [word, rest] = wordAndRest(text);
    if (m_lines == 1) {
        if (word != "vesko-engine" || rest != "1")
            throw EngineFailure("the program is no engine of this contract");
    } else if (word == "name") {
        if (!isName(rest))
            throw EngineFailure("the engine's name is none");
        m_hello.name = rest;
    } else if (word == "version") {
        m_hello.version = firstCharacters(rest, longestName);
    } else if (word == "licence") {
        m_hello.licence = firstCharacters(rest, longestName);
    } else if (word == "languages") {
        std::string_view left = rest;
        while (!left.empty()) {
            const auto [tag, others] = wordAndRest(left);
            if (tag == "auto")
                m_hello.detectsLanguage = true;
            else
                m_hello.languages.push_back(requiredTag(tag));
            left = others;
        }
    } else if (word == "longest") {
        m_hello.longestPiece = pieceSeconds(rest);
    } else if (word == "ready") {
        if (m_hello.name.empty() || m_hello.version.empty() || m_hello.licence.empty()
            || (m_hello.languages.empty() && !m_hello.detectsLanguage))
            throw EngineFailure("the engine didn't introduce itself");
        return true;
    }
    return false; // other words are for later contracts
}

bool EngineAnswerReader::take(std::string_view line)
{
    const std::string text = checkedLine(line, m_lines);
    const auto [word, rest] = wordAndRest(text);
    if (word == "text") {
        m_answer.text = rest;
        return true;
    }
    if (word == "failed")
        throw EngineFailure("the engine failed");
    if (word == "language") {
        m_answer.language = requiredTag(rest);
    } else if (word == "model") {
        if (rest.empty())
            throw EngineFailure("the engine's model has no name");
        m_answer.model = firstCharacters(rest, longestName);
    } else {
        throw EngineFailure("the engine's answer is none");
    }
    return false;
}

std::string engineLanguageLine(std::string_view tag)
{
    return "language " + withoutControls(tag) + "\n";
}

std::string enginePromptLine(std::string_view words)
{
    return "prompt " + withoutControls(words) + "\n";
}

std::string enginePieceLine(std::size_t bytes)
{
    return "piece " + std::to_string(bytes) + "\n";
}

std::string spokenText(std::string_view output)
{
    if (!simdjson::validate_utf8(output))
        throw EngineFailure("the engine's words are no text");
    const std::string plain = withoutControls(output);
    return std::string(trimmed(plain));
}

} // namespace vesko

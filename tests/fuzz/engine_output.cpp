// Bytes are what a speech engine writes: its introduction, and then answer by answer. Whatever they
// are, an engine is refused or what is taken from it keeps what it promises; and its words as one
// text do, too.

#include "VeskoCore/base/Text.h"
#include "VeskoCore/speech/EngineContract.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <simdjson.h>
#include <string>
#include <string_view>

using namespace vesko;

namespace {

void require(bool kept)
{
    if (!kept)
        std::abort();
}

// What is shown, and stored in the library.
void requireOneLine(std::string_view text)
{
    require(simdjson::validate_utf8(text.data(), text.size()));
    require(
        std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x20; }));
}

std::string_view nextLine(std::string_view& output)
{
    const auto end = std::min(output.find('\n'), output.size());
    const auto line = output.substr(0, end);
    output.remove_prefix(std::min(end + 1, output.size()));
    return line;
}

void listenTo(std::string_view output)
{
    EngineHelloReader introduction;
    while (!introduction.take(nextLine(output)))
        if (output.empty())
            return;
    const auto& hello = introduction.hello();
    require(!hello.name.empty() && hello.longestPiece > 0);
    require(hello.detectsLanguage || !hello.languages.empty());
    require(hello.name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-._")
        == std::string::npos);
    requireOneLine(hello.version);
    requireOneLine(hello.licence);
    for (const auto& tag : hello.languages)
        require(hello.speaks(tag));
    while (!output.empty()) {
        EngineAnswerReader reader;
        while (!reader.take(nextLine(output)))
            if (output.empty())
                return;
        requireOneLine(reader.answer().text);
        require(trimmed(reader.answer().text) == reader.answer().text);
        if (reader.answer().model)
            requireOneLine(*reader.answer().model);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view output(reinterpret_cast<const char*>(data), size);
    try {
        listenTo(output);
    } catch (const EngineFailure&) {
    }
    try {
        requireOneLine(spokenText(output));
    } catch (const EngineFailure&) {
    }
    return 0;
}

#pragma once

#include <optional>
#include <string>

// What a chat model is told to do with a transcript. Pure functions, any thread.
namespace vesko::TextTransform {

// The system prompt for cleaning a dictation up, translating it into the language of a tag, or
// both. Nothing if neither is wanted.
std::optional<std::string> instructions(
    bool cleanup, const std::optional<std::string>& translateTo);

} // namespace vesko::TextTransform

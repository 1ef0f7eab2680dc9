#pragma once

#include <optional>

// Questions to the sound server, which block until it has answered: never on the main thread. Any
// other thread.
namespace vesko {

// Whether the sound server has a microphone. Opens none.
bool microphoneExists();
// Whether the default microphone can be opened and gives sound within three seconds.
bool microphoneOpens();
// The loudest that the default microphone gives within a second, in decibels (0 is full, silence
// -350); none if it can't be opened.
std::optional<double> microphoneLevel();

} // namespace vesko

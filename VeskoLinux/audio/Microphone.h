#pragma once

// Questions to the sound server, which block until it has answered: never on the main thread. Any
// other thread.
namespace vesko {

// Whether the sound server has a microphone. Opens none.
bool microphoneExists();
// Whether the default microphone can be opened and gives sound within three seconds.
bool microphoneOpens();

} // namespace vesko

#pragma once

#include <cstdint>

namespace vesko {

// Whether a program inside this terminal reads a line that it doesn't show, which is how passwords
// are asked for: one of the pseudo-terminals of the terminal's descendants has its echo off and
// still reads by the line. Of several in one terminal any will do. What is behind a multiplexer or
// another machine can't be seen. Takes some tens of microseconds for each process; any thread.
bool terminalHidesWhatIsTyped(std::int32_t terminalProcess);

} // namespace vesko

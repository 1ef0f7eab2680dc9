#pragma once

namespace vesko {

// On X11 the clipboard's content is gone with the program that copied it. Leaves this program's
// content behind, if it is still there when the program ends: with the clipboard manager, where the
// desktop runs one, else with a process of its own, which serves it until someone copies anything.
// Takes a tenth of a second, half of one at most. Main thread, before the application object goes.
void leaveClipboardBehind();

// That process: reads from its standard input the window that has the clipboard, as a number on a
// line, and serves the content behind that, unless another window has it by then. Gives its exit
// code.
int keepClipboard(int argc, char** argv);
inline constexpr const char* keepClipboardArgument = "--keep-clipboard";

} // namespace vesko

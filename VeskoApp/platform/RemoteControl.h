#pragma once

#include <QString>

#include <cstdint>
#include <functional>

namespace vesko {

// What a script, a bar or a shortcut of the desktop can ask of the running program.
// The last two say that the gesture key went down and up.
enum class RemoteCommand : std::uint8_t {
    toggle,
    start,
    stop,
    cancel,
    show,
    quit,
    press,
    release,
};

enum class RemoteAnswer : std::uint8_t {
    done,
    notNow, // nothing has changed: there is nothing to stop, or something else goes on
    failed, // it was tried; the program shows why
};

// What the program is doing, without a word of the user's.
struct RemoteStatus {
    // "ready", "preparing", "recording" or "processing"; "unavailable" while the library is not
    // open.
    QString state;
    QString title; // the same in the user's language
    double elapsed = 0; // seconds of the recording that runs
};

// Steers the program from outside. Whoever can call needs no other permission: it is the user's
// own session. Main thread.
class RemoteControl {
public:
    using Answer = std::move_only_function<void(RemoteAnswer)>;

    virtual ~RemoteControl() = default;

    // Has to call `answer` once, now or later.
    std::function<void(RemoteCommand, Answer answer)> onCommand;
    // What is told to whoever asks.
    std::function<RemoteStatus()> status;
    // Whether a shortcut of the program's own is in force.
    std::function<bool()> hasShortcut;
    // Tells those who follow that the state is another one.
    virtual void changed(const RemoteStatus& status) = 0;
};

} // namespace vesko

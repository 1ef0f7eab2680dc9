#pragma once

#include "VeskoLinux/command/StatusText.h"

#include <dbus/dbus.h>

#include <optional>

namespace vesko {

// The Vesko that runs, as the session bus reaches it. Of one thread, which it blocks.
class Bus {
public:
    enum class Outcome { done, failed, notNow, absent };
    struct Heard {
        enum What { report, owner, stranger, nothing, busEnded } what;
        ProgramStatus status; // with `report`; its seconds are not told
    };

    // Throws std::runtime_error if there is no session bus.
    Bus();
    Bus(const Bus&) = delete;
    Bus& operator=(const Bus&) = delete;
    ~Bus();

    // Calls a method that takes and gives nothing.
    Outcome call(const char* method) const;
    // "stopped" if nobody answers.
    ProgramStatus status() const;
    bool isThere() const;

    // From here on wait() hears of each status, and of the program's coming and going.
    void listen() const;
    // Until the next of these comes, or until the file descriptor `other` has one of these events
    // of poll, or an error; -1 for none. No longer than that many milliseconds; -1 for no end.
    Heard wait(int other, short events, int milliseconds) const;

private:
    DBusConnection* m_connection = nullptr;
};

} // namespace vesko

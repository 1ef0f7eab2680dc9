#pragma once

#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/capture/Phase.h"
#include "VeskoApp/platform/RemoteControl.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace vesko {

// Does what is asked from outside, and answers when it is known how that went: a start when the
// recording runs, a stop or cancel that comes during the start when that is over. So a script, or a
// desktop that says when a key goes down and up, can send one after the other without waiting.
// Main thread.
class RemoteCommands {
public:
    // The program as the commands need it.
    struct Program {
        std::function<Phase()> phase;
        std::function<bool()> ready; // the library is open
        std::function<QString()> title; // of what goes on
        std::function<double()> elapsed; // seconds of the recording
        std::function<void()> start; // a dictation, while idle; may refuse by staying idle
        std::function<void()> stop; // while recording
        // What is recorded is kept and not transcribed, what is being transcribed is given up.
        // False if there is neither.
        std::function<bool()> cancel;
        std::function<void()> show;
        std::function<void()> quit;
        std::function<void(bool down)> gestureKey; // went down or up
        std::function<bool()> hasShortcut; // of its own, in force
    };

    RemoteCommands(RemoteControl& control, EventClock& clock, Program program);
    ~RemoteCommands();

    // The phase or the readiness may be another one. To be called behind each change.
    void changed();

private:
    // Of a start that somebody waits for: until the library is open, in the call, and from then on.
    enum class Start { none, opening, asking, begun };
    // An end that was asked for while a start is under way.
    struct End {
        bool isCancel;
        RemoteControl::Answer answer;
    };

    void command(RemoteCommand command, RemoteControl::Answer answer);
    bool isRepeat();
    void start(RemoteControl::Answer answer);
    void begin();
    void started(RemoteAnswer outcome);
    void end(End end);
    void endAll();
    RemoteStatus status() const;

    RemoteControl& m_control;
    EventClock& m_clock;
    Program m_program;
    QString m_toldState;
    Start m_start = Start::none;
    RemoteControl::Answer m_starter;
    std::vector<End> m_ends;
    Timer m_patience;
    std::optional<double> m_toggledAt; // uptime of the last toggle, repeats included
};

} // namespace vesko

#include "VeskoApp/shell/RemoteCommands.h"

#include <utility>

namespace vesko {

namespace {

constexpr double openingPatience = 20; // seconds
// A desktop runs the command of a shortcut again and again while it is held: for the first time
// after this at the latest, and then much faster.
constexpr double repeatDelay = 0.7; // seconds

} // namespace

RemoteCommands::RemoteCommands(RemoteControl& control, EventClock& clock, Program program)
    : m_control(control)
    , m_clock(clock)
    , m_program(std::move(program))
    , m_patience(clock)
{
    m_control.onCommand
        = [this](RemoteCommand wanted, auto answer) { command(wanted, std::move(answer)); };
    m_control.status = [this] { return status(); };
    m_control.hasShortcut = m_program.hasShortcut;
}

RemoteCommands::~RemoteCommands()
{
    m_control.onCommand = nullptr;
    m_control.status = nullptr;
    m_control.hasShortcut = nullptr;
}

void RemoteCommands::command(RemoteCommand command, RemoteControl::Answer answer)
{
    switch (command) {
    case RemoteCommand::toggle:
        if (isRepeat())
            answer(RemoteAnswer::notNow);
        else if (m_program.phase() == Phase::recording)
            end({ false, std::move(answer) });
        else
            start(std::move(answer));
        break;
    case RemoteCommand::start:
        start(std::move(answer));
        break;
    case RemoteCommand::stop:
    case RemoteCommand::cancel:
        end({ command == RemoteCommand::cancel, std::move(answer) });
        break;
    case RemoteCommand::show:
        m_program.show();
        answer(RemoteAnswer::done);
        break;
    case RemoteCommand::press:
    case RemoteCommand::release:
        m_program.gestureKey(command == RemoteCommand::press);
        answer(RemoteAnswer::done);
        break;
    case RemoteCommand::quit:
        answer(RemoteAnswer::done); // while there is somebody to say so
        m_program.quit();
        break;
    }
}

bool RemoteCommands::isRepeat()
{
    const double now = m_clock.uptime();
    const auto before = std::exchange(m_toggledAt, now);
    return before && now - *before < repeatDelay;
}

void RemoteCommands::start(RemoteControl::Answer answer)
{
    if (m_start != Start::none || m_program.phase() != Phase::idle) {
        answer(RemoteAnswer::notNow);
        return;
    }
    m_starter = std::move(answer);
    if (m_program.ready()) {
        begin();
        return;
    }
    m_start = Start::opening;
    m_patience.start(openingPatience, [this] { started(RemoteAnswer::failed); });
}

void RemoteCommands::begin()
{
    m_patience.cancel();
    m_start = Start::asking;
    m_program.start();
    m_start = Start::begun;
    if (m_program.phase() == Phase::idle)
        started(RemoteAnswer::notNow);
    else
        changed();
}

void RemoteCommands::started(RemoteAnswer outcome)
{
    m_start = Start::none;
    m_patience.cancel();
    std::exchange(m_starter, nullptr)(outcome);
    endAll();
}

void RemoteCommands::end(End end)
{
    if (m_start != Start::none || m_program.phase() == Phase::preparing) {
        m_ends.push_back(std::move(end));
    } else if (m_program.phase() == Phase::recording) {
        if (end.isCancel)
            m_program.cancel();
        else
            m_program.stop();
        end.answer(RemoteAnswer::done);
    } else if (end.isCancel && m_program.cancel()) {
        end.answer(RemoteAnswer::done);
    } else {
        end.answer(RemoteAnswer::notNow);
    }
}

void RemoteCommands::endAll()
{
    for (auto& each : std::exchange(m_ends, {}))
        end(std::move(each));
}

void RemoteCommands::changed()
{
    const auto now = status();
    if (std::exchange(m_toldState, now.state) != now.state)
        m_control.changed(now);
    const Phase phase = m_program.phase();
    if (m_start == Start::opening && m_program.ready())
        begin();
    else if (m_start == Start::begun && phase != Phase::preparing)
        started(phase == Phase::idle ? RemoteAnswer::failed : RemoteAnswer::done);
    else if (m_start == Start::none && phase != Phase::preparing)
        endAll();
}

RemoteStatus RemoteCommands::status() const
{
    const auto state = [this] {
        switch (m_program.phase()) {
        case Phase::idle:
            return m_program.ready() ? "ready" : "unavailable";
        case Phase::preparing:
            return "preparing";
        case Phase::recording:
            return "recording";
        case Phase::processing:
            return "processing";
        }
        return "unavailable";
    }();
    const bool isRecording = m_program.phase() == Phase::recording;
    return { QString::fromLatin1(state), m_program.title(),
        isRecording ? m_program.elapsed() : 0.0 };
}

} // namespace vesko

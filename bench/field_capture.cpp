// Reading the field that has the focus, as it is done at a key press, and all that is looked at
// before the paste is sent into it, the sending included. Started by desktop.py while an editor has
// it; the argument names the editor.

#include "VeskoApp/async/QtClock.h"
#include "VeskoLinux/accessibility/AtspiFocusedField.h"
#include "VeskoLinux/input/SentKeys.h"
#include "VeskoLinux/input/X11GlobalShortcut.h"
#include "VeskoLinux/input/X11PasteKeystroke.h"
#include "bench/Budget.h"
#include "tests/fakes/EventLoop.h"
#include "tests/fakes/FakeSessionState.h"

#include <QCoreApplication>

using namespace vesko;

namespace {

Task<FieldReading> reading(AtspiFocusedField& fields)
{
    co_return co_await fields.read(std::nullopt);
}

// What FocusDestination does at the end of a dictation. Whether the keys were sent.
Task<bool> checkedPaste(AtspiFocusedField& fields, PasteKeystroke& keystroke)
{
    co_await keystroke.keysReleased();
    const FieldReading now = co_await fields.read(std::nullopt);
    co_return now.element && !co_await keystroke.send(*now.element);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QtClock clock;
    AtspiFocusedField fields(clock);
    if (!eventually([&] { return awaited(reading(fields)).value.has_value(); }))
        return 1;
    std::vector<double> taken;
    for (int round = 0; round < 50; ++round)
        taken.push_back(bench::seconds([&] { awaited(reading(fields)); }));
    bench::report(std::string("reading the focused field of ") + argv[1] + ", vs 3 ms",
        bench::median(taken), 0.003, 1);

    SentKeys sent(clock);
    X11GlobalShortcut shortcut;
    FakeSessionState session;
    X11PasteKeystroke keystroke(sent, shortcut, session, clock);
    taken.clear();
    for (int round = 0; round < 50; ++round) {
        bool pasted = false;
        taken.push_back(bench::seconds([&] { pasted = awaited(checkedPaste(fields, keystroke)); }));
        if (!pasted)
            return 1;
    }
    bench::report(std::string("checks at the keystroke into ") + argv[1] + ", vs 5 ms",
        bench::median(taken), 0.005, 1);
}

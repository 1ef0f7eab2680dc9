// Reading the field that has the focus, as it is done at a key press. Started by desktop.py while
// an editor has it; the argument names the editor.

#include "VeskoApp/async/QtClock.h"
#include "VeskoLinux/accessibility/AtspiFocusedField.h"
#include "bench/Budget.h"
#include "tests/fakes/EventLoop.h"

#include <QCoreApplication>

using namespace vesko;

namespace {

Task<FieldReading> reading(AtspiFocusedField& fields)
{
    co_return co_await fields.read(std::nullopt);
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
}

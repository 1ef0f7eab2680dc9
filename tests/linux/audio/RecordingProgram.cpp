// Records into the file that it is given until it is killed, and prints how many tenths of a second
// it has heard. Gives up if there is no sound within the milliseconds that it is given.

#include "VeskoApp/async/TaskScope.h"
#include "VeskoLinux/audio/GstRecorder.h"

#include <QCoreApplication>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    vesko::GstRecorder recorder{ std::chrono::milliseconds(std::atoi(argv[2])) };
    vesko::TaskScope tasks;
    recorder.open();
    tasks.spawn(recorder.start(argv[1]));
    QTimer tick;
    QObject::connect(&tick, &QTimer::timeout, [&recorder, said = 0]() mutable {
        for (; said < recorder.currentTime() * 10; ++said) {
            std::printf("%d\n", said);
            std::fflush(stdout);
        }
    });
    tick.start(20);
    return QCoreApplication::exec();
}

#include "VeskoLinux/desktop/DesktopSession.h"

#include "VeskoLinux/desktop/SessionLog.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QTimer>

#include <chrono>
#include <memory>

namespace vesko {

Q_LOGGING_CATEGORY(sessionLog, "app.vesko.session", QtInfoMsg)

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 4500ms; // of a log-out, before it goes on without us

} // namespace

DesktopSession::DesktopSession()
{
    m_logind.onSleep = [this](Done done) {
        if (onSleep)
            onSleep(std::move(done));
        else
            done();
    };
    m_logind.onShutdown = m_portal.onEnd = [this](Done done) {
        if (onEnd)
            onEnd(std::move(done));
        else
            done();
    };
    // Now, not from the event loop: the session manager takes the return for the answer.
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &DesktopSession::end,
        Qt::DirectConnection);
}

// Everything else goes on meanwhile, which what is being kept needs too.
void DesktopSession::end()
{
    if (!onEnd)
        return;
    const auto waiting = std::make_shared<QEventLoop>();
    const auto ended = std::make_shared<bool>(false);
    QTimer::singleShot(patience, waiting.get(), &QEventLoop::quit);
    onEnd([waiting, ended] {
        *ended = true;
        waiting->quit();
    });
    if (!*ended)
        waiting->exec();
}

} // namespace vesko

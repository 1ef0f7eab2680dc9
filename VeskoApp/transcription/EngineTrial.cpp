#include "VeskoApp/transcription/EngineTrial.h"

#include "VeskoApp/status/CaptureFailure.h"
#include "VeskoApp/status/SafeMessage.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <QLocale>

#include <utility>

namespace vesko {

namespace {

constexpr double longestSentence = 12; // seconds
constexpr const char* soundName = "trial.m4a";

} // namespace

// Whatever ends a trial leaves nothing behind.
class EngineTrial::Turn {
public:
    explicit Turn(Neighbours& to)
        : m_to(to)
    {
        clear(m_to.folder);
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn()
    {
        m_to.recorder.stop();
        clear(m_to.folder);
        m_to.engines.giveBack();
        m_to.capture.endProcessing();
    }
    std::filesystem::path sound() const { return m_to.folder / soundName; }

private:
    Neighbours& m_to;
};

void EngineTrial::clear(const std::filesystem::path& folder)
{
    std::error_code ignored;
    std::filesystem::remove(folder / soundName, ignored);
}

EngineTrial::EngineTrial(Neighbours neighbours)
    : m_to(std::move(neighbours))
    , m_longest(m_to.clock)
{
}

void EngineTrial::start(const QString& id)
{
    if (m_busy)
        return;
    m_engine = id;
    if (!m_to.library.ready() || !m_to.capture.beginProcessing()) {
        say(translated(L10N_KEY("Vesko", "Vesko is busy. Try again in a moment.")));
        return;
    }
    m_busy = true;
    say({});
    m_tasks.spawn(run(id.toStdString()));
}

void EngineTrial::stop()
{
    if (const auto spoken = std::exchange(m_spoken, std::nullopt))
        spoken->set({});
}

Task<> EngineTrial::run(std::string id)
{
    QString outcome;
    try {
        outcome = co_await tried(std::move(id));
    } catch (const std::exception&) {
        outcome = translated(safeMessage(std::current_exception()));
    }
    m_spoken.reset();
    m_longest.cancel();
    m_busy = false;
    say(outcome);
}

Task<QString> EngineTrial::tried(std::string id)
{
    const Turn turn(m_to);
    if (!co_await m_to.engines.lend(id))
        co_return translated(L10N_KEY("Vesko", "This engine isn't there."));
    const auto settings = CaptureSettings::from(m_to.preferences, m_to.library.contents());
    m_to.recorder.open();
    auto heard = m_to.onDevice.listen(settings);
    m_to.recorder.setListener(heard ? heard->listener() : nullptr);
    try {
        co_await m_to.recorder.start(turn.sound());
    } catch (const std::exception&) {
        co_return translated(L10N_KEY(
            "Vesko", "The microphone could not start. Check your audio input and try again."));
    }
    const auto spoken = m_spoken.emplace();
    m_longest.start(longestSentence, [this] { stop(); });
    Q_EMIT changed();
    co_await spoken;
    m_longest.cancel();
    Q_EMIT changed();

    const double stopped = m_to.clock.uptime();
    m_to.recorder.stop();
    co_await m_to.recorder.finished();
    const auto result = co_await m_to.onDevice.transcribe(turn.sound(), settings, std::move(heard));
    const double took = m_to.clock.uptime() - stopped;
    co_return translated(L10N_KEY("Vesko", "“%1”, %2 seconds after the end"))
        .arg(QString::fromStdString(result.text), QLocale().toString(took, 'f', 1));
}

void EngineTrial::say(const QString& outcome)
{
    m_outcome = outcome;
    Q_EMIT changed();
}

} // namespace vesko

// From the stop of a long recording to its text, which was recognised while it was made, against
// the same for its end alone; and what the search for a voice costs.

#include "VeskoLinux/speech/EngineRecognizer.h"
#include "VeskoLinux/speech/SpeechSamples.h"
#include "VeskoLinux/speech/VoiceActivity.h"
#include "VeskoLinux/speech/engines/PocketSphinxEngine.h"
#include "bench/Budget.h"
#include "tests/fakes/TemporaryFolder.h"
#include "tests/linux/audio/EventLoop.h"
#include "tests/linux/speech/Voice.h"

#include <QCoreApplication>

#include <atomic>
#include <chrono>
#include <thread>

using namespace vesko;

namespace {

constexpr double aim = 1.3, gateAim = 0.01;
constexpr int ownRounds = 3; // where each takes seconds of work; minutes are measured once

// PocketSphinx, and how many pieces it has done.
class Counting final : public SpeechEngine {
public:
    mutable std::atomic<std::size_t> done = 0;
    mutable std::atomic<bool> begun = false;

    std::string name() const override { return m_engine.name(); }
    bool speaks(const std::string& language) const override { return m_engine.speaks(language); }
    int longestPiece() const override { return m_engine.longestPiece(); }
    std::unique_ptr<Session> begin(const Wish& wish, std::stop_token stop) const override
    {
        struct Counted final : Session {
            EngineAnswer heard(std::span<const std::int16_t> piece) override
            {
                auto answer = session->heard(piece);
                ++engine->done;
                return answer;
            }
            const Counting* engine = nullptr;
            std::unique_ptr<Session> session;
        };
        auto counted = std::make_unique<Counted>();
        counted->engine = this;
        counted->session = m_engine.begin(wish, std::move(stop));
        // The model is loaded within the first second of speech; a piece of silence waits for it.
        counted->session->heard(std::vector<std::int16_t>(1600, 0));
        begun = true;
        return counted;
    }

private:
    PocketSphinxEngine m_engine{ VESKO_POCKETSPHINX };
};

// All that can be done before the stop has been done, as it has where people speak no faster than
// the engine works.
double stopToText(std::span<const std::int16_t> speech)
{
    const auto engine = std::make_shared<Counting>();
    EngineRecognizer recognizer(engine);
    auto hearing = recognizer.hear("en");
    const auto listener = hearing->listener();
    listener->take(speech);
    std::size_t before = 0;
    for (auto left = speech; const auto cut = firstSpeechPiece(left, engine->longestPiece());
        left = left.subspan(*cut))
        ++before;
    while (!engine->begun || engine->done != before)
        std::this_thread::sleep_for(std::chrono::milliseconds(1)); // takes a minute or so
    bool text = false;
    return bench::seconds([&] {
        listener->end(true);
        const auto recognition = recognizer.recognize(
            "", "en", [&](const auto& report) { text = report.isFinal; }, std::move(hearing));
        runUntil([&] { return text; });
    });
}

template <class Work>
double medianOf(int rounds, Work work)
{
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i)
        times.push_back(work());
    return bench::median(times);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const TemporaryFolder folder;
    const auto spoken = folder.path() / "spoken.m4a", minutes = folder.path() / "minutes.m4a";
    voice::speak({ voice::brother, voice::coffee, "the meeting begins at nine in the morning",
                     voice::coffee, voice::brother },
        spoken);
    voice::repeat(spoken, 300, minutes);
    const auto all = speechSamples(minutes, {});
    const std::span<const std::int16_t> speech(all);
    const auto minute = speech.first(std::size_t{ 60 } * speechRate);
    // Quiet enough not to be told at a glance.
    std::vector<std::int16_t> noise(minute.size());
    for (std::size_t i = 0; i < noise.size(); ++i)
        noise[i] = static_cast<std::int16_t>((i * 2654435761U >> 20) % 60);
    bench::report("the speech gate, vs the minute that it looks at",
        medianOf(ownRounds, [&] { return bench::seconds([&] { mayHoldSpeech(noise); }); }), 60,
        gateAim);
    const struct {
        std::size_t seconds;
        int rounds;
    } rows[] = { { 60, ownRounds }, { 300, 1 } };
    for (const auto& row : rows) {
        const auto part = speech.first(std::min(speech.size(), row.seconds * speechRate));
        const double ours = medianOf(row.rounds, [&] { return stopToText(part); });
        const double yardstick = medianOf(
            ownRounds, [&] { return stopToText(part.last(std::size_t{ 12 } * speechRate)); });
        bench::report("stop to text after " + std::to_string(row.seconds)
                + " s of speech, vs its last 12 s alone",
            ours, yardstick, aim);
    }
}

#include "VeskoLinux/speech/RecordingRecognition.h"

#include "VeskoLinux/speech/SpeechSamples.h"
#include "tests/linux/speech/FakeEngine.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <thread>

namespace vesko {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

// Something like speech for the detector: bursts of a low buzz with pauses between.
std::vector<std::int16_t> babble(double seconds, unsigned seed)
{
    std::mt19937 random(seed);
    std::vector<std::int16_t> samples;
    const auto count = static_cast<std::size_t>(seconds * speechRate);
    while (samples.size() < count) {
        const auto length = 3000 + random() % 6000, pause = 800 + random() % 6000;
        const double pitch = 90 + static_cast<double>(random() % 120);
        for (std::size_t i = 0; i < length; ++i) {
            double sum = 0;
            for (int harmonic = 1; harmonic < 12; ++harmonic)
                sum += std::sin(6.283 * pitch * harmonic * static_cast<double>(i) / speechRate)
                    / harmonic;
            samples.push_back(static_cast<std::int16_t>(5000 * sum));
        }
        for (std::size_t i = 0; i < pause; ++i)
            samples.push_back(static_cast<std::int16_t>(random() % 7));
    }
    samples.resize(count);
    return samples;
}

class Recognition : public testing::Test {
protected:
    std::shared_ptr<FakeEngine> engine = std::make_shared<FakeEngine>();

    PieceRecognition recognition() const { return { engine, { .language = "en" }, {} }; }

    RecognizedSpeech ofPieces(const std::vector<std::vector<std::int16_t>>& pieces) const
    {
        auto work = recognition();
        for (const auto& piece : pieces)
            work.take(piece);
        return std::move(work).result();
    }
};

TEST_F(Recognition, joinsWhatIsHeardInThePieces)
{
    int count = 0;
    engine->answers = [&](auto) {
        ++count;
        return EngineAnswer{ .text = count == 2 ? "" : "part " + std::to_string(count),
            .language = count == 1 ? std::optional<std::string>("de") : "en",
            .model = "base" };
    };
    EXPECT_EQ(ofPieces({ babble(6, 1), babble(6, 2), babble(6, 3) }),
        (RecognizedSpeech{ .text = "part 1 part 3", .model = "fake/base", .language = "de" }));
    EXPECT_THAT(engine->wishes(), SizeIs(1)) << "one session";
}

TEST_F(Recognition, ofSilenceStartsNoEngine)
{
    EXPECT_EQ(ofPieces({ std::vector<std::int16_t>(100'000, 0) }),
        (RecognizedSpeech{ .text = "", .model = "fake", .language = {} }));
    EXPECT_THAT(engine->wishes(), IsEmpty());
}

TEST_F(Recognition, givesTheEngineOnlyPiecesThatMayHoldSpeech)
{
    ofPieces({ babble(6, 1), std::vector<std::int16_t>(100'000, 0), babble(5, 2) });
    EXPECT_THAT(engine->pieces(), SizeIs(2));
}

TEST_F(Recognition, failsWithTheEngine)
{
    engine->answers = [](auto) -> EngineAnswer { throw EngineFailure("broken"); };
    EXPECT_THROW(ofPieces({ babble(6, 1) }), EngineFailure);
}

class Spoken : public Recognition { };

// However the sound comes in, the pieces are those of the whole.
TEST_F(Spoken, soundIsCutAsThatOfItsFile)
{
    for (const double seconds : { 0.5, 5.0, 11.9, 12.1, 16.9, 17.0, 17.1, 30.0, 47.3, 61.7 }) {
        engine = std::make_shared<FakeEngine>();
        const auto samples = babble(seconds, static_cast<unsigned>(seconds * 10));
        SpokenSound sound;
        std::jthread recorder([&] {
            std::mt19937 random(7);
            for (std::span<const std::int16_t> left = samples; !left.empty();) {
                const auto now = left.first(std::min<std::size_t>(left.size(), random() % 20'000));
                sound.take(now);
                left = left.subspan(now.size());
            }
            sound.end(true);
        });
        const auto heard = sound.recognized(recognition(), 12, {});
        recorder.join();
        std::vector<std::vector<std::int16_t>> expected;
        for (const auto piece : speechPieces(samples))
            expected.emplace_back(piece.begin(), piece.end());
        EXPECT_TRUE(engine->pieces() == expected) << seconds;
        ASSERT_TRUE(heard);
        EXPECT_EQ(*heard, ofPieces(expected)) << seconds;
    }
}

// So that only the last one or two are left to do after the stop.
TEST_F(Spoken, piecesAreRecognisedAsSoonAsTheyAreSpoken)
{
    SpokenSound sound;
    std::jthread recognizer([&] { sound.recognized(recognition(), 12, {}); });
    sound.take(babble(17, 1));
    while (engine->pieces().empty())
        std::this_thread::yield();
    sound.end(true);
}

TEST_F(Spoken, soundFindsAnEngineThatHasBegun)
{
    SpokenSound sound;
    std::jthread recognizer([&] { sound.recognized(recognition(), 12, {}); });
    while (engine->wishes().empty())
        std::this_thread::yield();
    sound.end(true);
}

TEST_F(Spoken, soundThatIsNotWholeIsLeftToTheFile)
{
    SpokenSound sound;
    sound.take(babble(6, 1));
    sound.end(false);
    EXPECT_EQ(sound.recognized(recognition(), 12, {}), std::nullopt);
    EXPECT_THAT(engine->pieces(), IsEmpty());
}

TEST_F(Spoken, soundWithoutEndIsLeftToTheFile)
{
    SpokenSound sound;
    const std::vector<std::int16_t> hour(std::size_t{ 1801 } * speechRate, 0);
    sound.take(hour);
    sound.take(hour);
    EXPECT_EQ(sound.recognized(recognition(), 12, {}), std::nullopt);
}

TEST_F(Spoken, soundThatNobodyWantsIsLeftAtOnce)
{
    SpokenSound sound;
    std::stop_source stop;
    const std::jthread other([&] { stop.request_stop(); });
    EXPECT_EQ(sound.recognized(recognition(), 12, stop.get_token()), std::nullopt);
}

} // namespace
} // namespace vesko

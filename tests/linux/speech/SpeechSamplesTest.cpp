#include "VeskoLinux/speech/SpeechSamples.h"

#include "tests/fakes/Files.h"
#include "tests/fakes/TemporaryFolder.h"
#include "tests/linux/speech/Voice.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <sys/stat.h>

namespace vesko {
namespace {

using std::filesystem::path;
using testing::Each;
using testing::ElementsAre;
using testing::SizeIs;

double seconds(std::span<const std::int16_t> samples)
{
    return static_cast<double>(samples.size()) / speechRate;
}

// Speech in one file for all tests of this kind; making it takes longer than any of them.
class Recorded : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        s_folder = std::make_unique<TemporaryFolder>();
        voice::speak({ voice::brother }, spoken());
    }
    static void TearDownTestSuite() { s_folder.reset(); }

    static path in(const std::string& name) { return s_folder->path() / name; }
    static path spoken() { return in("spoken.m4a"); }
    static std::vector<std::int16_t> samplesOf(const path& file) { return speechSamples(file, {}); }

private:
    static inline std::unique_ptr<TemporaryFolder> s_folder;
};

TEST_F(Recorded, givesTheSoundOfARecording)
{
    const auto samples = samplesOf(spoken());
    EXPECT_NEAR(seconds(samples), 3.8, 0.3);
    EXPECT_GT(std::ranges::max(samples), 5000);
}

TEST_F(Recorded, isTheSameEachTime)
{
    EXPECT_EQ(samplesOf(spoken()), samplesOf(spoken()));
}

TEST_F(Recorded, mixesAndResamplesWhatIsRecordedDifferently)
{
    const auto plain = seconds(samplesOf(spoken()));
    for (const auto& [channels, rate] : { std::pair{ "2", "48000" }, { "1", "8000" } }) {
        const auto file = in("other.m4a");
        voice::convert({ "-i", spoken(), "-ac", channels, "-ar", rate, "-c:a", "aac" }, file);
        EXPECT_NEAR(seconds(samplesOf(file)), plain, 0.2) << channels << " at " << rate;
    }
}

// The program was killed before the file was made whole: what was said until then is there.
TEST_F(Recorded, givesWhatStillPlaysOfARecordingThatWasCutOff)
{
    const auto growing = in("growing.m4a");
    voice::convert({ "-i", spoken(), "-c", "copy", "-movflags", "frag_keyframe+empty_moov",
                       "-frag_duration", "200000" },
        growing);
    const auto bytes = bytesOf(growing);
    putBytes(growing, bytes.substr(0, bytes.size() / 2));
    EXPECT_NEAR(seconds(samplesOf(growing)), 1.9, 0.4);
}

TEST_F(Recorded, endsWithWhatHasComeWhenItIsToStop)
{
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THAT(speechSamples(spoken(), stop.get_token()), SizeIs(0));
}

TEST_F(Recorded, refusesWhatIsNoRecording)
{
    const auto whole = bytesOf(spoken());
    putBytes(in("empty"), "");
    putBytes(in("text"), "This is no sound at all. " + std::string(100'000, '.'));
    putBytes(in("zeros"), std::string(100'000, '\0'));
    putBytes(in("beginning"), whole.substr(0, 40) + std::string(100'000, '\xFF'));
    putBytes(in("first bytes"), whole.substr(0, 10));
    putBytes(in("first half"), whole.substr(0, whole.size() / 2));
    putBytes(in("all but the end"), whole.substr(0, whole.size() - 200));
    putBytes(in("second half"), whole.substr(whole.size() / 2));
    std::filesystem::create_directory(in("folder"));
    ASSERT_EQ(::mkfifo(in("pipe").c_str(), 0600), 0);
    std::filesystem::create_symlink(in("pipe"), in("link to a pipe"));
    std::filesystem::create_symlink("/dev/zero", in("link to a device"));
    std::filesystem::create_symlink(in("nothing"), in("link to nothing"));
    std::filesystem::create_symlink(in("itself"), in("itself"));
    voice::convert({ "-i", spoken(), "-f", "wav" }, in("wave"));
    voice::convert({ "-i", spoken(), "-f", "mp3" }, in("mp3"));
    voice::convert({ "-i", spoken(), "-f", "ipod", "-c:a", "alac" }, in("another codec"));
    voice::convert({ "-f", "lavfi", "-i", "testsrc=d=1:s=64x64", "-f", "mp4" }, in("film"));
    for (const char* name : { "missing", "empty", "text", "zeros", "beginning", "first bytes",
             "first half", "all but the end", "second half", "folder", "pipe", "link to a pipe",
             "link to a device", "link to nothing", "itself", "wave", "mp3", "another codec",
             "film" })
        EXPECT_THROW(samplesOf(in(name)), std::runtime_error) << name;
}

TEST_F(Recorded, refusesMoreThanAnHour)
{
    voice::keepSilent(60, in("minute.m4a"));
    voice::repeat(in("minute.m4a"), 3595, in("hour.m4a"));
    EXPECT_NEAR(seconds(samplesOf(in("hour.m4a"))), 3595, 2);
    voice::repeat(in("minute.m4a"), 3700, in("longer.m4a"));
    EXPECT_THROW(samplesOf(in("longer.m4a")), std::runtime_error);
}

// Whatever a byte says, the sound ends or is refused, and there is never more than the file holds.
TEST_F(Recorded, survivesDamageAnywhere)
{
    const auto whole = bytesOf(spoken());
    const auto tables = whole.rfind("moov"); // where damage does the most
    ASSERT_NE(tables, std::string::npos);
    const auto length = samplesOf(spoken()).size();
    std::mt19937 chance(1);
    for (int round = 0; round < 60; ++round) {
        auto damaged = whole;
        const auto from = round % 2 ? tables : 0;
        for (int i = 0; i < 3; ++i)
            damaged[from + chance() % (whole.size() - from)] = static_cast<char>(chance());
        putBytes(in("damaged"), damaged);
        try {
            EXPECT_LE(samplesOf(in("damaged")).size(), 4 * length) << "round " << round;
        } catch (const std::runtime_error&) {
            SUCCEED() << "refused";
        }
    }
}

std::vector<double> lengths(const std::vector<std::span<const std::int16_t>>& pieces)
{
    std::vector<double> found;
    std::ranges::transform(pieces, std::back_inserter(found), seconds);
    return found;
}

std::vector<std::int16_t> noise(double length)
{
    std::mt19937 chance(static_cast<unsigned>(length * 100));
    std::vector<std::int16_t> samples(static_cast<std::size_t>(length * speechRate));
    std::ranges::generate(samples, [&] { return static_cast<std::int16_t>(chance()); });
    return samples;
}

void silence(std::vector<std::int16_t>& samples, double from, double length)
{
    const auto first = samples.begin() + static_cast<std::ptrdiff_t>(from * speechRate);
    std::fill(first, first + static_cast<std::ptrdiff_t>(length * speechRate), 0);
}

TEST(SpeechPieces, areTheWholeSoundInOrder)
{
    for (const double length : { 0.0, 0.01, 3.0, 12.0, 12.01, 16.9, 17.0, 24.5, 61.3, 300.0 }) {
        const auto samples = noise(length);
        std::vector<std::int16_t> joined;
        for (const auto piece : speechPieces(samples))
            joined.insert(joined.end(), piece.begin(), piece.end());
        EXPECT_EQ(joined, samples) << length << " s";
    }
}

TEST(SpeechPieces, takeFiveToTwelveSeconds)
{
    for (const double length : { 12.01, 12.5, 16.9, 17.0, 17.1, 24.5, 61.3, 300.0 }) {
        EXPECT_THAT(lengths(speechPieces(noise(length))),
            Each(testing::AllOf(testing::Ge(5), testing::Le(12))))
            << length << " s";
        EXPECT_THAT(lengths(speechPieces(
                        std::vector<std::int16_t>(static_cast<std::size_t>(length * speechRate)))),
            Each(testing::AllOf(testing::Ge(5), testing::Le(12))))
            << length << " s of silence";
    }
}

TEST(SpeechPieces, leaveWhatIsShorterWhole)
{
    EXPECT_THAT(speechPieces({}), SizeIs(0));
    EXPECT_THAT(lengths(speechPieces(noise(0.5))), ElementsAre(0.5));
    EXPECT_THAT(lengths(speechPieces(noise(12))), ElementsAre(12));
}

TEST(SpeechPieces, areCutWhereItIsQuiet)
{
    auto samples = noise(28);
    silence(samples, 3, 0.5); // too early
    silence(samples, 8.2, 0.4);
    silence(samples, 17.6, 0.4);
    const auto found = lengths(speechPieces(samples));
    ASSERT_THAT(found, SizeIs(3));
    EXPECT_NEAR(found[0], 8.4, 0.2);
    EXPECT_NEAR(found[0] + found[1], 17.8, 0.2);
}

TEST(SpeechPieces, areCutAtTheQuietestOfSeveralPlaces)
{
    auto samples = noise(20);
    for (auto& sample : std::span(samples).subspan(6 * speechRate, speechRate))
        sample = static_cast<std::int16_t>(sample / 8); // a murmur
    silence(samples, 10, 0.4);
    EXPECT_NEAR(lengths(speechPieces(samples)).front(), 10.2, 0.2);
}

// The loudest sound there can be.
TEST(SpeechPieces, measureWhatIsClipped)
{
    std::vector<std::int16_t> samples(20 * speechRate, -32768);
    silence(samples, 7, 0.4);
    EXPECT_NEAR(lengths(speechPieces(samples)).front(), 7.2, 0.2);
}

} // namespace
} // namespace vesko

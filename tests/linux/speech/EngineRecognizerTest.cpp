#include "VeskoLinux/speech/EngineRecognizer.h"

#include "VeskoLinux/speech/engines/PocketSphinxEngine.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/TemporaryFolder.h"
#include "tests/linux/audio/EventLoop.h"
#include "tests/linux/speech/Voice.h"

#include <gmock/gmock.h>

#include <ctime>
#include <fcntl.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace vesko {
namespace {

using std::filesystem::path;
using testing::ElementsAre;
using testing::IsEmpty;
using Report = OnDeviceRecognizer::Report;
using Recognition = std::unique_ptr<OnDeviceRecognizer::Recognition>;

// A final text, or what was wrong.
std::string said(const Report& report)
{
    if (report.failed)
        return report.text || report.isFinal ? "failed, with something else" : "failed";
    return report.isFinal && report.text ? *report.text : "not final";
}

// Tells that a file was opened, or closed, since this was made.
class FileWatch {
public:
    FileWatch(const path& file, std::uint32_t event)
        : m_descriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        if (::inotify_add_watch(m_descriptor, file.c_str(), event) < 0)
            throw std::runtime_error("inotify");
    }
    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;
    ~FileWatch() { ::close(m_descriptor); }

    void wait() const
    {
        alignas(inotify_event) char event[sizeof(inotify_event) + NAME_MAX + 1];
        runUntil([&] { return ::read(m_descriptor, event, sizeof event) > 0; });
    }

private:
    int m_descriptor;
};

std::unique_ptr<OnDeviceRecognizer> withPocketSphinx()
{
    return std::make_unique<EngineRecognizer>(
        std::make_shared<PocketSphinxEngine>(VESKO_POCKETSPHINX));
}

std::size_t openFiles()
{
    const auto all = std::filesystem::directory_iterator("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
}

class WithRecognizer : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        s_folder = std::make_unique<TemporaryFolder>();
        voice::speak({ voice::brother }, brother());
        voice::speak({ voice::coffee }, coffee());
        voice::speak({ voice::coffee, voice::brother, voice::coffee }, three(), 1.7);
        voice::repeat(brother(), 300, endless());
        voice::keepSilent(2, silence());
    }
    static void TearDownTestSuite() { s_folder.reset(); }

    static path in(const std::string& name) { return s_folder->path() / name; }
    static path brother() { return in("brother.m4a"); }
    static path coffee() { return in("coffee.m4a"); }
    static path three() { return in("three.m4a"); }
    static path silence() { return in("silence.m4a"); }
    // To decode all of it takes longer than any test may.
    static path endless() { return in("endless.m4a"); }

    Recognition begin(const path& audio, std::string name = "")
    {
        return recognizer->recognize(audio, "en",
            [this, name](const Report& report) { reports.push_back(name + said(report)); });
    }
    // All that is reported until the text has come, but for how far it is.
    std::vector<std::string> heard(const path& audio, const std::string& language = "en")
    {
        std::vector<std::string> all;
        const auto recognition = recognizer->recognize(audio, language, [&](const Report& report) {
            if (report.done)
                done.push_back(*report.done);
            else
                all.push_back(said(report));
        });
        EXPECT_THAT(all, IsEmpty()) << "never before it returns";
        runUntil([&] { return !all.empty(); });
        return all;
    }

    std::unique_ptr<OnDeviceRecognizer> recognizer = withPocketSphinx();
    std::vector<std::string> reports;
    std::vector<double> done; // of what was heard last

private:
    static inline std::unique_ptr<TemporaryFolder> s_folder;
};

TEST_F(WithRecognizer, isThereForTheInstalledLanguage)
{
    EXPECT_TRUE(recognizer->authorized());
    EXPECT_TRUE(recognizer->available());
    for (const char* tag : { "en", "en-US", "en_GB.UTF-8", "EN" })
        EXPECT_TRUE(recognizer->supports(tag)) << tag;
    for (const char* tag : { "xx", "" })
        EXPECT_FALSE(recognizer->supports(tag)) << tag;
}

TEST_F(WithRecognizer, understandsWhatIsSaid)
{
    EXPECT_THAT(heard(brother()), ElementsAre(voice::brother));
    EXPECT_THAT(heard(coffee()), ElementsAre(voice::coffee));
}

TEST_F(WithRecognizer, understandsALanguageInEveryFormOfItsTag)
{
    for (const char* tag : { "en-US", "en_GB.UTF-8", "EN" })
        EXPECT_THAT(heard(brother(), tag), ElementsAre(voice::brother)) << tag;
}

TEST_F(WithRecognizer, understandsWhatIsCutIntoPieces)
{
    EXPECT_THAT(
        heard(three()), ElementsAre(voice::coffee + " " + voice::brother + " " + voice::coffee));
}

TEST_F(WithRecognizer, tellsHowFarItIsWithWhatIsCutIntoPieces)
{
    heard(brother());
    EXPECT_THAT(done, IsEmpty());
    heard(three());
    EXPECT_THAT(done, testing::Not(IsEmpty()));
    EXPECT_THAT(done, testing::Each(testing::AllOf(testing::Gt(0), testing::Lt(1))));
    EXPECT_TRUE(std::ranges::is_sorted(done));
}

// As a microphone hears it from the loudspeakers of its own machine.
TEST_F(WithRecognizer, takesTheStartToneForNoWord)
{
    for (const char* level : { "-6dB", "-20dB", "-32dB" }) {
        voice::convert(
            { "-i", VESKO_RESOURCES "/CaptureStart.wav", "-i", brother(), "-filter_complex",
                std::string("[0]asetrate=44100*1.05946,volume=") + level
                    + ",aresample=44100,apad=pad_dur=0.2[t];[1]aresample=44100[s];"
                      "[t][s]concat=v=0:a=1",
                "-c:a", "aac" },
            in("toned.m4a"));
        EXPECT_THAT(heard(in("toned.m4a")), ElementsAre(voice::brother)) << level;
    }
}

TEST_F(WithRecognizer, hearsNothingInTheStartTone)
{
    voice::convert(
        { "-i", VESKO_RESOURCES "/CaptureStart.wav", "-af",
            "asetrate=44100*1.05946,aresample=44100,volume=-20dB,apad=pad_dur=1", "-c:a", "aac" },
        in("tone.m4a"));
    EXPECT_THAT(heard(in("tone.m4a")), ElementsAre(""));
}

TEST_F(WithRecognizer, understandsAQuietMicrophone)
{
    voice::convert(
        { "-i", brother(), "-af", "volume=-40dB", "-c:a", "aac", "-b:a", "96k" }, in("quiet.m4a"));
    EXPECT_THAT(heard(in("quiet.m4a")), ElementsAre(voice::brother));
}

TEST_F(WithRecognizer, hearsNothingInSilence)
{
    EXPECT_THAT(heard(silence()), ElementsAre(""));
}

TEST_F(WithRecognizer, hearsNothingInAMoment)
{
    voice::convert({ "-i", brother(), "-t", "0.02", "-c:a", "aac" }, in("moment.m4a"));
    EXPECT_THAT(heard(in("moment.m4a")), ElementsAre(""));
}

TEST_F(WithRecognizer, failsWithoutARecording)
{
    const auto whole = bytesOf(brother());
    putBytes(in("damaged.m4a"), whole.substr(0, 1000) + std::string(1000, '\xAB'));
    EXPECT_THAT(heard(in("missing.m4a")), ElementsAre("failed")) << "missing";
    EXPECT_THAT(heard(in("damaged.m4a")), ElementsAre("failed")) << "damaged";
    EXPECT_THAT(heard(brother()), ElementsAre(voice::brother)) << "and goes on";
}

TEST_F(WithRecognizer, failsForALanguageWithoutAModel)
{
    EXPECT_THAT(heard(brother(), "de-DE"), ElementsAre("failed"));
}

TEST_F(WithRecognizer, finishesTwoAtOnce)
{
    const auto first = begin(brother(), "first: ");
    const auto second = begin(coffee(), "second: ");
    runUntil([&] { return reports.size() == 2; });
    EXPECT_THAT(reports, ElementsAre("first: " + voice::brother, "second: " + voice::coffee));
}

// The worker takes one after the other: once a later one has reported, an earlier one won't.
TEST_F(WithRecognizer, saysNothingOfOneThatIsCancelledBeforeItBegins)
{
    auto first = begin(endless(), "first: ");
    auto second = begin(brother(), "second: ");
    second.reset();
    first.reset();
    EXPECT_THAT(heard(silence()), ElementsAre(""));
    EXPECT_THAT(reports, IsEmpty());
}

TEST_F(WithRecognizer, givesWayToTheNextWhenItIsCancelled)
{
    for (const auto& [event, moment] : { std::pair{ IN_OPEN, "while the sound is read" },
             { IN_CLOSE, "while words are looked for" } }) {
        const FileWatch watch(endless(), event);
        auto recognition = begin(endless());
        watch.wait();
        recognition.reset();
        EXPECT_THAT(heard(silence()), ElementsAre("")) << moment;
        EXPECT_THAT(reports, IsEmpty()) << moment;
    }
}

TEST_F(WithRecognizer, endsSoonWithTheProgram)
{
    for (const bool cancelled : { true, false }) {
        recognizer = withPocketSphinx();
        const FileWatch watch(endless(), IN_CLOSE);
        auto recognition = begin(endless());
        const auto waiting = begin(brother());
        watch.wait();
        if (cancelled)
            recognition.reset();
        recognizer.reset();
        recognition.reset(); // may outlive it
        EXPECT_THAT(reports, IsEmpty());
    }
}

TEST_F(WithRecognizer, mayBeDroppedByItsOwnReport)
{
    Recognition recognition;
    const auto held = std::make_shared<std::string>("alive");
    recognition = recognizer->recognize(brother(), "en", [&, held](const Report& report) {
        recognition.reset();
        reports.push_back(said(report) + ", " + *held);
    });
    runUntil([&] { return !reports.empty(); });
    EXPECT_THAT(heard(silence()), ElementsAre(""));
    EXPECT_THAT(reports, ElementsAre(voice::brother + ", alive"));
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(WithRecognizer, mayBeginTheNextFromAReport)
{
    Recognition first, second;
    first = recognizer->recognize(brother(), "en", [&](const Report& report) {
        reports.push_back(said(report));
        second = begin(coffee());
    });
    runUntil([&] { return reports.size() == 2; });
    EXPECT_THAT(reports, ElementsAre(voice::brother, voice::coffee));
}

TEST_F(WithRecognizer, leavesNoFileOpen)
{
    heard(brother()); // what is loaded once
    heard(in("missing.m4a"));
    const auto before = openFiles();
    for (int i = 0; i < 3; ++i) {
        heard(silence());
        heard(in("missing.m4a"));
    }
    EXPECT_EQ(openFiles(), before);
}

// What was said would else stand in the journal.
TEST_F(WithRecognizer, writesNothingToTheLog)
{
    const auto log = in("log");
    putBytes(log, "");
    const int file = ::open(log.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
    const std::array<int, 2> streams{ STDOUT_FILENO, STDERR_FILENO };
    const std::array<int, 2> kept{ ::dup(STDOUT_FILENO), ::dup(STDERR_FILENO) };
    for (const int stream : streams)
        ::dup2(file, stream);
    heard(brother());
    heard(silence());
    putBytes(in("damaged.m4a"), bytesOf(brother()).substr(0, 1000));
    heard(in("damaged.m4a"));
    std::fflush(nullptr);
    for (std::size_t i = 0; i < streams.size(); ++i) {
        ::dup2(kept[i], streams[i]);
        ::close(kept[i]);
    }
    ::close(file);
    EXPECT_EQ(bytesOf(log), "");
}

// The library ends its program behind most of them.
TEST_F(WithRecognizer, failsWithADamagedModelAndGoesOn)
{
    const auto model = in("models/en-us");
    std::filesystem::create_directories(model / "acoustic");
    for (const std::string& content : { std::string(), std::string("no model\n"),
             std::string(100'000, '\xA5'), std::string(100'000, '\0') }) {
        for (const char* file : { "acoustic/mdef", "words.dict", "words.lm.bin" })
            putBytes(model / file, content);
        recognizer = std::make_unique<EngineRecognizer>(
            std::make_shared<PocketSphinxEngine>(VESKO_POCKETSPHINX, in("models")));
        EXPECT_THAT(heard(brother()), ElementsAre("failed")) << content.substr(0, 10);
    }
    recognizer = withPocketSphinx();
    EXPECT_THAT(heard(silence()), ElementsAre(""));
}

// Its library would cost this process the memory, and take it down with it.
TEST_F(WithRecognizer, keepsTheLibraryOutOfThisProcess)
{
    heard(brother());
    EXPECT_THAT(bytesOf("/proc/self/maps"), testing::Not(testing::HasSubstr("sphinx")));
}

} // namespace
} // namespace vesko

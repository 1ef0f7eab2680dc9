#include "VeskoLinux/console/TranscribeCommand.h"

#include "VeskoApp/preferences/Preferences.h"
#include "VeskoApp/transcription/AudioBytes.h"
#include "VeskoCore/base/InputFile.h"
#include "VeskoCore/base/Text.h"
#include "VeskoCore/library/LibraryStore.h"
#include "VeskoLinux/audio/AudioConversion.h"
#include "VeskoLinux/console/Terminal.h"
#include "VeskoLinux/console/Waiting.h"

#include <QEventLoop>
#include <QTimer>

#include <fcntl.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <thread>
#include <vector>

namespace vesko {

namespace {

constexpr int notNow = 4;
constexpr int glanceAtTerminal = 100; // milliseconds

// A folder of its own, which goes with all that is in it.
class TemporaryPlace {
public:
    TemporaryPlace()
    {
        std::string name = std::filesystem::temp_directory_path() / "vesko-XXXXXX";
        if (!::mkdtemp(name.data()))
            throw std::runtime_error("there is no place for a copy of it");
        m_folder = name;
    }
    TemporaryPlace(const TemporaryPlace&) = delete;
    TemporaryPlace& operator=(const TemporaryPlace&) = delete;
    ~TemporaryPlace()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
    std::filesystem::path file() const { return m_folder / "sound.m4a"; }

private:
    std::filesystem::path m_folder;
};

// As a recording of ours stands on the disk.
void copySound(const std::filesystem::path& from, const std::filesystem::path& to)
{
    auto& files = FileSystem::posix();
    const auto input = InputFile::open(files, from, std::filesystem::file_size(from));
    OpenFile output(files, to, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0600);
    std::vector<char> piece(1 << 16);
    std::uint64_t done = 0;
    while (const auto came = input->read(piece, done)) {
        writeAll(files, output, { piece.data(), came });
        done += came;
    }
    files.sync(output);
    output.close();
}

// The sound becomes a recording whose text this is, in a note of its own. The library changes once,
// behind the file: what there is no room for leaves nothing.
void keepInLibrary(LibraryStore& store, const std::filesystem::path& audio, double duration,
    const std::string& provider, const std::string& model, const TranscriptResult& result, Date now)
{
    TranscriptionAttempt attempt;
    attempt.id = Uuid::random();
    attempt.provider = provider;
    attempt.model = result.model.value_or(model);
    attempt.startedAt = now;
    attempt.completedAt = now;
    attempt.status = AttemptStatus::ready;
    attempt.rawText = result.rawText;
    attempt.text = *attempt.rawText;
    attempt.cost = result.cost;
    attempt.requestID = result.requestID;
    attempt.errorMessage = result.warning;
    attempt.detectedLanguage = result.language;

    Note note;
    note.id = Uuid::random();
    note.kind = NoteKind::voice;
    note.body = *attempt.text;
    note.createdAt = note.updatedAt = now;
    auto recording = Recording::make(Uuid::random(), note.id, now);
    recording.duration = duration;
    recording.status = RecordingStatus::ready;
    recording.attempts.push_back(attempt);
    recording.appendedToNote = true;
    recording.appliedBodyRevision = now;
    note.recordings.push_back(recording);
    Library library;
    library.notes.append(note);

    const auto place = store.audioURL(recording);
    try {
        copySound(audio, place);
        store.merge(library);
    } catch (...) {
        std::error_code ignored; // the first failure tells more
        std::filesystem::remove(place, ignored);
        throw;
    }
}

TranscriptResult transcriptOf(std::string_view heard)
{
    const std::string text(trimmed(heard));
    if (text.empty())
        throw std::runtime_error("no speech was heard");
    TranscriptResult result;
    result.rawText = text;
    result.text = text;
    return result;
}

} // namespace

TranscribeCommand::TranscribeCommand(const Neighbours& neighbours)
    : m_to(neighbours)
{
}

int TranscribeCommand::run(const Wish& wish)
{
    Terminal terminal;
    try {
        std::optional<LibraryStore> store;
        if (wish.keep)
            store.emplace(m_to.root, m_to.clock);
        const TemporaryPlace place;
        const double duration = convertAudio(wish.file, place.file(), [&](double done) {
            terminal.showProgress(done);
            return !terminal.isInterrupted();
        });
        terminal.showProgress(1);
        const auto language
            = wish.language.empty() ? m_to.preferences.language.get() : wish.language;
        const auto result = usesService() ? byService(place.file(), language, terminal)
                                          : onDevice(place.file(), language, terminal);
        terminal.clear();
        std::puts(result.text.c_str());
        if (store)
            keepInLibrary(*store, place.file(), duration,
                usesService() ? "OpenRouter" : std::string(onDeviceProvider),
                usesService() ? m_to.preferences.sttModel.get() : m_to.engines.named(), result,
                m_to.clock.now());
        return 0;
    } catch (const VeskoError& error) {
        if (error.kind() == VeskoError::libraryBusy) {
            terminal.complain("--keep changes the library, which Vesko has open; end Vesko first");
            return notNow;
        }
        return terminal.complain(error.errorDescription());
    } catch (const KeychainFailure&) {
        return terminal.complain("the keyring could not be used");
    } catch (const URLError&) {
        return terminal.complain("the service could not be reached");
    } catch (const std::system_error& error) { // whose words would hold paths
        return terminal.complain(error.code().message() + "; nothing was kept");
    } catch (const std::exception& error) {
        return terminal.complain(error.what());
    }
}

// However long it takes: somebody watches, and may end it.
TranscriptResult TranscribeCommand::onDevice(
    const std::filesystem::path& audio, const std::string& language, const Terminal& terminal)
{
    if (!waitedFor(m_to.engines.isThere()))
        throw std::runtime_error("the speech engine of the settings isn't there");
    const bool known = language != "auto" || m_to.recognizer.supports("auto");
    const auto tag = known ? language : m_to.recognizer.systemLanguage();
    if (!m_to.recognizer.available() || !m_to.recognizer.supports(tag))
        throw std::runtime_error("nothing is installed that recognises this language here");
    std::optional<OnDeviceRecognizer::Report> outcome;
    QEventLoop loop;
    const auto recognition
        = m_to.recognizer.recognize(audio, tag, [&](const OnDeviceRecognizer::Report& report) {
              if (!report.isFinal && !report.failed)
                  return;
              outcome = report;
              loop.quit();
          });
    QTimer glance;
    QObject::connect(&glance, &QTimer::timeout, &loop, [&] {
        if (terminal.isInterrupted())
            loop.quit();
    });
    glance.start(glanceAtTerminal);
    loop.exec();
    if (!outcome)
        throw std::runtime_error("interrupted");
    if (outcome->failed || !outcome->text)
        throw std::runtime_error("the recogniser failed");
    auto result = transcriptOf(*outcome->text);
    if (!outcome->model.empty())
        result.model = outcome->model;
    result.language = outcome->language;
    return result;
}

TranscriptResult TranscribeCommand::byService(
    const std::filesystem::path& audio, const std::string& language, const Terminal& terminal)
{
    auto key = m_to.secrets.load(Preferences::keyAccount(m_to.preferences.keySource.get()));
    if (!key)
        key = m_to.secrets.load(Keychain::personal);
    if (!key)
        throw VeskoError(VeskoError::missingKey);
    std::stop_source stop;
    const std::jthread watch([&](const std::stop_token& end) {
        while (!end.stop_requested()) {
            if (terminal.isInterrupted())
                stop.request_stop();
            std::this_thread::sleep_for(std::chrono::milliseconds(glanceAtTerminal));
        }
    });
    return m_to.client.transcribe(audioBytes(audio), "m4a", m_to.preferences.sttModel.get(),
        language, *key, true, stop.get_token());
}

bool TranscribeCommand::usesService() const
{
    return m_to.preferences.provider.get() != "apple";
}

} // namespace vesko

#include "VeskoApp/storage/Storage.h"

#include "VeskoApp/base/Observed.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <chrono>
#include <system_error>

namespace vesko {

namespace {

constexpr double timeBetweenSweeps = 6.0 * 60 * 60; // seconds

struct Age {
    const char* tag; // in the settings
    const char* name;
    int days; // 0 for never
};
constexpr std::array ages{
    Age{ "never", L10N_KEY("Vesko", "Never"), 0 },
    Age{ "30", L10N_KEY("Vesko", "After 30 days"), 30 },
    Age{ "90", L10N_KEY("Vesko", "After 90 days"), 90 },
    Age{ "365", L10N_KEY("Vesko", "After a year"), 365 },
};

// What the settings don't know removes nothing.
const Age& ageOf(const Preferences::Setting<std::string>& setting)
{
    const auto* const found = std::ranges::find(ages, setting.get(), &Age::tag);
    return found == ages.end() ? ages.front() : *found;
}

QVariantList rowsOf(std::size_t count)
{
    QVariantList rows;
    for (const auto& age : std::span(ages).first(count))
        rows << QVariantMap{ { QStringLiteral("tag"), QString::fromLatin1(age.tag) },
            { QStringLiteral("name"), translated(age.name) } };
    return rows;
}

// The moment before which everything has that age.
Date daysBefore(Date now, int days)
{
    return { now.time - std::chrono::days(days) };
}

std::uint64_t sizeOfFiles(const std::filesystem::path& folder)
{
    std::uint64_t size = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::error_code gone;
        if (const auto bytes = entry.file_size(gone); !gone)
            size += bytes;
    }
    return size;
}

} // namespace

Storage::Storage(EventClock& clock, LibrarySession& library, NoteEdits& edits,
    Preferences& preferences, StatusLine& status)
    : m_clock(clock)
    , m_library(library)
    , m_edits(edits)
    , m_preferences(preferences)
    , m_status(status)
    , m_next(clock)
{
    connect(&library, &LibrarySession::readyChanged, this, &Storage::watch);
    connect(&preferences, &Preferences::changed, this, &Storage::agesChanged);
}

QVariantList Storage::recordingAges() const
{
    return rowsOf(ages.size());
}

QString Storage::recordingAge() const
{
    return QString::fromLatin1(ageOf(m_preferences.removeRecordingsAfter).tag);
}

QVariantList Storage::trashAges() const
{
    return rowsOf(2);
}

QString Storage::trashAge() const
{
    return QString::fromLatin1(ageOf(m_preferences.emptyTrashAfter).tag);
}

void Storage::setRecordingAge(const QString& tag)
{
    m_preferences.removeRecordingsAfter.set(tag.toStdString());
    watch();
}

void Storage::setTrashAge(const QString& tag)
{
    m_preferences.emptyTrashAfter.set(tag.toStdString());
    watch();
}

void Storage::watch()
{
    if (!m_library.ready())
        return;
    m_tasks.spawn(sweep());
    m_next.cancel();
    if (ageOf(m_preferences.removeRecordingsAfter).days > 0
        || ageOf(m_preferences.emptyTrashAfter).days > 0)
        m_next.start(timeBetweenSweeps, [this] { watch(); });
}

Task<> Storage::sweep()
{
    const auto now = m_clock.now();
    const int recordingDays = ageOf(m_preferences.removeRecordingsAfter).days;
    const int trashDays = ageOf(m_preferences.emptyTrashAfter).days;
    const bool leftBehind = std::ranges::any_of(m_library.contents().notes, [](const Note& note) {
        return std::ranges::any_of(note.recordings,
            [](const Recording& recording) { return recording.audioRemovedAt.has_value(); });
    });
    if (recordingDays > 0 || leftBehind) {
        const auto done = co_await m_library.change(
            [before = daysBefore(now, recordingDays), recordingDays](LibraryStore& store) {
                if (recordingDays > 0)
                    store.giveUpAudio(before);
                store.clearRemovedAudio();
            });
        if (!done)
            m_status.report(done.error());
    }
    if (trashDays > 0)
        co_await removeTrash(daysBefore(now, trashDays));
    if (!m_size.isEmpty())
        co_await measured();
}

void Storage::emptyTrash()
{
    if (m_library.ready())
        m_tasks.spawn(removeTrash({ decltype(Date::time)::max() }));
}

Task<> Storage::removeTrash(Date before)
{
    std::vector<Uuid> present;
    for (const auto& note : m_library.contents().notes)
        if (note.deletedAt)
            present.push_back(note.id);
    if (present.empty())
        co_return;
    const auto gone = co_await m_library.change(
        [before](LibraryStore& store) { return store.emptyTrash(before); });
    if (!gone)
        m_status.report(gone.error());
    for (const auto& id : present)
        if (!m_library.note(id))
            m_edits.forget(id);
}

void Storage::measure()
{
    if (m_library.ready())
        m_tasks.spawn(measured());
}

Task<> Storage::measured()
{
    try {
        auto file = co_await m_library.audioFile(Recording::make({}, {}, {}));
        const auto bytes
            = co_await m_worker.run([folder = file.parent_path()] { return sizeOfFiles(folder); });
        assign(*this, m_size, QLocale().formattedDataSize(static_cast<qint64>(bytes)),
            &Storage::sizeChanged);
    } catch (const std::exception&) {
        assign(*this, m_size, QString(), &Storage::sizeChanged);
    }
}

} // namespace vesko

#include "VeskoApp/library/LibrarySession.h"

#include "VeskoApp/base/Observed.h"
#include "VeskoApp/status/SafeMessage.h"

#include <algorithm>

namespace vesko {

namespace {

constexpr double openingUnseen = 0.2; // seconds; a sign for less would only flash

} // namespace

LibrarySession::LibrarySession(EventClock& clock, StatusLine& status)
    : m_status(status)
    , m_openingShown(clock)
{
}

void LibrarySession::expect()
{
    m_openingShown.start(
        openingUnseen, [this] { assign(*this, m_opening, true, &LibrarySession::openingChanged); });
}

Task<bool> LibrarySession::open(Opening open)
{
    std::exception_ptr failure;
    try {
        co_await m_store.open(std::move(open));
        show(co_await m_store.run([](const LibraryStore& store) { return store.snapshot(); }));
        assign(*this, m_ready, true, &LibrarySession::readyChanged);
    } catch (...) {
        failure = std::current_exception();
    }
    m_openingShown.cancel();
    if (failure)
        m_refusal = safeMessage(failure);
    assign(*this, m_opening, false, &LibrarySession::openingChanged);
    if (failure) {
        m_status.report(failure);
        Q_EMIT readyChanged();
    }
    co_return !failure;
}

Task<std::filesystem::path> LibrarySession::audioFile(Recording recording)
{
    co_return co_await m_store.run([recording = std::move(recording)](const LibraryStore& store) {
        return store.audioURL(recording);
    });
}

const Note* LibrarySession::note(const Uuid& id) const
{
    const auto found = std::ranges::find(m_contents.notes, id, &Note::id);
    return found == m_contents.notes.end() ? nullptr : &*found;
}

void LibrarySession::show(Library contents)
{
    m_contents = std::move(contents);
    Q_EMIT changed();
}

} // namespace vesko

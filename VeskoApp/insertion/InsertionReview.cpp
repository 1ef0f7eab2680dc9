#include "VeskoApp/insertion/InsertionReview.h"

#include "VeskoCore/insertion/PersonalDictionary.h"

#include <QLoggingCategory>

#include <utility>

namespace vesko {

namespace {

// Without each edit, unless that is asked for.
Q_LOGGING_CATEGORY(reviewLog, "app.vesko.insertion.review", QtInfoMsg)

// Seconds.
constexpr double longestReview = 120;
constexpr double pasteInterval = 0.1;
constexpr double watchInterval = 0.25;
constexpr double sendTime = 1.5;

constexpr int mostUnequalReads = 5;

// A busy program may have no answer for a moment, and the user goes on in its field all the same.
bool isLeft(const std::expected<std::string, FocusDestination::Unread>& reading)
{
    return !reading && reading.error() == FocusDestination::Unread::left;
}

} // namespace

InsertionReview::InsertionReview(FocusedField& fields, EventClock& clock)
    : m_fields(fields)
    , m_clock(clock)
    , m_next(clock)
{
}

void InsertionReview::start(
    FocusDestination destination, const std::string& text, OnCorrections onCorrections)
{
    stop();
    auto scope = InsertedTextScope::from(destination.originalValue, destination.selection, text);
    if (!scope)
        return;
    m_review = std::make_shared<Review>(Review{
        .destination = std::move(destination),
        .scope = std::move(*scope),
        .onCorrections = std::move(onCorrections),
        .end = m_clock.uptime() + longestReview,
        .lastEdited = {},
        .sendDeadline = std::nullopt,
        .maybeDeadline = std::nullopt,
    });
    lookAfter(pasteInterval);
}

void InsertionReview::stop()
{
    m_next.cancel();
    m_review.reset();
}

void InsertionReview::lookAfter(double seconds)
{
    m_next.start(seconds, [this] { m_tasks.spawn(look(m_review)); });
}

Task<> InsertionReview::look(std::shared_ptr<Review> review)
{
    const auto value = co_await review->destination.currentValueIfFocused(m_fields);
    if (m_review != review)
        co_return;
    if (review->landed)
        watch(value);
    else
        awaitPaste(value);
}

void InsertionReview::awaitPaste(const Reading& value)
{
    // An editor that was empty may have kept its empty paragraph behind what was pasted.
    auto& scope = m_review->scope;
    if (scope.prefix.empty() && scope.suffix.empty() && value == scope.original + '\n')
        scope.suffix = '\n';
    if (value == m_review->scope.expectedValue()) {
        m_review->landed = true;
        m_review->lastEdited = m_review->scope.original;
        qCInfo(reviewLog, "paste_watched");
        goOnWatching();
    } else if (isLeft(value) || ++m_review->unequalReads == mostUnequalReads) {
        stop();
    } else {
        lookAfter(pasteInterval);
    }
}

void InsertionReview::watch(const Reading& value)
{
    if (!value) {
        if (isLeft(value))
            finish(false);
        else
            goOnWatching();
        return;
    }
    if (value->empty() && inTimeToBeSent()) {
        finish(true);
        return;
    }
    auto fragment = m_review->scope.editedFragment(*value);
    if (!fragment) {
        finish(false);
        return;
    }
    if (m_review->lastEdited != *fragment)
        qCDebug(reviewLog, "edit_seen");
    m_review->lastEdited = std::move(*fragment);
    goOnWatching();
}

void InsertionReview::goOnWatching()
{
    if (m_clock.uptime() < m_review->end)
        lookAfter(watchInterval);
    else
        finish(false);
}

bool InsertionReview::inTimeToBeSent() const
{
    const auto ahead = [now = m_clock.uptime()](const std::optional<double>& deadline) {
        return deadline && now <= *deadline;
    };
    return ahead(m_review->sendDeadline) || ahead(m_review->maybeDeadline);
}

void InsertionReview::armSend()
{
    if (m_review)
        m_tasks.spawn(lookAtReturn(m_review));
}

// The other program has the key as soon as we do, and may have emptied the field before it answers.
// What was seen last was then sent, if that was not empty itself, and a look in the meantime that
// finds nothing need not wait for this answer.
Task<> InsertionReview::lookAtReturn(std::shared_ptr<Review> review)
{
    const double deadline = m_clock.uptime() + sendTime;
    review->maybeDeadline = deadline;
    const auto value = co_await review->destination.currentValueIfFocused(m_fields);
    if (m_review != review)
        co_return;
    if (review->maybeDeadline == deadline)
        review->maybeDeadline.reset();
    if (!value)
        co_return;
    auto fragment = review->scope.editedFragment(*value);
    const bool stands = fragment && !fragment->empty();
    const bool gone = value->empty() && !review->lastEdited.empty();
    if (stands)
        review->lastEdited = std::move(*fragment);
    if (stands || gone)
        review->sendDeadline = deadline;
}

void InsertionReview::finish(bool sent)
{
    auto corrections
        = PersonalDictionary::corrections(m_review->scope.original, m_review->lastEdited);
    const auto onCorrections = std::move(m_review->onCorrections);
    stop();
    if (sent || !corrections.empty())
        onCorrections(std::move(corrections), sent);
}

} // namespace vesko

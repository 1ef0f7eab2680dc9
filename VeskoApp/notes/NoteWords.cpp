#include "VeskoApp/notes/NoteWords.h"

#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/base/Text.h"

#include <QDateTime>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace vesko {

QString shownTitle(const Note& note)
{
    // A title of the user's is shown as it is, also where it is a word of the program's own.
    const bool named = !trimmed(note.title).empty()
        || (note.kind == NoteKind::text && !firstLine(note.body).empty());
    const auto title = note.listTitle();
    return named ? QString::fromStdString(title) : translated(title);
}

QString captureStatus(const Note& note)
{
    if (note.recordings.empty())
        return {};
    switch (note.recordings.back().status) {
    case RecordingStatus::recording:
        return translated(L10N_KEY("Vesko", "Recording"));
    case RecordingStatus::transcribing:
        return translated(L10N_KEY("Vesko", "Processing"));
    case RecordingStatus::ready:
        return {};
    case RecordingStatus::recorded:
    case RecordingStatus::failed:
    case RecordingStatus::interrupted:
        break;
    }
    return translated(L10N_KEY("Vesko", "Audio saved"));
}

QString shownMoment(const Date& date, const QLocale& locale, QDate today)
{
    const auto milliseconds
        = std::chrono::floor<std::chrono::milliseconds>(date.time).time_since_epoch().count();
    const auto moment = QDateTime::fromMSecsSinceEpoch(milliseconds);
    if (moment.date() == today)
        return locale.toString(moment.time(), QLocale::ShortFormat);
    if (moment.date() == today.addDays(-1))
        return translated(L10N_KEY("Vesko", "Yesterday"));
    const bool thisYear = moment.date().year() == today.year();
    return locale.toString(
        moment.date(), thisYear ? QStringLiteral("d MMM") : QStringLiteral("d MMM yyyy"));
}

QString shownDuration(double seconds)
{
    const auto whole = static_cast<int>(std::floor(std::max(0.0, seconds)));
    const auto twoDigits
        = [](int number) { return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')); };
    const auto tail = twoDigits(whole % 60);
    if (whole < 3600)
        return QStringLiteral("%1:%2").arg(whole / 60).arg(tail);
    return QStringLiteral("%1:%2:%3").arg(whole / 3600).arg(twoDigits(whole / 60 % 60), tail);
}

QString shownCost(const std::optional<double>& cost, const QLocale& locale)
{
    if (!cost)
        return translated(L10N_KEY("Vesko", "Provider cost not reported"));
    return translated(L10N_KEY("Vesko", "Reported cost: %1"))
        .arg(locale.toCurrencyString(*cost, QStringLiteral("$"), 6));
}

} // namespace vesko

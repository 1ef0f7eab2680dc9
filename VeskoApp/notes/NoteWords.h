#pragma once

#include "VeskoCore/library/Note.h"

#include <QDate>
#include <QLocale>
#include <QString>

namespace vesko {

// How a note and its recordings are shown, in the user's language.

// The note's name in a list.
QString shownTitle(const Note& note);
// What its last recording is about; empty when nothing needs to be said.
QString captureStatus(const Note& note);
// The time of a moment of this day, else its day.
QString shownMoment(const Date& date, const QLocale& locale, QDate today);
// Minutes and seconds, and hours where there are some.
QString shownDuration(double seconds);
// A cost in dollars, or that there is none known.
QString shownCost(const std::optional<double>& cost, const QLocale& locale);

} // namespace vesko

#pragma once

#include "VeskoCore/library/Note.h"
#include "VeskoCore/library/TextSearch.h"

#include <QDate>
#include <QLocale>
#include <QString>

namespace vesko {

// How a note and its recordings are shown, in the user's language.

// The note's name in a list.
QString shownTitle(const Note& note);
// What its last recording is about; empty when nothing needs to be said.
QString captureStatus(const Note& note);
// The first words of its text that its name doesn't say, in one line; with a search, those around
// the first match in its text or in what was heard.
QString shownWords(const Note& note, TextSearch* search = nullptr);
// The text as HTML in which what is found stands in <b>; nothing else in it is a tag.
QString marked(const QString& text, TextSearch& search);
// The time of a moment of this day, else its day and time.
QString shownMoment(const Date& date, const QLocale& locale, QDate today);
// Minutes and seconds, and hours where there are some.
QString shownDuration(double seconds);
// A model as people write its name: "Whisper Large v3 Turbo" for "openai/whisper-large-v3-turbo".
// Of the recogniser of this machine only the language counts.
QString shownModel(const std::string& id);
// A cost in dollars, or that there is none known.
QString shownCost(const std::optional<double>& cost, const QLocale& locale);

} // namespace vesko

#include "VeskoApp/notes/NoteWords.h"

#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/base/Text.h"

#include <QDateTime>
#include <QRegularExpression>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace vesko {

namespace {

constexpr std::size_t mostWords = 160; // characters; a row has no room for more
constexpr std::size_t wordsBefore = 24; // characters in front of a match

QString inOneLine(std::string_view text)
{
    return QString::fromUtf8(text.data(), qsizetype(text.size())).simplified();
}

// The characters from a position on, begun a little before it, at a word if there is one.
QString wordsAround(std::string_view text, std::size_t at)
{
    auto begin = at - std::min(at, wordsBefore);
    const auto blank = text.find_first_of(" \n", begin);
    if (begin > 0 && blank < at)
        begin = blank + 1;
    while (begin > 0 && begin < at && (static_cast<unsigned char>(text[begin]) & 0xC0U) == 0x80U)
        ++begin;
    const auto words = inOneLine(firstCharacters(text.substr(begin), mostWords));
    return begin > 0 ? u'…' + words : words;
}

} // namespace

QString shownWords(const Note& note, TextSearch* search)
{
    const std::string_view body = note.body;
    if (search) {
        if (const auto found = search->next(body, 0))
            return wordsAround(body, found->begin);
        for (const auto& recording : note.recordings)
            for (const auto& attempt : recording.attempts)
                if (const std::string_view heard
                    = attempt.rawText ? std::string_view(*attempt.rawText) : std::string_view();
                    const auto found = search->next(heard, 0))
                    return wordsAround(heard, found->begin);
    }
    const bool isNamedByIt = note.kind == NoteKind::text && trimmed(note.title).empty();
    const auto first = trimmed(body);
    const auto firstEnd = first.find('\n');
    if (!isNamedByIt)
        return inOneLine(firstCharacters(first, mostWords));
    return firstEnd == std::string_view::npos
        ? QString()
        : inOneLine(firstCharacters(trimmed(first.substr(firstEnd)), mostWords));
}

QString marked(const QString& text, TextSearch& search)
{
    const auto bytes = text.toStdString();
    const auto piece = [&](std::size_t from, std::size_t to) {
        return QString::fromUtf8(bytes.data() + from, qsizetype(to - from)).toHtmlEscaped();
    };
    QString html;
    std::size_t behind = 0;
    while (const auto found = search.next(bytes, behind)) {
        html += piece(behind, found->begin) + QStringLiteral("<b>")
            + piece(found->begin, found->end) + QStringLiteral("</b>");
        behind = found->end;
    }
    return html + piece(behind, bytes.size());
}

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
    const auto time = locale.toString(moment.time(), QLocale::ShortFormat);
    if (moment.date() == today)
        return time;
    const auto day = moment.date() == today.addDays(-1)
        ? translated(L10N_KEY("Vesko", "Yesterday"))
        : locale.toString(moment.date(), QLocale::ShortFormat);
    return day + u' ' + time;
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

QString shownModel(const std::string& id)
{
    const auto name = QString::fromStdString(id.substr(id.rfind('/') + 1));
    if (id.starts_with("apple/on-device/")) {
        const QLocale spoken(name);
        return spoken.language() == QLocale::C ? name : spoken.nativeLanguageName();
    }
    QString shown;
    for (auto word : name.split(QRegularExpression(QStringLiteral("[-_:]")), Qt::SkipEmptyParts)) {
        if (word == u"gpt")
            word = word.toUpper();
        const bool version = word.size() > 1 && word[0] == u'v' && word[1].isDigit();
        if (!version)
            word[0] = word[0].toUpper();
        if (!shown.isEmpty())
            shown += shown.endsWith(QStringLiteral("GPT")) ? u'-' : u' ';
        shown += word;
    }
    return shown;
}

QString shownCost(const std::optional<double>& cost, const QLocale& locale)
{
    if (!cost)
        return translated(L10N_KEY("Vesko", "Provider cost not reported"));
    return translated(L10N_KEY("Vesko", "Reported cost: %1"))
        .arg(locale.toCurrencyString(*cost, QStringLiteral("$"), 6));
}

} // namespace vesko

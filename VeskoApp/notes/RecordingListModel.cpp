#include "VeskoApp/notes/RecordingListModel.h"

#include "VeskoApp/notes/NoteWords.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <algorithm>

namespace vesko {

namespace {

QString shown(const std::optional<std::string>& text)
{
    return text ? QString::fromStdString(*text) : QString();
}

// An engine of this machine tells how it is called; the models of services are known by their ids.
QString modelOf(const TranscriptionAttempt& attempt)
{
    const auto words = attempt.modelInWords();
    return words == attempt.model ? shownModel(attempt.model) : QString::fromStdString(words);
}

QVariantMap shown(const TranscriptionAttempt& attempt)
{
    return {
        { QStringLiteral("provider"), translated(attempt.provider) },
        { QStringLiteral("modelName"), modelOf(attempt) },
        { QStringLiteral("status"), translated(label(attempt.status)) },
        { QStringLiteral("failed"),
            attempt.status == AttemptStatus::failed
                || attempt.status == AttemptStatus::interrupted },
        { QStringLiteral("original"), shown(attempt.rawText) },
        { QStringLiteral("edited"),
            attempt.text == attempt.rawText ? QString() : shown(attempt.text) },
        { QStringLiteral("cost"), shownCost(attempt.cost, QLocale()) },
        { QStringLiteral("error"), translated(attempt.errorMessage.value_or("")) },
    };
}

} // namespace

void RecordingListModel::setRecordings(const std::vector<Recording>& recordings)
{
    const auto sameID = [](const Recording& a, const Recording& b) { return a.id == b.id; };
    if (recordings.size() < m_recordings.size()
        || !std::equal(m_recordings.begin(), m_recordings.end(), recordings.begin(), sameID)) {
        beginResetModel();
        m_recordings = recordings;
        endResetModel();
        return;
    }
    const auto kept = m_recordings.size();
    for (std::size_t row = 0; row < kept; ++row) {
        if (m_recordings[row] == recordings[row])
            continue;
        m_recordings[row] = recordings[row];
        const auto changed = index(static_cast<int>(row));
        Q_EMIT dataChanged(changed, changed);
    }
    if (recordings.size() == kept)
        return;
    beginInsertRows({}, static_cast<int>(kept), static_cast<int>(recordings.size()) - 1);
    m_recordings = recordings;
    endInsertRows();
}

const Recording* RecordingListModel::find(const QString& id) const
{
    const auto found
        = std::ranges::find(m_recordings, Uuid::parse(id.toStdString()), &Recording::id);
    return found == m_recordings.end() ? nullptr : &*found;
}

int RecordingListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_recordings.size());
}

QVariant RecordingListModel::data(const QModelIndex& index, int role) const
{
    const auto& recording = m_recordings[static_cast<std::size_t>(index.row())];
    switch (role) {
    case idRole:
        return QString::fromStdString(recording.id.text());
    case momentRole:
        return shownMoment(recording.createdAt, QLocale(), QDate::currentDate());
    case durationRole:
        return recording.duration > 0 ? shownDuration(recording.duration) : QString();
    case statusRole:
        return translated(label(recording.status));
    case errorRole:
        return translated(recording.errorMessage.value_or(""));
    case retryRole:
        return recording.attempts.empty() ? translated(L10N_KEY("Vesko", "Transcribe"))
                                          : translated(L10N_KEY("Vesko", "Retry…"));
    case removedRole:
        return recording.audioRemovedAt
            ? translated(L10N_KEY("Vesko", "Audio removed to save room: %1"))
                  .arg(shownMoment(*recording.audioRemovedAt, QLocale(), QDate::currentDate()))
            : QString();
    case attemptsRole: {
        QVariantList rows;
        for (const auto& attempt : recording.attempts)
            rows << shown(attempt);
        return rows;
    }
    default:
        return {};
    }
}

QHash<int, QByteArray> RecordingListModel::roleNames() const
{
    return { { idRole, "recordingID" }, { momentRole, "moment" }, { durationRole, "duration" },
        { statusRole, "status" }, { errorRole, "error" }, { retryRole, "retryText" },
        { removedRole, "removed" }, { attemptsRole, "attempts" } };
}

} // namespace vesko

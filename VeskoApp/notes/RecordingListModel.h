#pragma once

#include <QAbstractListModel>

// Behind a header of Qt: moc stumbles over <chrono> otherwise.
#include "VeskoCore/library/Recording.h"

#include <vector>

namespace vesko {

// The original recordings of a note, each with the attempts to transcribe it.
class RecordingListModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role {
        idRole = Qt::UserRole,
        momentRole,
        durationRole,
        statusRole,
        errorRole,
        retryRole, // the words of the retry button
        removedRole, // what is said of audio that was removed; empty where it is there
        attemptsRole, // rows with what is said of each
    };

    void setRecordings(const std::vector<Recording>& recordings);
    // Null if it is not among them.
    const Recording* find(const QString& id) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    std::vector<Recording> m_recordings;
};

} // namespace vesko

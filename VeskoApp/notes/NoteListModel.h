#pragma once

#include <QAbstractListModel>

// Behind a header of Qt: moc stumbles over <chrono> otherwise.
#include "VeskoCore/base/SharedArray.h"
#include "VeskoCore/library/Note.h"

namespace vesko {

// The rows of a list of notes. A row is made up when it is looked at, so a list of any length is
// there at once; a new state of the notes moves, adds and removes no more rows than it has to.
class NoteListModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { idRole = Qt::UserRole, titleRole, iconRole, detailRole, statusRole, momentRole };

    void setNotes(SharedArray<Note> notes);
    const SharedArray<Note>& notes() const { return m_notes; }
    // -1 if it is not among them.
    int rowOf(const Uuid& id) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    SharedArray<Note> m_notes;
};

} // namespace vesko

#pragma once

#include <QAbstractListModel>

// Behind a header of Qt: moc stumbles over <chrono> otherwise.
#include "VeskoCore/base/SharedArray.h"
#include "VeskoCore/library/Note.h"
#include "VeskoCore/library/TextSearch.h"

#include <optional>
#include <set>
#include <unordered_map>

namespace vesko {

// The rows of a list of notes. A row is made up when it is looked at, so a list of any length is
// there at once; a new state of the notes moves, adds and removes no more rows than it has to.
class NoteListModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role {
        idRole = Qt::UserRole,
        titleRole,
        iconRole,
        detailRole, // all that the row says beside its title
        statusRole,
        momentRole,
        wordsRole,
        projectRole, // its name
        markedTitleRole, // HTML in which what was searched for stands in <b>, as of the next
        markedWordsRole,
        chosenRole,
    };

    // What is searched for is marked; without letters, nothing is.
    void setQuery(const std::string& query);
    // Names of the projects that a row is to name.
    void setProjects(std::unordered_map<Uuid, QString> names);

    // Which rows are selected.
    void setChosen(const std::set<Uuid>& ids);

    void setNotes(SharedArray<Note> notes);
    const SharedArray<Note>& notes() const { return m_notes; }
    // -1 if it is not among them.
    int rowOf(const Uuid& id) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    void tellOfAll();
    QString words(const Note& note) const;

    SharedArray<Note> m_notes;
    std::string m_query;
    mutable std::optional<TextSearch> m_search; // none without a query
    std::unordered_map<Uuid, QString> m_projects;
    std::set<Uuid> m_chosen;
};

} // namespace vesko

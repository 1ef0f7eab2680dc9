#pragma once

#include <QAbstractListModel>

// Behind a header of Qt: moc stumbles over <chrono> otherwise.
#include "VeskoCore/library/DictionaryEntry.h"

#include <vector>

namespace vesko {

// The terms of the dictionary as a list shows them. A new state keeps the rows of the terms that
// are still there, and with them the keyboard's place.
class TermListModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { idRole = Qt::UserRole, originalRole, replacementRole, sourceRole, enabledRole };

    void setTerms(std::vector<DictionaryEntry> terms);
    // Null if it is not among them.
    const DictionaryEntry* find(const QString& id) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    std::vector<DictionaryEntry> m_terms;
};

} // namespace vesko

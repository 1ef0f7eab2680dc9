#pragma once

#include <QAbstractListModel>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace vesko {

// The rows of a picker, of which those are shown that hold all words of what is typed, wherever
// they stand, in capitals or not, with accents or without.
class PickerRows : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    // Texts; or maps, whose texts stand under the key `textRole` and whose "tag" is found too.
    Q_PROPERTY(QVariant choices READ choices WRITE setChoices NOTIFY choicesChanged)
    Q_PROPERTY(QString textRole READ textRole WRITE setTextRole NOTIFY choicesChanged)
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged)
    Q_PROPERTY(int total READ total NOTIFY choicesChanged) // shown or not
    Q_PROPERTY(int count READ count NOTIFY queryChanged) // shown
    Q_PROPERTY(QString widest READ widest NOTIFY choicesChanged) // the text with the most letters

public:
    // "label" is the text, "place" the number among the choices.
    enum Role { label = Qt::UserRole, place };

    // Choices that are the same leave everything as it is.
    QVariant choices() const { return m_choices; }
    void setChoices(const QVariant& choices);
    const QString& textRole() const { return m_textRole; }
    void setTextRole(const QString& role);
    const QString& query() const { return m_query; }
    void setQuery(const QString& query);
    int total() const { return static_cast<int>(m_rows.size()); }
    int count() const { return static_cast<int>(m_shown.size()); }
    const QString& widest() const { return m_widest; }

    // The text of a choice, shown or not; empty for one that there isn't.
    Q_INVOKABLE QString text(int place) const;
    // The row in which a choice is shown, or -1; and the choice of a row, or -1.
    Q_INVOKABLE int rowOf(int place) const;
    Q_INVOKABLE int placeOf(int row) const;
    // The next choice behind that one whose text begins so, and from the end on from the first; or
    // -1.
    Q_INVOKABLE int nextFrom(int place, const QString& beginning) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void choicesChanged();
    void queryChanged();

private:
    struct Row {
        QString label;
        QString found; // what is looked through, folded
    };
    void read();
    void filter();

    QVariantList m_choices;
    QString m_textRole;
    QString m_query;
    QString m_widest;
    std::vector<Row> m_rows;
    std::vector<int> m_shown; // their places, rising
};

} // namespace vesko

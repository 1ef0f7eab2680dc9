#pragma once

#include "VeskoCore/library/TextSearch.h"

#include <QColor>
#include <QPointer>
#include <QQuickTextDocument>
#include <QSyntaxHighlighter>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <vector>

namespace vesko {

// Marks what is searched for in the document of a text area, and finds it there.
class FoundText : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickTextDocument* document MEMBER m_document WRITE setDocument REQUIRED)
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged) // empty for none
    Q_PROPERTY(QColor colour READ colour WRITE setColour NOTIFY colourChanged)

public:
    ~FoundText() override;

    void setDocument(QQuickTextDocument* document);
    const QString& query() const { return m_query; }
    void setQuery(const QString& query);
    const QColor& colour() const { return m_colour; }
    void setColour(const QColor& colour);

    // How often it stands there.
    Q_INVOKABLE int count();
    // Begin and end of the match behind a position, or before it, and the match's number from 1;
    // from one end of the text it goes on at the other. Empty without a match.
    Q_INVOKABLE QList<int> next(int position);
    Q_INVOKABLE QList<int> previous(int position);

Q_SIGNALS:
    void queryChanged();
    void colourChanged();

private:
    struct Span {
        int begin;
        int end;
    };
    class Marks;

    static std::vector<Span> spansIn(TextSearch& search, const QString& text);
    std::vector<Span> spans();
    void mark();

    QQuickTextDocument* m_document = nullptr;
    QString m_query;
    QColor m_colour;
    // None without a query. Apart from the object, which QML puts anywhere in memory, while a
    // search is made of what has to be aligned.
    std::unique_ptr<TextSearch> m_search;
    QPointer<QSyntaxHighlighter> m_marks; // of the document, made with the first query
};

} // namespace vesko

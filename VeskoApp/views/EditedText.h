#pragma once

#include <QQuickTextDocument>
#include <QtQml/qqmlregistration.h>

namespace vesko {

// Lets a NoteEditor work on the document of a text area.
class EditedText : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickTextDocument* document MEMBER m_document REQUIRED)
    Q_PROPERTY(QObject* editor MEMBER m_editor REQUIRED)

public:
    // Once both are known.
    Q_INVOKABLE void attach();

private:
    QQuickTextDocument* m_document = nullptr;
    QObject* m_editor = nullptr;
};

} // namespace vesko

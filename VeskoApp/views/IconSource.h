#pragma once

#include <QColor>
#include <QObject>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace vesko {

// Where the drawing of that name is, in that colour; nowhere without a name. The address is made
// here because QML that was compiled loses a colour to the garbage collector while it becomes a
// text (Qt 6.4).
class IconSource : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name MEMBER m_name NOTIFY changed)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed)
    Q_PROPERTY(QUrl url READ url NOTIFY changed)

public:
    QUrl url() const;

Q_SIGNALS:
    void changed();

private:
    QString m_name;
    QColor m_color;
};

} // namespace vesko

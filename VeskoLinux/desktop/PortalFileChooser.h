#pragma once

#ifndef Q_MOC_RUN // which cannot read the standard library's clocks
#include "VeskoApp/async/EventClock.h"
#endif
#include "VeskoApp/platform/FileChooser.h"

#include <QDBusServiceWatcher>
#include <QObject>
#include <QVariant>

#include <optional>

class QDBusMessage;

namespace vesko {

// The dialog of the desktop's portal (org.freedesktop.portal.FileChooser), which is another
// program. If that ends while its dialog is open, the user has chosen nothing.
// https://flatpak.github.io/xdg-desktop-portal/docs/doc-org.freedesktop.portal.FileChooser.html
class PortalFileChooser final : public QObject, public FileChooser {
    Q_OBJECT

public:
    explicit PortalFileChooser(EventClock& clock);

    Eventual<Answer> save(const Question& what, QWindow& above) override;
    Eventual<Answer> open(const Question& what, QWindow& above) override;
    Eventual<Answer> folder(const Question& what, QWindow& above) override;

private Q_SLOTS:
    void response(uint code, const QVariantMap& results, const QDBusMessage& message);

private:
    Eventual<Answer> ask(
        const char* method, const Question& what, QVariantMap options, QWindow& above);
    void cancel();
    void end(Answer answer);

    std::optional<Eventual<Answer>> m_asked;
    QString m_request; // the path of the dialog that is asked for or open, on the bus
    unsigned m_requests = 0;
    QDBusServiceWatcher m_portal;
    Timer m_patience; // until the portal says that it has heard
    Timer m_late; // until a dialog is closed that came too late
};

} // namespace vesko

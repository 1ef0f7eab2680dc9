#pragma once

#include "VeskoApp/async/Eventual.h"

#include <QObject>
#include <QString>
#include <QVariantMap>

#include <memory>
#include <optional>

class QDBusMessage;

namespace vesko {

class EventClock;
class Timer;

// What is asked of the desktop's portal and answered later, when the user has agreed; one request
// at a time. Main thread; nothing here waits.
class PortalRequests final : public QObject {
    Q_OBJECT

public:
    // Nothing: refused, failed, or no answer in time.
    using Answer = std::optional<QVariantMap>;

    explicit PortalRequests(EventClock& clock);
    ~PortalRequests() override;

    // Calls a method whose last argument is `options`. Drops an earlier request. A dialog that is
    // still open after `patience` seconds is closed.
    // A person may have said no: then `refused()` is so until the next.
    Eventual<Answer> ask(const QString& interface, const QString& method, QVariantList arguments,
        QVariantMap options, double patience);
    bool refused() const { return m_refused; }
    // Takes the request under way back, with its dialog; its answer is nothing.
    void drop();

    // Of one of the portal's interfaces; 0 if that isn't told within a few seconds.
    Eventual<uint> version(const QString& interface);

private:
    Q_SLOT void response(uint code, const QVariantMap& results, const QDBusMessage& message);
    void end(Answer answer);

    std::unique_ptr<Timer> m_patience;
    int m_count = 0;
    QString m_request; // the path of the one under way; empty: none
    bool m_refused = false;
    std::optional<Eventual<Answer>> m_asked;
};

} // namespace vesko

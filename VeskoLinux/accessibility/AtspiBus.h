#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoLinux/accessibility/AtspiElement.h"
#include "VeskoLinux/accessibility/AtspiInquiry.h"
#include "VeskoLinux/accessibility/FieldFacts.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QVariantList>

#include <coroutine>
#include <functional>
#include <optional>

class QDBusArgument;
class QDBusPendingCallWatcher;

namespace vesko {

class EventClock;

namespace atspi {

inline constexpr const char* accessible = "org.a11y.atspi.Accessible";
inline constexpr const char* text = "org.a11y.atspi.Text";
inline const QString rootPath = QStringLiteral("/org/a11y/atspi/accessible/root");

// From the answers to GetState and GetRole.
AtspiKind kind(const QVariantList& states, const QVariantList& role);
// From the answer to a number's property; nothing of one that isn't known, which is told as -1.
std::optional<std::int64_t> count(const std::optional<QVariantList>& reply);
AtspiAddress address(const QDBusArgument& structure);

} // namespace atspi

// A question already on its way to another program. co_await gives the answer's values, or nothing
// when it failed, came too late or is not of the kind that was expected. Ask several things at
// once by making the calls before awaiting the first.
class AtspiCall {
public:
    AtspiCall(const QDBusPendingCall& call, const char* signature, QObject& home,
        std::optional<AtspiInquiry> inquiry = {});
    AtspiCall(AtspiCall&& other) noexcept;
    AtspiCall& operator=(AtspiCall&&) = delete;
    ~AtspiCall();

    bool await_ready() const { return m_call.isFinished(); }
    void await_suspend(std::coroutine_handle<> waiting);
    std::optional<QVariantList> await_resume() const;

private:
    QDBusPendingCall m_call;
    const char* m_signature;
    QObject& m_home;
    std::optional<AtspiInquiry> m_inquiry;
    QDBusPendingCallWatcher* m_watcher = nullptr;
};

// The accessibility bus of this session, which may come late, end and come back. Main thread only.
// Nothing here waits for another program: Qt's own D-Bus thread does, and every call ends by its
// deadline.
class AtspiBus : public QObject {
    Q_OBJECT
public:
    explicit AtspiBus(EventClock& clock);
    ~AtspiBus() override;

    // Switches accessibility on, since toolkits show nothing of themselves before that, and
    // connects; does both again whenever there is another bus.
    void start();
    // Whether the bus is there and accessibility is switched on.
    bool usable() const;

    // `signature` is what the answer must be.
    AtspiCall call(const AtspiAddress& target, const char* interface, const char* method,
        const char* signature, const AtspiInquiry& inquiry, const QVariantList& arguments = {});
    AtspiCall property(const AtspiAddress& target, const char* interface, const char* name,
        const AtspiInquiry& inquiry);
    // Of the bus: "u", the process behind a name.
    AtspiCall processOf(const QString& service, const AtspiInquiry& inquiry);

    // The element got the focus, or lost it, by its program's account.
    std::function<void(const AtspiAddress&, bool gained)> onFocus;
    // The window got or lost the focus of the desktop, as its program sees it. Told if this is set
    // before open.
    std::function<void(const AtspiAddress&, bool active)> onWindow;
    std::function<void(const QString& service)> onGone; // the program left the bus
    std::function<void()> onOpen; // this is another bus than before, or the first

private:
    Task<> listenToWindows();
    AtspiCall registerFor(const char* event);
    Q_SLOT void stateChanged(const QDBusMessage& message);
    Q_SLOT void activeChanged(const QDBusMessage& message);
    Q_SLOT void windowActivated(const QDBusMessage& message);
    Q_SLOT void windowDeactivated(const QDBusMessage& message);
    Q_SLOT void ownerChanged(const QString& name, const QString& before, const QString& after);
    Q_SLOT void statusChanged(const QString& interface, const QVariantMap& changed);

    void busChanged(const QString& owner);
    Task<> open();
    Task<> reopen();
    Task<bool> connectTo(QString address);
    void close();

    EventClock& m_clock;
    QDBusServiceWatcher m_watcher; // of who gives out the bus's address
    QDBusConnection m_connection{ QString() };
    QString m_name; // of m_connection
    int m_opened = 0; // how many buses there were
    bool m_opening = false;
    bool m_changed = false; // another gives out the address since the opening began
    bool m_enabled = false;
    TaskScope m_tasks; // goes first: its tasks use all of the above
};

} // namespace vesko

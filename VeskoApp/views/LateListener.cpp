#include "VeskoApp/views/LateListener.h"

#include <QGuiApplication>
#include <QPointer>
#include <QWindow>

namespace vesko {

namespace {

void tell(QWindow& window)
{
    QAccessible::State active;
    active.active = true;
    QAccessibleStateChangeEvent activation(&window, active);
    QAccessible::updateAccessibility(&activation);
    if (auto* const focused = window.focusObject()) {
        QAccessibleEvent focus(focused, QAccessible::Focus);
        QAccessible::updateAccessibility(&focus);
    }
}

} // namespace

LateListener::LateListener(QObject* parent)
    : QObject(parent)
{
    QAccessible::installActivationObserver(this);
}

LateListener::~LateListener()
{
    QAccessible::removeActivationObserver(this);
}

void LateListener::accessibilityActiveChanged(bool active)
{
    // Whoever comes to have the keyboard later is told of anyway.
    const QPointer window = active ? QGuiApplication::focusWindow() : nullptr;
    if (!window)
        return;
    // Nothing is connected before this has returned.
    QMetaObject::invokeMethod(
        this,
        [window] {
            if (window && window == QGuiApplication::focusWindow())
                tell(*window);
        },
        Qt::QueuedConnection);
}

} // namespace vesko

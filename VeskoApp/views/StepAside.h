#pragma once

#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/shell/CaptureControl.h"

#include <QObject>
#include <QPointer>
#include <QQuickWindow>
#include <QRect>

#include <optional>
#include <vector>

namespace vesko {

// Keeps the floating control off what the user wants to press in a window of ours: while it would
// lie on some of that in the window that has the keyboard, it stands at the nearest place along the
// edges of the screen where it lies on none, and afterwards where it belongs. Where no place is
// free it stays, and while a dictation is under way or it is being dragged; where the user drags it
// to, it stays as long as he works in that window. Main thread.
class StepAside : public QObject {
public:
    // Both outlive it.
    StepAside(CaptureControl& control, EventClock& clock, QObject* parent);

    // Of what is in that area, the place nearest to `home` for something of its size.
    static std::optional<QPoint> freePlace(
        const QRect& home, const QRect& area, const std::vector<QRect>& taken);
    // What can be pressed or typed into, and the title bar; on the screen. Not a text of many
    // lines, which can be read around the control.
    static std::vector<QRect> taken(const QQuickWindow& window);

private:
    void follow(QWindow* window);
    void lookSoon();
    void look();

    CaptureControl& m_control;
    QPointer<QQuickWindow> m_window; // that has the keyboard
    Timer m_calm; // until what is shown has come to rest
    std::optional<QRect> m_home; // where it belongs, while it stands aside
    QRect m_aside;
    bool m_dragged = false; // by the user, since he works in the window
};

} // namespace vesko

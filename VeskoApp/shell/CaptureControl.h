#pragma once

#include "VeskoApp/capture/Capture.h"
#include "VeskoApp/platform/Platform.h"
#include "VeskoCore/shell/PointerGesture.h"

#include <QObject>
#include <QPointF>
#include <QRect>
#include <QVariant>
#include <QWindow>

#include <functional>
#include <memory>

namespace vesko {

// The floating control: starts and ends a dictation by a click, is moved by a drag, and stands
// above all windows without ever taking the focus. It keeps the control's window, its place, and
// what it shows. Main thread.
class CaptureControl : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool orbEnabled READ orbEnabled NOTIFY stateChanged)
    Q_PROPERTY(QString name READ name NOTIFY stateChanged)
    Q_PROPERTY(QString help READ help NOTIFY stateChanged)
    Q_PROPERTY(QString elapsed READ elapsed NOTIFY elapsedChanged)
    Q_PROPERTY(bool fnHintVisible READ fnHintVisible NOTIFY fnHintVisibleChanged)
    // While something goes on: the heights of the bars, or else the opacities of the dots.
    Q_PROPERTY(bool live READ live NOTIFY stateChanged)
    Q_PROPERTY(QVariantList bars READ bars NOTIFY glyphChanged)
    Q_PROPERTY(QVariantList dots READ dots NOTIFY glyphChanged)
    // What has just happened, for a while; then nothing.
    Q_PROPERTY(QString news READ news NOTIFY newsChanged)
    // At which sides of the window the button is, whose rest is towards the middle of the screen.
    Q_PROPERTY(int buttonSize READ buttonSize CONSTANT) // points
    Q_PROPERTY(bool atLeft READ atLeft NOTIFY sidesChanged)
    Q_PROPERTY(bool atTop READ atTop NOTIFY sidesChanged)
    // The news is about a note that can be opened.
    Q_PROPERTY(bool offersNote READ offersNote NOTIFY newsChanged)

public:
    CaptureControl(Platform& platform, Capture& capture, const LibrarySession& library,
        const StatusLine& status);
    ~CaptureControl() override;

    // Takes the window in its size, and puts it in its place.
    void setWindow(std::unique_ptr<QWindow> window);
    void show(bool shown);
    // To the saved place if a screen holds the window whole there, else to the main screen's
    // corner. The saved place stays.
    void position();
    const QWindow* window() const { return m_window.get(); }
    // The button and what stands beside it; on the screen.
    QRect face() const;
    // Not while something goes on, or while the user presses or drags it.
    bool movable() const { return m_window && !m_gesture && !live(); }
    // Puts its face there, for a while: until position().
    void stand(const QRect& face);
    // Shows what goes on as it is now, and goes on showing it if things may move: to be called when
    // the user's wish for stillness has changed, too.
    void animate();

    // The pointer, in coordinates of the screen. Where an event says that it was counts until it
    // drags; from then on the window is moving, and only the pointer itself knows where it is.
    Q_INVOKABLE void press(const QPointF& at);
    Q_INVOKABLE void drag(const QPointF& at);
    // A click, unless it was a drag; beside the button a click is nothing.
    Q_INVOKABLE void release(const QPointF& at, bool onButton = true);
    // The press becomes none of both.
    Q_INVOKABLE void dropGesture() { m_gesture.reset(); }
    // The user has seen the news.
    Q_INVOKABLE void dismissNews() { tell({}); }
    // What has just been said is about this note.
    void offerNote(const Uuid& id);
    Q_INVOKABLE void openNote();
    std::function<void(const Uuid& id)> onOpenNote;
    // Where the pointer is now.
    std::function<QPointF()> pointer;
    // What the shortcut is called; empty without one.
    std::function<QString()> shortcutWords = [] { return QString(); };
    // Cuts the window to what can be seen of it, in rectangles with "x", "y", "width", "height" and
    // "radius": clicks beside these go to what lies below.
    Q_INVOKABLE void cut(const QVariantList& shapes);

    bool orbEnabled() const;
    QString name() const;
    QString help() const;
    QString elapsed() const;
    bool holdingFn() const { return m_capture.isRecording() && m_capture.pushToTalk(); }
    bool fnHintVisible() const { return m_fnHintVisible; }
    bool live() const;
    QVariantList bars() const;
    QVariantList dots() const;
    QString news() const { return m_news; }
    static int buttonSize() { return 56; }
    bool atLeft() const { return m_atLeft; }
    bool atTop() const { return m_atTop; }
    bool offersNote() const { return m_offered.has_value(); }

Q_SIGNALS:
    void stateChanged();
    void elapsedChanged();
    void fnHintVisibleChanged();
    void glyphChanged();
    void newsChanged();
    void sidesChanged();

private:
    QRect button() const; // in the window
    void setSides(bool atLeft, bool atTop);
    void settle();
    void showFnHint();
    void setFnHintVisible(bool visible);
    void tell(const QString& news);

    Platform& m_platform;
    Capture& m_capture;
    const LibrarySession& m_library;
    std::unique_ptr<QWindow> m_window;
    std::optional<PointerGesture> m_gesture;
    QPoint m_startOrigin; // of the window at the press
    QRect m_face; // in the window
    bool m_atLeft = false;
    bool m_atTop = false;
    bool m_holdingFn = false;
    bool m_fnHintVisible = false;
    QString m_news;
    std::optional<Uuid> m_offered;
    Timer m_fnHint;
    Timer m_frame;
    Timer m_newsEnd;
};

} // namespace vesko

#include "VeskoApp/shell/CaptureControl.h"

#include "VeskoApp/notes/NoteWords.h"
#include "VeskoApp/shell/AudioGlyph.h"
#include "VeskoApp/shell/Screens.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <QCursor>
#include <QGuiApplication>
#include <QRegion>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vesko {

namespace {

const std::string originKey = "capturePanelOrigin";
const std::string sidesKey = "capturePanelSides"; // left and top, each 1 or 0
constexpr double margin = 24; // points to the edges of the screen
constexpr double fnHintTime = 2.4; // seconds
constexpr double frameTime = 0.05; // seconds; smooth enough for so small a thing
constexpr double newsTime = 8; // seconds

// The pixels of a rounded rectangle: those that it covers in part, too, where what lies below is
// seen through them, else they were dark. Row by row, since a painter would take memory that stays.
QRegion pixelsOf(const QRectF& place, double radius, bool inPart)
{
    constexpr double slip = 1e-6; // of what was multiplied
    const auto inset = [&](double y) {
        const double beyond
            = std::max({ place.top() + radius - y, y - (place.bottom() - radius), 0.0 });
        return radius - std::sqrt(std::max(0.0, radius * radius - beyond * beyond));
    };
    const auto first = [inPart](double at) {
        return static_cast<int>(inPart ? std::floor(at + slip) : std::ceil(at - slip));
    };
    const auto last = [inPart](double at) {
        return static_cast<int>(inPart ? std::ceil(at - slip) : std::floor(at + slip));
    };
    QRegion pixels;
    for (int y = first(place.top()); y < last(place.bottom()); ++y) {
        const double upper = inset(std::max<double>(y, place.top()));
        const double lower = inset(std::min<double>(y + 1, place.bottom()));
        const double in = inPart ? std::min(upper, lower) : std::max(upper, lower);
        const int from = first(place.left() + in);
        const int to = last(place.right() - in);
        if (from < to)
            pixels += QRect(from, y, to - from, 1);
    }
    return pixels;
}

} // namespace

CaptureControl::CaptureControl(
    Platform& platform, Capture& capture, const LibrarySession& library, const StatusLine& status)
    : pointer([] { return QCursor::pos(); })
    , m_platform(platform)
    , m_capture(capture)
    , m_library(library)
    , m_fnHint(platform.clock)
    , m_frame(platform.clock)
    , m_newsEnd(platform.clock)
{
    connect(&library, &LibrarySession::readyChanged, this, &CaptureControl::stateChanged);
    connect(&library, &LibrarySession::openingChanged, this, &CaptureControl::stateChanged);
    connect(&library, &LibrarySession::openingChanged, this, &CaptureControl::animate);
    for (const auto follow : { &CaptureControl::stateChanged, &CaptureControl::showFnHint,
             &CaptureControl::animate, &CaptureControl::elapsedChanged })
        connect(&capture, &Capture::phaseChanged, this, follow);
    connect(&capture, &Capture::pushToTalkChanged, this, &CaptureControl::showFnHint);
    connect(&capture, &Capture::elapsedChanged, this, &CaptureControl::elapsedChanged);
    connect(&capture, &Capture::levelChanged, this, [this] {
        if (m_platform.appearance.reduceMotion())
            Q_EMIT glyphChanged();
    });
    connect(&status, &StatusLine::messageChanged, this,
        [this, &status] { tell(status.messageText()); });
    connect(&status, &StatusLine::shortcutMessageChanged, this,
        [this, &status] { tell(status.shortcutText()); });
}

CaptureControl::~CaptureControl() = default;

void CaptureControl::setWindow(std::unique_ptr<QWindow> window)
{
    m_window = std::move(window);
    position();
}

void CaptureControl::show(bool shown)
{
    if (!m_window || m_window->isVisible() == shown)
        return;
    if (shown)
        m_platform.desktop.floatEverywhere(*m_window);
    m_window->setVisible(shown);
    animate();
}

void CaptureControl::position()
{
    const auto areas = screens();
    if (!m_window || areas.empty())
        return;
    const ScreenSize size{ static_cast<double>(m_window->width()),
        static_cast<double>(m_window->height()) };
    std::optional<ScreenPoint> saved;
    const auto stored = m_platform.settings.get<std::vector<double>>(originKey);
    if (stored && stored->size() == 2)
        saved = { stored->at(0), stored->at(1) };
    const auto& main = areas.front();
    const ScreenPoint corner{ main.origin.x + main.size.width - size.width - margin,
        main.origin.y + main.size.height - size.height - margin };
    const auto restored = PanelPlacement::restore(saved, size, areas);
    const auto sides = m_platform.settings.get<std::vector<double>>(sidesKey);
    const bool known = restored && sides && sides->size() == 2;
    setSides(known && sides->at(0) != 0, known && sides->at(1) != 0);
    const auto origin = restored.value_or(corner);
    m_window->setPosition(QPointF(origin.x, origin.y).toPoint());
}

QRect CaptureControl::button() const
{
    return { m_atLeft ? 0 : m_window->width() - buttonSize(),
        m_atTop ? 0 : m_window->height() - buttonSize(), buttonSize(), buttonSize() };
}

QRect CaptureControl::face() const
{
    return m_face.translated(m_window->position());
}

void CaptureControl::stand(const QRect& face)
{
    const auto now = button();
    const auto* const screen = m_window->screen();
    const bool atLeft = face.center().x() < screen->availableGeometry().center().x();
    const QPoint at(atLeft ? face.left() : face.right() + 1 - now.width(), face.top());
    m_window->setPosition(at - now.topLeft());
    settle();
}

void CaptureControl::setSides(bool atLeft, bool atTop)
{
    if (m_atLeft == atLeft && m_atTop == atTop)
        return;
    m_atLeft = atLeft;
    m_atTop = atTop;
    Q_EMIT sidesChanged();
}

// The button stays where it was let go, or comes whole onto that screen; what it says stands on the
// side where there is room.
void CaptureControl::settle()
{
    const auto button = this->button().translated(m_window->position());
    const auto* const at = QGuiApplication::screenAt(button.center());
    const QRect screen = (at ? at : m_window->screen())->availableGeometry();
    setSides(button.center().x() < screen.center().x(), button.center().y() < screen.center().y());
    const QPoint origin = button.topLeft() - this->button().topLeft();
    const auto inside = [](int wanted, int from, int room, int size) {
        return std::clamp(wanted, from, from + std::max(0, room - size));
    };
    m_window->setPosition(inside(origin.x(), screen.x(), screen.width(), m_window->width()),
        inside(origin.y(), screen.y(), screen.height(), m_window->height()));
}

void CaptureControl::press(const QPointF& at)
{
    m_gesture = PointerGesture{ .startX = at.x(), .startY = at.y() };
    m_startOrigin = m_window->position();
}

void CaptureControl::drag(const QPointF& at)
{
    if (!m_gesture)
        return;
    const QPointF now = m_gesture->isDrag ? pointer() : at;
    if (!m_gesture->move(now.x(), now.y()))
        return;
    const QPointF by = now - QPointF(m_gesture->startX, m_gesture->startY);
    m_window->setPosition(m_startOrigin + by.toPoint());
}

void CaptureControl::release(const QPointF& at, bool onButton)
{
    drag(at);
    const auto gesture = std::exchange(m_gesture, std::nullopt);
    if (!gesture)
        return;
    if (gesture->isDrag) {
        settle();
        const QPointF origin = m_window->position();
        m_platform.settings.set(
            originKey, SettingValue{ std::vector<double>{ origin.x(), origin.y() } });
        m_platform.settings.set(sidesKey,
            SettingValue{ std::vector<double>{ m_atLeft ? 1.0 : 0.0, m_atTop ? 1.0 : 0.0 } });
    } else if (onButton && orbEnabled()) {
        m_capture.toggleDictation();
    }
}

void CaptureControl::cut(const QVariantList& shapes)
{
    if (!m_window)
        return;
    // In the screen's own pixels, for an edge as smooth as the screen.
    const double scale = m_window->devicePixelRatio();
    const bool inPart = m_platform.desktop.blends();
    const QRect besideButton(0, button().top(), m_window->width(), button().height());
    QRegion visible;
    m_face = {};
    for (const auto& shape : shapes) {
        const auto part = shape.toMap();
        const auto number
            = [&part](const char* name) { return part[QString::fromLatin1(name)].toDouble(); };
        const QRectF place(number("x"), number("y"), number("width"), number("height"));
        visible += pixelsOf(
            { place.topLeft() * scale, place.size() * scale }, number("radius") * scale, inPart);
        if (const auto whole = place.toAlignedRect(); whole.intersects(besideButton))
            m_face |= whole;
    }
    // A Wayland compositor goes on showing what was cut off, as it was last drawn. One that is
    // hidden needs no window yet, least of all while a recording begins.
    if (m_platform.offer.kind != SessionOffer::Kind::wayland && m_window->isVisible())
        m_platform.desktop.cut(*m_window, visible);
}

bool CaptureControl::live() const
{
    return m_capture.phase() != Phase::idle || m_library.opening();
}

bool CaptureControl::orbEnabled() const
{
    return m_capture.isRecording() || (m_capture.phase() == Phase::idle && m_library.ready());
}

QString CaptureControl::name() const
{
    return m_capture.isRecording() ? translated(L10N_KEY("Vesko", "Stop dictation"))
                                   : translated(L10N_KEY("Vesko", "Start dictation"));
}

QString CaptureControl::help() const
{
    if (m_capture.isRecording())
        return translated(
            L10N_KEY("Vesko", "Click once to stop. Drag to move. Right-click for the menu."));
    if (m_capture.phase() != Phase::idle)
        return {};
    const QString keys = shortcutWords();
    return keys.isEmpty()
        ? translated(
              L10N_KEY("Vesko", "Click once to record. Drag to move. Right-click for the menu."))
        : translated(
              L10N_KEY("Vesko",
                  "Click once to record. Drag to move. Right-click for the menu. Shortcut: %1"))
              .arg(keys);
}

QString CaptureControl::elapsed() const
{
    return m_capture.isRecording() ? shownDuration(m_capture.elapsed()) : QString();
}

// For a while after the gesture key has come to be held; letting go of it takes the hint away.
void CaptureControl::showFnHint()
{
    if (std::exchange(m_holdingFn, holdingFn()) == holdingFn())
        return;
    setFnHintVisible(m_holdingFn);
    m_fnHint.cancel();
    if (m_holdingFn)
        m_fnHint.start(fnHintTime, [this] { setFnHintVisible(false); });
}

void CaptureControl::setFnHintVisible(bool visible)
{
    if (std::exchange(m_fnHintVisible, visible) != visible)
        Q_EMIT fnHintVisibleChanged();
}

// Nothing moves while nothing goes on, nor for who wants stillness.
void CaptureControl::animate()
{
    Q_EMIT glyphChanged();
    m_frame.cancel();
    if (live() && m_window && m_window->isVisible() && !m_platform.appearance.reduceMotion())
        m_frame.start(frameTime, [this] { animate(); });
}

QVariantList CaptureControl::bars() const
{
    QVariantList heights;
    if (AudioGlyph::showsBars(m_capture.level(), m_capture.isRecording()))
        for (const double height : AudioGlyph::bars(m_capture.level(), m_platform.clock.uptime(),
                 m_platform.appearance.reduceMotion()))
            heights << height;
    return heights;
}

QVariantList CaptureControl::dots() const
{
    QVariantList opacities;
    if (live() && !AudioGlyph::showsBars(m_capture.level(), m_capture.isRecording()))
        for (const double opacity :
            AudioGlyph::dots(m_platform.clock.uptime(), m_platform.appearance.reduceMotion()))
            opacities << opacity;
    return opacities;
}

void CaptureControl::offerNote(const Uuid& id)
{
    if (m_news.isEmpty())
        return;
    m_offered = id;
    Q_EMIT newsChanged();
}

void CaptureControl::openNote()
{
    const auto note = m_offered;
    dismissNews();
    if (note && onOpenNote)
        onOpenNote(*note);
}

void CaptureControl::tell(const QString& news)
{
    const bool offered = std::exchange(m_offered, std::nullopt).has_value();
    if (std::exchange(m_news, news) != news || offered)
        Q_EMIT newsChanged();
    m_newsEnd.cancel();
    if (!news.isEmpty())
        m_newsEnd.start(newsTime, [this] { tell({}); });
}

} // namespace vesko

#include "VeskoApp/views/StepAside.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QScreen>

#include <algorithm>
#include <tuple>
#include <utility>

namespace vesko {

namespace {

constexpr double calm = 0.2; // seconds
constexpr int margin = 24; // points to the edges of the screen
constexpr int step = 28; // points from one place to the next
constexpr int gap = 4; // points to what can be pressed
constexpr int pageHeight = 160; // points; what is as high is read more than it is pressed

int squaredDistance(const QPoint& one, const QPoint& other)
{
    const auto between = one - other;
    return QPoint::dotProduct(between, between);
}

void collect(const QQuickItem& item, const QRectF& seen, std::vector<QRect>& found)
{
    if (!item.isVisible() || !item.isEnabled() || item.opacity() == 0)
        return;
    const auto place = item.mapRectToScene({ 0, 0, item.width(), item.height() });
    const auto here = item.clip() ? seen & place : seen;
    if (item.activeFocusOnTab() && place.height() < pageHeight)
        if (const auto shown = (place & here).toAlignedRect(); !shown.isEmpty())
            found.push_back(shown);
    for (const auto* const child : item.childItems())
        collect(*child, here, found);
}

} // namespace

StepAside::StepAside(CaptureControl& control, EventClock& clock, QObject* parent)
    : QObject(parent)
    , m_control(control)
    , m_calm(clock)
{
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &StepAside::follow);
    connect(&control, &CaptureControl::stateChanged, this, &StepAside::lookSoon);
    follow(QGuiApplication::focusWindow());
}

void StepAside::follow(QWindow* window)
{
    if (m_window)
        m_window->disconnect(this);
    m_window = qobject_cast<QQuickWindow*>(window);
    m_dragged = false;
    if (m_window) {
        for (const auto moved : { &QWindow::xChanged, &QWindow::yChanged })
            connect(m_window, moved, this, &StepAside::lookSoon);
        connect(m_window, &QQuickWindow::frameSwapped, this, &StepAside::lookSoon);
    }
    lookSoon();
}

void StepAside::lookSoon()
{
    if (!m_calm.pending())
        m_calm.start(calm, [this] { look(); });
}

void StepAside::look()
{
    if (!m_control.movable())
        return;
    const auto now = m_control.face();
    if (m_home && now != m_aside) {
        m_home.reset();
        m_dragged = true;
    }
    const auto home = m_home.value_or(now);
    if (m_dragged || (!m_home && (!m_window || !m_window->frameGeometry().intersects(home))))
        return;
    const auto inTheWay = m_window ? taken(*m_window) : std::vector<QRect>();
    const auto* const screen = m_control.window()->screen();
    const auto place = freePlace(home, screen->availableGeometry(), inTheWay);
    if (!place || *place == home.topLeft()) {
        if (std::exchange(m_home, std::nullopt))
            m_control.position();
    } else if (!m_home || *place != m_aside.topLeft()) {
        m_control.stand({ *place, home.size() });
        m_home = home;
        m_aside = m_control.face();
    }
}

std::optional<QPoint> StepAside::freePlace(
    const QRect& home, const QRect& area, const std::vector<QRect>& taken)
{
    const int left = area.left() + margin;
    const int top = area.top() + margin;
    const int right = std::max(left, area.left() + area.width() - margin - home.width());
    const int bottom = std::max(top, area.top() + area.height() - margin - home.height());
    std::vector<QPoint> places{ home.topLeft() };
    for (int x = left; x < right + step; x += step)
        for (const int y : { top, bottom })
            places.emplace_back(std::min(x, right), y);
    for (int y = top; y < bottom + step; y += step)
        for (const int x : { left, right })
            places.emplace_back(x, std::min(y, bottom));
    std::ranges::sort(places, {}, [&home](const QPoint& place) {
        return std::tuple(squaredDistance(place, home.topLeft()), place.y(), place.x());
    });
    const auto free = std::ranges::find_if(places, [&](const QPoint& place) {
        const auto here = QRect(place, home.size()).adjusted(-gap, -gap, gap, gap);
        return std::ranges::none_of(
            taken, [&here](const QRect& other) { return other.intersects(here); });
    });
    return free == places.end() ? std::nullopt : std::optional(*free);
}

std::vector<QRect> StepAside::taken(const QQuickWindow& window)
{
    std::vector<QRect> found;
    collect(*window.contentItem(), QRectF({}, QSizeF(window.size())), found);
    const auto inner = window.geometry();
    for (auto& place : found)
        place.translate(inner.topLeft());
    const auto frame = window.frameGeometry();
    if (const QRect title(frame.topLeft(), QSize(frame.width(), inner.top() - frame.top()));
        title.isValid())
        found.push_back(title);
    return found;
}

} // namespace vesko

#include "VeskoApp/shell/AppWindows.h"

#include "VeskoApp/shell/Screens.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vesko {

namespace {

// A window on the move tells of every step; only where it comes to rest is written down.
constexpr double restBeforeSaving = 0.5; // seconds

// The setting with a window's frame: x, y, width and height.
std::string frameKey(AppWindow kind)
{
    switch (kind) {
    case AppWindow::library:
        return "frameVeskoLibrary";
    case AppWindow::settings:
        return "frameVeskoSettings";
    case AppWindow::dictionary:
        return "frameVeskoDictionary";
    case AppWindow::onboarding:
        break;
    }
    return "frameVeskoOnboarding";
}

// What a title bar and a frame may take of the screen: before a window is shown nobody knows.
constexpr QMargins usualFrame{ 8, 40, 8, 8 };

// No larger than the screen lets it be, and so that its frame is on the screen.
void fit(QWindow& window, QRect place, const QScreen& screen)
{
    const auto room = screen.availableGeometry().marginsRemoved(usualFrame);
    window.setMinimumSize(window.minimumSize().boundedTo(room.size()));
    place.setSize(place.size().boundedTo(room.size()));
    place.moveTo(std::clamp(place.x(), room.x(), room.x() + room.width() - place.width()),
        std::clamp(place.y(), room.y(), room.y() + room.height() - place.height()));
    window.setGeometry(place);
}

// What stands in the settings may be anything.
std::optional<QRectF> frameOf(const std::optional<std::vector<double>>& saved)
{
    constexpr double furthest = 1e6; // points; no screen is as far away
    if (!saved || saved->size() != 4
        || !std::ranges::all_of(*saved, [](double at) { return std::abs(at) < furthest; })
        || saved->at(2) < 1 || saved->at(3) < 1)
        return std::nullopt;
    return QRectF(saved->at(0), saved->at(1), saved->at(2), saved->at(3));
}

QScreen& whereTheUserIs(const QWindow& window)
{
    auto* const screen = QGuiApplication::screenAt(QCursor::pos());
    return screen ? *screen : *window.screen();
}

} // namespace

AppWindows::AppWindows(Platform& platform)
    : m_platform(platform)
{
}

AppWindows::~AppWindows()
{
    for (const auto& [kind, place] : m_windows)
        if (place.saving.pending())
            savePlace(kind);
}

bool AppWindows::show(AppWindow kind)
{
    QWindow* const window = find(kind);
    if (!window)
        return false;
    if (window->isVisible())
        m_platform.desktop.bringHere(*window);
    if (window->windowStates() & Qt::WindowMinimized)
        window->setWindowStates(window->windowStates() & ~Qt::WindowMinimized);
    window->setVisible(true);
    window->raise();
    window->requestActivate();
    return true;
}

void AppWindows::discard(AppWindow kind)
{
    const auto found = m_windows.find(kind);
    if (found == m_windows.end())
        return;
    auto window = std::move(found->second.window);
    m_windows.erase(found);
    window->hide();
    window.release()->deleteLater();
}

QWindow* AppWindows::find(AppWindow kind)
{
    const auto known = m_windows.find(kind);
    if (known != m_windows.end())
        return known->second.window.get();
    auto window = make(kind);
    if (!window)
        return nullptr;
    restorePlace(kind, *window);
    auto* const made = window.get();
    m_windows.try_emplace(kind, std::move(window), m_platform.clock);
    watchPlace(kind);
    return made;
}

void AppWindows::restorePlace(AppWindow kind, QWindow& window)
{
    const auto saved = frameOf(m_platform.settings.get<std::vector<double>>(frameKey(kind)));
    const auto& here = whereTheUserIs(window);
    if (!saved) {
        auto place = window.geometry();
        place.moveCenter(here.availableGeometry().center());
        fit(window, place, here);
        return;
    }
    const auto frame = saved->toRect();
    const ScreenSize size{ saved->width(), saved->height() };
    if (PanelPlacement::restore(ScreenPoint{ saved->x(), saved->y() }, size, screens())) {
        window.resize(frame.size());
        window.setFramePosition(frame.topLeft());
        return;
    }
    // As near to it as there is a screen now.
    auto* const screen = QGuiApplication::screenAt(frame.center());
    fit(window, frame.translated(usualFrame.left(), usualFrame.top()), screen ? *screen : here);
}

void AppWindows::watchPlace(AppWindow kind)
{
    auto& place = m_windows.at(kind);
    auto* const window = place.window.get();
    const auto moved = [this, kind, &place] {
        place.saving.start(restBeforeSaving, [this, kind] { savePlace(kind); });
    };
    for (const auto changed :
        { &QWindow::xChanged, &QWindow::yChanged, &QWindow::widthChanged, &QWindow::heightChanged })
        QObject::connect(window, changed, place.watch.get(), moved);
}

void AppWindows::savePlace(AppWindow kind)
{
    const QWindow& window = *m_windows.at(kind).window;
    if (!window.isVisible() || window.visibility() != QWindow::Windowed)
        return;
    const QPointF origin = window.framePosition();
    m_platform.settings.set(frameKey(kind),
        SettingValue{ std::vector<double>{ origin.x(), origin.y(),
            static_cast<double>(window.width()), static_cast<double>(window.height()) } });
}

} // namespace vesko

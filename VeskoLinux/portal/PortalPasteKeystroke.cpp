#include "VeskoLinux/portal/PortalPasteKeystroke.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <algorithm>

namespace vesko {

namespace {

const auto portal = QStringLiteral("org.freedesktop.portal.Desktop");
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto remoteDesktop = QStringLiteral("org.freedesktop.portal.RemoteDesktop");
const std::string tokenKey = "remoteDesktopToken"; // of the settings

constexpr qint64 longestDescription = 64 << 10; // bytes
constexpr uint keyboard = 1; // of the kinds of devices
constexpr uint firstThatRemembers = 2; // of the portal's versions
constexpr uint untilRevoked = 2; // how long the user's answer holds
constexpr double patience = 5; // seconds for what asks nobody
constexpr double usersPatience = 30; // seconds for what may ask the user
constexpr double unasked = 1; // seconds within which no user has answered anything
constexpr double lettingGo = 0.6; // seconds for the user to let go
constexpr double otherFingers = 0.35; // seconds from the first key of a shortcut to the last
constexpr double lookInterval = 0.005; // seconds
// Without a pause between them one desktop has lost keys.
constexpr double betweenKeys = 0.002; // seconds

// Of a line such as "UseIn=gnome;KDE;".
QStringList listed(const QString& text, const QString& key)
{
    for (const auto& line : text.split(u'\n'))
        if (line.startsWith(key + u'='))
            return line.sliced(key.size() + 1).trimmed().split(u';', Qt::SkipEmptyParts);
    return {};
}

bool describesRemoteDesktop(const QString& path, const QStringList& desktops)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const auto text = QString::fromUtf8(file.read(longestDescription));
    return listed(text, QStringLiteral("Interfaces"))
               .contains(QStringLiteral("org.freedesktop.impl.portal.RemoteDesktop"))
        && std::ranges::any_of(listed(text, QStringLiteral("UseIn")),
            [&](const QString& name) { return desktops.contains(name, Qt::CaseInsensitive); });
}

bool isSameField(const FieldReading& before, const FieldReading& now)
{
    return before.element && now.element && now.focused && now.seesFrontmost
        && now.frontmost == before.frontmost && now.element->equals(*before.element);
}

} // namespace

bool PortalPasteKeystroke::offered()
{
    const auto desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
    const auto folders = QStandardPaths::locateAll(QStandardPaths::GenericDataLocation,
        QStringLiteral("xdg-desktop-portal/portals"), QStandardPaths::LocateDirectory);
    return std::ranges::any_of(folders, [&](const QString& folder) {
        const auto files = QDir(folder).entryInfoList({ QStringLiteral("*.portal") }, QDir::Files);
        return std::ranges::any_of(files, [&](const QFileInfo& file) {
            return describesRemoteDesktop(file.filePath(), desktops);
        });
    });
}

PortalPasteKeystroke::PortalPasteKeystroke(WaylandConnection& connection, const SessionState& state,
    EventClock& clock, SettingsStore& settings, FocusedField& fields, ShortcutHeld shortcutHeld,
    ClipboardTaken clipboardTaken)
    : m_desktop(state)
    , m_clock(clock)
    , m_settings(settings)
    , m_fields(fields)
    , m_shortcutHeld(std::move(shortcutHeld))
    , m_clipboardTaken(std::move(clipboardTaken))
    , m_requests(clock)
    , m_usersKeymap(connection, [this](const std::string& map) { m_keys.emplace(map); })
    , m_pause(clock)
    , m_look(clock)
{
}

Eventual<std::monostate> PortalPasteKeystroke::keysReleased()
{
    m_patienceEnds = m_clock.uptime() + lettingGo;
    const Eventual<std::monostate> released;
    m_released = released;
    look();
    return released;
}

void PortalPasteKeystroke::look()
{
    const double now = m_clock.uptime();
    const auto held = m_shortcutHeld();
    if (held && now < *held + otherFingers && now < m_patienceEnds) {
        m_look.start(lookInterval, [this] { look(); });
        return;
    }
    if (const auto released = std::exchange(m_released, std::nullopt))
        m_tasks.spawn(awaitClipboard(*released));
}

Task<> PortalPasteKeystroke::awaitClipboard(Eventual<std::monostate> released)
{
    m_hasClipboard = co_await m_clipboardTaken();
    released.set({});
}

std::optional<std::string> PortalPasteKeystroke::keyboardTaken() const
{
    if (m_desktop.locked())
        return "session_locked";
    return m_state == State::opening && m_asked > 0 ? Obstacle("still_asked") : std::nullopt;
}

Eventual<std::optional<std::string>> PortalPasteKeystroke::send(const FieldElement& element)
{
    if (const auto obstacle = obstacleNow())
        return Eventual<Obstacle>::of(obstacle);
    const double now = m_clock.uptime();
    if (const auto held = m_shortcutHeld(); held && *held >= now)
        return Eventual<Obstacle>::of("keys_held");
    auto steps = m_keys ? m_keys->steps(element.isTerminal()) : std::vector<KeyStep>();
    if (!m_hasClipboard || steps.empty() || std::exchange(m_busy, true))
        return Eventual<Obstacle>::of("event_failed");
    const Eventual<Obstacle> answer;
    m_tasks.spawn(run(std::move(steps), answer));
    return answer;
}

void PortalPasteKeystroke::prepare()
{
    m_wanted = true;
    if (m_state == State::none)
        m_tasks.spawn(open());
}

void PortalPasteKeystroke::release()
{
    m_wanted = false;
    if (m_busy)
        return;
    if (m_state != State::opening)
        close();
    else if (m_asked > 0 && !m_remembers)
        m_requests.drop();
}

// A desktop that asks nobody has a moment to open the session.
PortalPasteKeystroke::Obstacle PortalPasteKeystroke::obstacleNow() const
{
    const auto taken = keyboardTaken();
    const bool atOnce = taken == "still_asked" && m_clock.uptime() < m_asked + unasked;
    return atOnce ? std::nullopt : taken;
}

Task<> PortalPasteKeystroke::run(std::vector<KeyStep> steps, Eventual<Obstacle> answer)
{
    prepare();
    Obstacle obstacle;
    if (m_state == State::opening) {
        const FieldReading meant = co_await m_fields.read(std::nullopt);
        co_await m_openingEnds;
        // That has taken its time; the session may be locked by now, or another field have the
        // focus.
        const FieldReading now = co_await m_fields.read(std::nullopt);
        obstacle = obstacleNow();
        if (!obstacle && m_state == State::open && !isSameField(meant, now))
            obstacle = "app_changed";
    }
    if (!obstacle && m_state == State::declined)
        obstacle = "not_allowed";
    if (!obstacle && !(m_state == State::open && co_await type(std::move(steps))))
        obstacle = "event_failed";
    m_busy = false;
    release();
    answer.set(obstacle);
}

Task<> PortalPasteKeystroke::open()
{
    m_state = State::opening;
    m_openingEnds = {};
    m_asked = 0;
    m_state = co_await opened();
    m_pause.cancel();
    if (!m_wanted && !m_busy)
        close();
    m_openingEnds.set({});
}

Task<PortalPasteKeystroke::State> PortalPasteKeystroke::opened()
{
    m_remembers = co_await m_requests.version(remoteDesktop) >= firstThatRemembers;
    const auto created = co_await m_requests.ask(remoteDesktop, QStringLiteral("CreateSession"), {},
        { { QStringLiteral("session_handle_token"), QStringLiteral("vesko") } }, patience);
    if (!created)
        co_return State::failed;
    m_session.emplace(created->value(QStringLiteral("session_handle")).toString());
    const auto session = QVariant::fromValue(*m_session);
    QVariantMap wanted{ { QStringLiteral("types"), keyboard },
        { QStringLiteral("persist_mode"), untilRevoked } };
    if (const auto token = m_settings.get<std::string>(tokenKey))
        wanted.insert(QStringLiteral("restore_token"), QString::fromStdString(*token));
    if (!co_await m_requests.ask(
            remoteDesktop, QStringLiteral("SelectDevices"), { session }, wanted, patience))
        co_return State::failed;
    if (!m_wanted && !m_busy && !m_remembers)
        co_return State::failed;
    m_asked = m_clock.uptime();
    m_pause.start(unasked, [this] { m_openingEnds.set({}); });
    const auto started = co_await m_requests.ask(
        remoteDesktop, QStringLiteral("Start"), { session, QString() }, {}, usersPatience);
    if (!started)
        co_return m_requests.refused() ? State::declined : State::failed;
    // Each token is good for one session, and brings the next one.
    const auto token = started->value(QStringLiteral("restore_token")).toString();
    if (!token.isEmpty())
        m_settings.set(tokenKey, token.toStdString());
    const bool canType = (started->value(QStringLiteral("devices")).toUInt() & keyboard) != 0;
    co_return canType ? State::open : State::declined;
}

Task<bool> PortalPasteKeystroke::type(std::vector<KeyStep> steps)
{
    bool all = true;
    for (const KeyStep& step : steps) {
        auto call = QDBusMessage::createMethodCall(
            portal, portalPath, remoteDesktop, QStringLiteral("NotifyKeyboardKeycode"));
        call << QVariant::fromValue(*m_session) << QVariantMap() << static_cast<int>(step.key)
             << (step.down ? 1U : 0U);
        const Eventual<bool> done;
        auto* const answer = new QDBusPendingCallWatcher(
            QDBusConnection::sessionBus().asyncCall(call, static_cast<int>(patience * 1000)),
            &m_requests);
        QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, done] {
            answer->deleteLater();
            done.set(!answer->isError());
        });
        all = co_await done && all;
        const Eventual<bool> rested;
        m_pause.start(betweenKeys, [rested] { rested.set(true); });
        co_await rested;
    }
    co_return all;
}

void PortalPasteKeystroke::close()
{
    m_state = State::none;
    if (!m_session)
        return;
    auto call = QDBusMessage::createMethodCall(portal, m_session->path(),
        QStringLiteral("org.freedesktop.portal.Session"), QStringLiteral("Close"));
    call.setAutoStartService(false);
    QDBusConnection::sessionBus().send(call);
    m_session.reset();
}

} // namespace vesko

#include "VeskoLinux/desktop/PortalFileChooser.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QGuiApplication>
#include <QUrl>
#include <QWindow>

#include <limits>
#include <utility>

namespace vesko {

namespace {

const auto portal = QStringLiteral("org.freedesktop.portal.Desktop");
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto fileChooser = QStringLiteral("org.freedesktop.portal.FileChooser");
const auto request = QStringLiteral("org.freedesktop.portal.Request");

// A portal that has to be started first takes a part of this.
constexpr double patience = 5; // seconds
// A dialog that is told to close before it is open stays.
constexpr double dialogOpens = 1; // seconds

// One kind of files and the patterns of their names, as the portal has them: (sa(us)).
struct NamePattern {
    uint kind = 0; // a glob, not a media type
    QString pattern;
};
struct FileFilter {
    QString name;
    QList<NamePattern> patterns;
};

// NOLINTBEGIN(bugprone-return-const-ref-from-parameter): the shape that Qt wants
QDBusArgument& operator<<(QDBusArgument& to, const NamePattern& pattern)
{
    to.beginStructure();
    to << pattern.kind << pattern.pattern;
    to.endStructure();
    return to;
}
const QDBusArgument& operator>>(const QDBusArgument& from, NamePattern& pattern)
{
    from.beginStructure();
    from >> pattern.kind >> pattern.pattern;
    from.endStructure();
    return from;
}
QDBusArgument& operator<<(QDBusArgument& to, const FileFilter& filter)
{
    to.beginStructure();
    to << filter.name << filter.patterns;
    to.endStructure();
    return to;
}
const QDBusArgument& operator>>(const QDBusArgument& from, FileFilter& filter)
{
    from.beginStructure();
    from >> filter.name >> filter.patterns;
    from.endStructure();
    return from;
}
// NOLINTEND(bugprone-return-const-ref-from-parameter)

void registerFilters()
{
    static const bool done = [] {
        qDBusRegisterMetaType<NamePattern>();
        qDBusRegisterMetaType<QList<NamePattern>>();
        qDBusRegisterMetaType<FileFilter>();
        qDBusRegisterMetaType<QList<FileFilter>>();
        return true;
    }();
    Q_UNUSED(done)
}

// The portal's name for the window.
QString handle(QWindow& window)
{
    if (QGuiApplication::platformName() != QStringLiteral("xcb"))
        return {};
    return QStringLiteral("x11:") + QString::number(window.winId(), 16);
}

// The file of this machine that the address names. Its name has to be UTF-8, as all our texts.
std::optional<std::filesystem::path> fileAt(const QString& address)
{
    const QUrl url(address, QUrl::StrictMode);
    if (!url.isValid() || url.scheme() != QStringLiteral("file") || url.hasQuery()
        || url.hasFragment()
        || (!url.host().isEmpty() && url.host() != QStringLiteral("localhost")))
        return std::nullopt;
    const auto path = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toUtf8());
    if (!path.startsWith('/') || path.contains('\0') || QString::fromUtf8(path).toUtf8() != path)
        return std::nullopt;
    return path.toStdString();
}

// Nobody is to answer a dialog that nobody listens to.
void close(const QString& dialog)
{
    auto call = QDBusMessage::createMethodCall(portal, dialog, request, QStringLiteral("Close"));
    call.setAutoStartService(false);
    QDBusConnection::sessionBus().send(call);
}

} // namespace

PortalFileChooser::PortalFileChooser(EventClock& clock)
    : m_portal(portal, QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForUnregistration)
    , m_patience(clock)
    , m_late(clock)
{
    connect(&m_portal, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        if (!m_patience.pending()) // else the call fails
            end({ Answer::cancelled, {} });
    });
}

Eventual<FileChooser::Answer> PortalFileChooser::save(const Question& what, QWindow& above)
{
    return ask("SaveFile", what,
        { { QStringLiteral("current_name"),
            QString::fromStdString(what.file.filename().string()) } },
        above);
}

Eventual<FileChooser::Answer> PortalFileChooser::open(const Question& what, QWindow& above)
{
    return ask("OpenFile", what, {}, above);
}

Eventual<FileChooser::Answer> PortalFileChooser::folder(const Question& what, QWindow& above)
{
    return ask("OpenFile", what, { { QStringLiteral("directory"), true } }, above);
}

Eventual<FileChooser::Answer> PortalFileChooser::ask(
    const char* method, const Question& what, QVariantMap options, QWindow& above)
{
    cancel();
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return Eventual<Answer>::of({ Answer::unavailable, {} });
    registerFilters();
    // The answer may be there before that to the call, so its place is agreed on beforehand.
    const auto token = QStringLiteral("vesko%1").arg(++m_requests);
    m_request = QStringLiteral("%1/request/%2/%3")
                    .arg(portalPath, bus.baseService().mid(1).replace(u'.', u'_'), token);
    bus.connect(portal, m_request, request, QStringLiteral("Response"), this,
        SLOT(response(uint, QVariantMap, QDBusMessage)));
    auto call = QDBusMessage::createMethodCall(
        portal, portalPath, fileChooser, QString::fromLatin1(method));
    const auto folder = what.file.parent_path().string();
    options.insert(QVariantMap{
        { QStringLiteral("handle_token"), token },
        { QStringLiteral("accept_label"), QString::fromStdString(what.agree) },
        // With its end, as the portal wants it.
        { QStringLiteral("current_folder"),
            QByteArray(folder.c_str(), static_cast<qsizetype>(folder.size()) + 1) },
    });
    if (!what.pattern.empty()) {
        const FileFilter filter{ QString::fromStdString(what.kind),
            { { 0, QString::fromStdString(what.pattern) } } };
        options.insert(QStringLiteral("filters"), QVariant::fromValue(QList<FileFilter>{ filter }));
    }
    call << handle(above) << QString::fromStdString(what.title) << options;
    auto* heard
        = new QDBusPendingCallWatcher(bus.asyncCall(call, std::numeric_limits<int>::max()), this);
    connect(heard, &QDBusPendingCallWatcher::finished, this, [this, heard, asked = m_request] {
        heard->deleteLater();
        if (asked != m_request) {
            if (!heard->isError())
                m_late.start(dialogOpens, [asked] { close(asked); });
            return;
        }
        m_patience.cancel();
        if (heard->isError())
            end({ Answer::unavailable, {} });
    });
    m_patience.start(patience, [this] { end({ Answer::unavailable, {} }); });
    return m_asked.emplace();
}

void PortalFileChooser::response(uint code, const QVariantMap& results, const QDBusMessage& message)
{
    if (message.path() != m_request)
        return;
    if (code != 0) {
        end({ Answer::cancelled, {} });
        return;
    }
    const auto addresses = results[QStringLiteral("uris")].toStringList();
    const auto file = addresses.size() == 1 ? fileAt(addresses.front()) : std::nullopt;
    end(file ? Answer{ Answer::chosen, *file } : Answer{ Answer::unavailable, {} });
}

void PortalFileChooser::cancel()
{
    if (m_asked && !m_patience.pending())
        close(m_request);
    end({ Answer::cancelled, {} });
}

void PortalFileChooser::end(Answer answer)
{
    if (!m_asked)
        return;
    m_patience.cancel();
    QDBusConnection::sessionBus().disconnect(portal, std::exchange(m_request, {}), request,
        QStringLiteral("Response"), this, SLOT(response(uint, QVariantMap, QDBusMessage)));
    std::exchange(m_asked, std::nullopt)->set(std::move(answer));
}

} // namespace vesko

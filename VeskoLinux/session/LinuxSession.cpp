#include "VeskoLinux/session/LinuxSession.h"

#include "VeskoLinux/accessibility/AtspiFocusedField.h"
#include "VeskoLinux/desktop/QtClipboard.h"
#include "VeskoLinux/desktop/XdgFolders.h"
#include "VeskoLinux/desktop/XwaylandClipboard.h"
#include "VeskoLinux/gnome/GnomeShortcut.h"
#include "VeskoLinux/input/SentKeys.h"
#include "VeskoLinux/input/X11GlobalShortcut.h"
#include "VeskoLinux/input/X11KeyMonitor.h"
#include "VeskoLinux/input/X11PasteKeystroke.h"
#include "VeskoLinux/kglobalaccel/KGlobalAccelShortcut.h"
#include "VeskoLinux/portal/PortalPasteKeystroke.h"
#include "VeskoLinux/wayland/DataControlClipboard.h"
#include "VeskoLinux/wayland/VirtualKeyboardPaste.h"
#include "VeskoLinux/wayland/WaylandConnection.h"

#include <QGuiApplication>

namespace vesko {

namespace {

const char* const windowSystem = "QT_QPA_PLATFORM";

// Nothing can be typed into other programs here.
class NoPasteKeystroke final : public PasteKeystroke {
public:
    Eventual<std::monostate> keysReleased() override { return Eventual<std::monostate>::of({}); }
    std::optional<std::string> keyboardTaken() const override { return std::nullopt; }
    Eventual<std::optional<std::string>> send(const FieldElement&) override
    {
        return Eventual<std::optional<std::string>>::of("event_failed");
    }
};

// The desktop keeps its keys to itself.
class NoGlobalShortcut final : public GlobalShortcut {
public:
    bool install(const KeyCombination&, std::function<void()>) override { return false; }
    void remove() override { }
};

class NoKeyMonitor final : public KeyMonitor {
public:
    bool permitted() const override { return false; }
    bool reportsFn() const override { return false; }
    bool takenByOther() const override { return false; }
    bool start(GestureKey, std::function<void(const KeyEvent&)>) override { return false; }
    void stop() override { }
};

enum class Typist { virtualKeyboard, portal, nobody };

// Who types the paste shortcut under Wayland.
Typist typistOf(const WaylandConnection& connection)
{
    if (VirtualKeyboardPaste::offered(connection))
        return Typist::virtualKeyboard;
    return PortalPasteKeystroke::offered() ? Typist::portal : Typist::nobody;
}

// What the compositors of one family read from their configuration, by its own words for them.
std::string linesForConfiguration()
{
    if (!qEnvironmentVariableIsSet("SWAYSOCK"))
        return {};
    return "bindsym --no-repeat Mod4+Shift+space exec vesko --toggle\n"
           "bindsym --no-repeat Pause exec vesko --press\n"
           "bindsym --release Pause exec vesko --release";
}

// The first of the names, which is the most particular one.
std::string desktopName()
{
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP")
        .section(QLatin1Char(':'), 0, 0)
        .toStdString();
}

} // namespace

struct LinuxSession::Parts {
    std::unique_ptr<FocusedField> focusedField;
    std::unique_ptr<PasteKeystroke> pasteKeystroke;
    std::unique_ptr<Clipboard> clipboard;
    std::unique_ptr<GlobalShortcut> shortcut;
    std::unique_ptr<KeyMonitor> keys;
    std::unique_ptr<DesktopShortcut> desktopShortcut;

    virtual ~Parts() = default;
};

class LinuxSession::X11 final : public Parts {
public:
    X11(EventClock& clock, const SessionState& state)
        : m_sentKeys(clock)
    {
        focusedField = std::make_unique<AtspiFocusedField>(clock, AtspiFocusedField::Windows::x11);
        auto own = std::make_unique<X11GlobalShortcut>();
        pasteKeystroke = std::make_unique<X11PasteKeystroke>(m_sentKeys, *own, state, clock);
        shortcut = std::move(own);
        clipboard = std::make_unique<QtClipboard>();
        keys = std::make_unique<X11KeyMonitor>(m_sentKeys, clock);
    }
    ~X11() override
    {
        pasteKeystroke.reset();
        keys.reset();
    }

private:
    SentKeys m_sentKeys;
};

class LinuxSession::Wayland final : public Parts {
public:
    Wayland(std::unique_ptr<WaylandConnection> connection, EventClock& clock,
        SettingsStore& settings, const SessionState& state)
        : m_connection(std::move(connection))
    {
        focusedField
            = std::make_unique<AtspiFocusedField>(clock, AtspiFocusedField::Windows::accessibility);
        PortalPasteKeystroke::ShortcutHeld held = [] { return std::optional<double>(); };
        if (KGlobalAccelShortcut::offered()) {
            auto own = std::make_unique<KGlobalAccelShortcut>(clock);
            held = [own = own.get()] { return own->lastHeld(); };
            shortcut = std::move(own);
        } else {
            shortcut = std::make_unique<NoGlobalShortcut>();
            if (GnomeShortcut::offered())
                desktopShortcut = std::make_unique<GnomeShortcut>(programPath());
        }
        PortalPasteKeystroke::ClipboardTaken taken = [] { return Eventual<bool>::of(true); };
        if (DataControlClipboard::offered(*m_connection)) {
            clipboard = std::make_unique<DataControlClipboard>(*m_connection);
        } else if (throughX11()) {
            auto own = std::make_unique<XwaylandClipboard>(clock);
            taken = [own = own.get()] { return own->taken(); };
            clipboard = std::move(own);
        } else {
            clipboard = std::make_unique<QtClipboard>();
            m_copies = false;
        }
        if (m_copies)
            m_typist = typistOf(*m_connection);
        if (m_typist == Typist::virtualKeyboard)
            pasteKeystroke = std::make_unique<VirtualKeyboardPaste>(*m_connection, state);
        else if (m_typist == Typist::portal)
            pasteKeystroke = std::make_unique<PortalPasteKeystroke>(*m_connection, state, clock,
                settings, *focusedField, std::move(held), std::move(taken));
        else
            pasteKeystroke = std::make_unique<NoPasteKeystroke>();
        keys = std::make_unique<NoKeyMonitor>();
    }
    ~Wayland() override
    {
        pasteKeystroke.reset(); // looks at fields
        clipboard.reset();
    }

    void describe(SessionOffer& offer) const
    {
        offer.kind = SessionOffer::Kind::wayland;
        if (!KGlobalAccelShortcut::offered()) {
            offer.shortcut = SessionOffer::Shortcut::command;
            offer.shortcutLines = linesForConfiguration();
            offer.keepsShortcuts = desktopShortcut != nullptr;
        }
        offer.allKeys = false;
        offer.floats = throughX11();
        offer.copies = m_copies;
        offer.pastes = m_typist != Typist::nobody;
        offer.asksToPaste = m_typist == Typist::portal;
    }

private:
    // Whether the program's windows are those of X11.
    static bool throughX11() { return QGuiApplication::platformName() == QLatin1String("xcb"); }

    std::unique_ptr<WaylandConnection> m_connection;
    bool m_copies = true;
    Typist m_typist = Typist::nobody;
};

bool LinuxSession::chooseWindowSystem()
{
    const bool both
        = qEnvironmentVariableIsSet("WAYLAND_DISPLAY") && qEnvironmentVariableIsSet("DISPLAY");
    return both && !qEnvironmentVariableIsSet(windowSystem) && qputenv(windowSystem, "xcb;wayland");
}

std::string LinuxSession::summary()
{
    const WaylandConnection connection;
    if (!connection.works())
        return "X11";
    const bool hasOwn = DataControlClipboard::offered(connection);
    if (!hasOwn && !qEnvironmentVariableIsSet("DISPLAY"))
        return "Wayland; nothing can be copied or pasted while another program is in use";
    std::string words = "Wayland; ";
    switch (typistOf(connection)) {
    case Typist::virtualKeyboard:
        words += "pastes by the compositor's virtual keyboard";
        break;
    case Typist::portal:
        words += "pastes by the desktop's portal";
        break;
    case Typist::nobody:
        words += "nothing can be pasted";
        break;
    }
    return words + (hasOwn ? "; clipboard by data-control" : "; clipboard by its own windows");
}

LinuxSession::LinuxSession(EventClock& clock, SettingsStore& settings, const SessionState& state)
{
    m_offer.desktop = desktopName();
    auto connection = std::make_unique<WaylandConnection>();
    if (!connection->works()) {
        m_parts = std::make_unique<X11>(clock, state);
        return;
    }
    auto parts = std::make_unique<Wayland>(std::move(connection), clock, settings, state);
    parts->describe(m_offer);
    m_parts = std::move(parts);
}

LinuxSession::~LinuxSession() = default;

FocusedField& LinuxSession::focusedField() const
{
    return *m_parts->focusedField;
}

PasteKeystroke& LinuxSession::pasteKeystroke() const
{
    return *m_parts->pasteKeystroke;
}

Clipboard& LinuxSession::clipboard() const
{
    return *m_parts->clipboard;
}

GlobalShortcut& LinuxSession::shortcut() const
{
    return *m_parts->shortcut;
}

KeyMonitor& LinuxSession::keys() const
{
    return *m_parts->keys;
}

DesktopShortcut* LinuxSession::desktopShortcut() const
{
    return m_parts->desktopShortcut.get();
}

} // namespace vesko

#include "tests/linux/Desktop.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFile>
#include <QTimer>
#include <QUuid>

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>
#include <X11/extensions/XTest.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace vesko::desktop {

bool until(const std::function<bool()>& condition)
{
    const QDeadlineTimer deadline(15'000);
    // What is waited for may happen in another process, which sends no event here.
    QTimer look;
    look.start(5);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

void rest()
{
    const QDeadlineTimer movement(30);
    until([&] { return movement.hasExpired(); });
}

Program::Program(const QString& name, const QStringList& arguments)
{
    m_process.setProcessChannelMode(QProcess::SeparateChannels);
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(name, arguments);
    m_process.waitForStarted();
}

Program::~Program()
{
    end();
}

void Program::end()
{
    m_process.kill();
    m_process.waitForFinished();
}

std::string Program::output()
{
    m_output += m_process.readAllStandardOutput().toStdString();
    return m_output;
}

QString fileWith(const QString& text)
{
    const QString path = qEnvironmentVariable("SESSION_DIR") + QStringLiteral("/tmp/")
        + QUuid::createUuid().toString(QUuid::WithoutBraces) + QStringLiteral(".txt");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        std::abort();
    file.write(text.toUtf8());
    return path;
}

Hands::Hands(const char* display)
    : m_display(XOpenDisplay(display))
{
    if (!m_display)
        std::abort();
}

Hands::~Hands()
{
    XCloseDisplay(m_display);
}

void Hands::down(Key key) const
{
    XTestFakeKeyEvent(m_display, key, True, CurrentTime);
    XSync(m_display, False);
}

void Hands::up(Key key) const
{
    XTestFakeKeyEvent(m_display, key, False, CurrentTime);
    XSync(m_display, False);
}

void Hands::tap(Key key) const
{
    down(key);
    up(key);
}

void Hands::chord(std::initializer_list<Key> keys) const
{
    for (auto key = keys.begin(); key != keys.end(); ++key)
        down(*key);
    for (auto key = std::rbegin(keys); key != std::rend(keys); ++key)
        up(*key);
}

Key Hands::key(const char* symbol) const
{
    const Key code = XKeysymToKeycode(m_display, XStringToKeysym(symbol));
    if (!code)
        std::abort();
    return code;
}

bool Hands::isDown(Key key) const
{
    char keys[32];
    XQueryKeymap(m_display, keys);
    return keys[key / 8] >> (key % 8) & 1;
}

void Hands::layout(int group) const
{
    XkbLockGroup(m_display, XkbUseCoreKbd, unsigned(group));
    XSync(m_display, False);
}

void Hands::locks(unsigned modifiers) const
{
    XkbLockModifiers(m_display, XkbUseCoreKbd, capsLock | numLock, modifiers);
    XSync(m_display, False);
}

void Hands::latch(unsigned modifiers) const
{
    XkbLatchModifiers(m_display, XkbUseCoreKbd, 0xFF, modifiers);
    XSync(m_display, False);
}

void Hands::lock(unsigned modifiers) const
{
    XkbLockModifiers(m_display, XkbUseCoreKbd, 0xFF, modifiers);
    XSync(m_display, False);
}

unsigned Hands::sticking() const
{
    XkbStateRec state;
    XkbGetState(m_display, XkbUseCoreKbd, &state);
    return unsigned(state.latched_mods | state.locked_mods);
}

void Hands::slowKeys(bool on) const
{
    XkbChangeEnabledControls(m_display, XkbUseCoreKbd, XkbSlowKeysMask, on ? XkbSlowKeysMask : 0);
    XSync(m_display, False);
}

void Hands::buttonDown(unsigned button) const
{
    XTestFakeButtonEvent(m_display, button, True, CurrentTime);
    XSync(m_display, False);
}

void Hands::buttonUp(unsigned button) const
{
    XTestFakeButtonEvent(m_display, button, False, CurrentTime);
    XSync(m_display, False);
}

void Hands::point(int x, int y) const
{
    XTestFakeMotionEvent(m_display, -1, x, y, CurrentTime);
    XSync(m_display, False);
}

namespace {

bool refused = false; // by the X server, which tells through a function

int noteRefusal(_XDisplay*, XErrorEvent*)
{
    refused = true;
    return 0;
}

std::array<unsigned char, XIMaskLen(XI_LASTEVENT)> keyEvents()
{
    std::array<unsigned char, XIMaskLen(XI_LASTEVENT)> bits{};
    XISetMask(bits.data(), XI_KeyPress);
    return bits;
}

bool grabExtension(_XDisplay* display, Key key, unsigned modifiers)
{
    int major = 2, minor = 2;
    XIQueryVersion(display, &major, &minor);
    auto bits = keyEvents();
    XIEventMask mask{ XIAllMasterDevices, int(bits.size()), bits.data() };
    XIGrabModifiers with{ int(modifiers), 0 };
    return XIGrabKeycode(display, XIAllMasterDevices, key, DefaultRootWindow(display),
               XIGrabModeAsync, XIGrabModeAsync, False, &mask, 1, &with)
        == 0;
}

bool anyPress(_XDisplay* display)
{
    bool pressed = false;
    while (XPending(display)) {
        XEvent event;
        XNextEvent(display, &event);
        const bool ofExtension = event.type == GenericEvent && event.xcookie.evtype == XI_KeyPress;
        pressed = pressed || event.type == KeyPress || ofExtension;
    }
    return pressed;
}

} // namespace

Grab::Grab(Key key, unsigned modifiers, Kind kind)
    : m_display(XOpenDisplay(nullptr))
{
    if (!m_display)
        std::abort();
    refused = false;
    const auto earlier = XSetErrorHandler(noteRefusal);
    if (kind == Kind::extension)
        m_works = grabExtension(m_display, key, modifiers);
    else
        XGrabKey(m_display, key, modifiers, DefaultRootWindow(m_display), False, GrabModeAsync,
            GrabModeAsync);
    XSync(m_display, False);
    XSetErrorHandler(earlier);
    m_works = m_works && !refused;
}

Grab::~Grab()
{
    XCloseDisplay(m_display);
}

bool Grab::pressed() const
{
    return anyPress(m_display);
}

KeyboardGrab::KeyboardGrab(Grab::Kind kind)
    : m_display(XOpenDisplay(nullptr))
{
    if (!m_display)
        std::abort();
    const auto root = DefaultRootWindow(m_display);
    constexpr int masterKeyboard = 3;
    auto bits = keyEvents();
    XIEventMask mask{ masterKeyboard, int(bits.size()), bits.data() };
    int major = 2, minor = 2;
    XIQueryVersion(m_display, &major, &minor);
    const int status = kind == Grab::Kind::core
        ? XGrabKeyboard(m_display, root, False, GrabModeAsync, GrabModeAsync, CurrentTime)
        : XIGrabDevice(m_display, masterKeyboard, root, CurrentTime, None, XIGrabModeAsync,
              XIGrabModeAsync, False, &mask);
    if (status != GrabSuccess)
        std::abort();
    XSync(m_display, False);
}

KeyboardGrab::~KeyboardGrab()
{
    XCloseDisplay(m_display);
}

bool KeyboardGrab::pressed() const
{
    return anyPress(m_display);
}

PlainWindow::PlainWindow()
    : m_display(XOpenDisplay(nullptr))
{
    if (!m_display)
        std::abort();
    m_window
        = XCreateSimpleWindow(m_display, DefaultRootWindow(m_display), 0, 0, 100, 100, 0, 0, 0);
    XSetWindowAttributes attributes{};
    attributes.override_redirect = True;
    XChangeWindowAttributes(m_display, m_window, CWOverrideRedirect, &attributes);
    XSelectInput(m_display, m_window, FocusChangeMask);
    XMapWindow(m_display, m_window);
    XSync(m_display, False);
}

PlainWindow::~PlainWindow()
{
    XCloseDisplay(m_display);
}

void PlainWindow::takeFocus() const
{
    XSetInputFocus(m_display, m_window, RevertToParent, CurrentTime);
    XSync(m_display, False);
}

int PlainWindow::focusChanges() const
{
    XSync(m_display, False);
    int changes = 0;
    while (XPending(m_display)) {
        XEvent event;
        XNextEvent(m_display, &event);
        changes += event.type == FocusIn || event.type == FocusOut ? 1 : 0;
    }
    return changes;
}

NestedServer::NestedServer()
    : m_server(QStringLiteral("Xephyr"),
          { QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-ac"),
              QStringLiteral("-noreset"), QStringLiteral("-screen"), QStringLiteral("400x300"),
              QStringLiteral("-nolisten"), QStringLiteral("tcp") })
{
    if (!until([this] { return m_server.output().ends_with('\n'); }))
        std::abort();
    m_display = ":" + m_server.output();
    m_display.pop_back();
    // The window has the focus once keys arrive.
    const Hands hands;
    RawKeys inner(m_display.c_str());
    const Key probe = hands.key("F8");
    if (!until([&] {
            hands.tap(probe);
            return inner.presses(probe) > 0;
        }))
        std::abort();
}

RawKeys::RawKeys(const char* display)
    : m_display(XOpenDisplay(display))
{
    if (!m_display)
        std::abort();
    int major = 2, minor = 2;
    XIQueryVersion(m_display, &major, &minor);
    std::array<unsigned char, XIMaskLen(XI_LASTEVENT)> bits{};
    XISetMask(bits.data(), XI_RawKeyPress);
    XIEventMask mask{ XIAllMasterDevices, int(bits.size()), bits.data() };
    XISelectEvents(m_display, DefaultRootWindow(m_display), &mask, 1);
    XSync(m_display, False);
}

RawKeys::~RawKeys()
{
    XCloseDisplay(m_display);
}

int RawKeys::presses(Key key)
{
    while (XPending(m_display)) {
        XEvent event;
        XNextEvent(m_display, &event);
        if (event.type == GenericEvent && XGetEventData(m_display, &event.xcookie)) {
            m_pressed.push_back(Key(static_cast<const XIRawEvent*>(event.xcookie.data)->detail));
            XFreeEventData(m_display, &event.xcookie);
        }
    }
    return int(std::ranges::count(m_pressed, key));
}

void setLayouts(const char* layouts)
{
    QProcess::execute(
        QStringLiteral("setxkbmap"), { QStringLiteral("-layout"), QString::fromLatin1(layouts) });
}

} // namespace vesko::desktop

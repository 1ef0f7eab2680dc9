#pragma once

#include "VeskoApp/async/Eventual.h"
#include "VeskoApp/async/TaskScope.h"

#include <QProcess>
#include <QString>
#include <QStringList>

#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct _XDisplay;

namespace vesko::desktop {

// Turns the event loop until the condition holds. False if that takes unreasonably long.
bool until(const std::function<bool()>& condition);

// The value of an Eventual, turning the event loop until it comes. Ends the test program if it
// never does.
template <class T>
T valueOf(Eventual<T> eventual)
{
    std::optional<T> value;
    TaskScope scope;
    scope.spawn([](Eventual<T> from, std::optional<T>& to) -> Task<> { to.emplace(co_await from); }(
                                                               std::move(eventual), value));
    if (!until([&] { return value.has_value(); }))
        std::abort();
    return std::move(*value);
}

// A program of the desktop, ended with this object.
class Program {
public:
    Program(const QString& name, const QStringList& arguments);
    ~Program();

    std::int32_t pid() const { return std::int32_t(m_process.processId()); }
    void end();
    bool ended() const { return m_process.state() == QProcess::NotRunning; }
    std::string output(); // everything it wrote until now

private:
    QProcess m_process;
    std::string m_output;
};

// A new file in the session's folder; gives its path.
QString fileWith(const QString& text);

using Key = unsigned char; // a key code

// The least that fingers need between two movements of one key.
void rest();

// The user's hands on a keyboard of the X server.
class Hands {
public:
    explicit Hands(const char* display = nullptr);
    Hands(const Hands&) = delete;
    Hands& operator=(const Hands&) = delete;
    ~Hands();

    void down(Key key) const;
    void up(Key key) const;
    void tap(Key key) const;
    // The modifiers first, let go in the reverse order.
    void chord(std::initializer_list<Key> keys) const;
    // Of a key symbol, such as "Control_L".
    Key key(const char* symbol) const;
    // Whether the X server takes the key to be down.
    bool isDown(Key key) const;
    // The layout of that number, counted from 0, becomes active.
    void layout(int group) const;
    // These locks and no others are on; Caps Lock and Num Lock by the modifier bits they set.
    void locks(unsigned modifiers) const;
    // As sticky keys do after a tap, and after two: these modifiers and no others are on without
    // being held.
    void latch(unsigned modifiers) const;
    void lock(unsigned modifiers) const;
    // What is latched or locked.
    unsigned sticking() const;
    // Keys count once they are held for a while.
    void slowKeys(bool on) const;
    void buttonDown(unsigned button) const;
    void buttonUp(unsigned button) const;
    void point(int x, int y) const;

private:
    _XDisplay* m_display;
};

// Another program that has a global shortcut, with exactly these modifiers (as Xlib numbers them).
class Grab {
public:
    // The X server's two kinds: of its core, and of XInput 2.
    enum class Kind { core, extension };
    Grab(Key key, unsigned modifiers, Kind kind = Kind::core);
    Grab(const Grab&) = delete;
    Grab& operator=(const Grab&) = delete;
    ~Grab();

    // Whether it could be had.
    bool works() const { return m_works; }
    // Whether it was pressed since the last time that was asked.
    bool pressed() const;

private:
    _XDisplay* m_display;
    bool m_works = true;
};

// Another program that holds the whole keyboard, as a screen locker does or an open menu.
class KeyboardGrab {
public:
    explicit KeyboardGrab(Grab::Kind kind = Grab::Kind::core);
    KeyboardGrab(const KeyboardGrab&) = delete;
    KeyboardGrab& operator=(const KeyboardGrab&) = delete;
    ~KeyboardGrab();

    // Whether a key came since the last time that was asked.
    bool pressed() const;

private:
    _XDisplay* m_display;
};

// A window of another program, which the user sees and which says nothing else.
class PlainWindow {
public:
    PlainWindow();
    PlainWindow(const PlainWindow&) = delete;
    PlainWindow& operator=(const PlainWindow&) = delete;
    ~PlainWindow();

    unsigned long id() const { return m_window; }
    // Takes the keys, whatever the window manager thinks of it.
    void takeFocus() const;
    // How often it lost or got the keys since that was asked last.
    int focusChanges() const;

private:
    _XDisplay* m_display;
    unsigned long m_window = 0;
};
constexpr unsigned shift = 1;
constexpr unsigned capsLock = 1 << 1;
constexpr unsigned control = 1 << 2;
constexpr unsigned alt = 1 << 3;
constexpr unsigned numLock = 1 << 4;
constexpr unsigned super = 1 << 6;
constexpr unsigned level3 = 1 << 7;

// What the X server itself says about its keys, before anyone makes sense of it.
class RawKeys {
public:
    explicit RawKeys(const char* display = nullptr);
    RawKeys(const RawKeys&) = delete;
    RawKeys& operator=(const RawKeys&) = delete;
    ~RawKeys();

    // How often the key has gone down since this was made, repeats included.
    int presses(Key key);

private:
    _XDisplay* m_display;
    std::vector<Key> m_pressed;
};

// An X server in a window of the session's, with the keyboard focus. Keys of the outer server reach
// it as a real keyboard's do, repeats included.
class NestedServer {
public:
    NestedServer();

    const char* display() const { return m_display.c_str(); }
    // What takes its display from the environment, on this one.
    template <class T, class... Arguments>
    std::unique_ptr<T> make(Arguments&&... arguments) const
    {
        const QByteArray outer = qgetenv("DISPLAY");
        qputenv("DISPLAY", m_display.c_str());
        auto made = std::make_unique<T>(std::forward<Arguments>(arguments)...);
        qputenv("DISPLAY", outer);
        return made;
    }

private:
    Program m_server;
    std::string m_display;
};

// The keyboard gets these layouts, such as "us,ru".
void setLayouts(const char* layouts);

} // namespace vesko::desktop

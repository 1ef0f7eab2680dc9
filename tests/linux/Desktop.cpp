#include "tests/linux/Desktop.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFile>
#include <QTimer>
#include <QUuid>

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

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

Grab::Grab(Key key, unsigned modifiers)
    : m_display(XOpenDisplay(nullptr))
{
    if (!m_display)
        std::abort();
    XGrabKey(m_display, key, modifiers, DefaultRootWindow(m_display), False, GrabModeAsync,
        GrabModeAsync);
    XSync(m_display, False);
}

Grab::~Grab()
{
    XCloseDisplay(m_display);
}

} // namespace vesko::desktop

#include "VeskoLinux/wayland/WaylandConnection.h"

#include "VeskoLinux/wayland/DataControlClipboard.h"
#include "VeskoLinux/wayland/VirtualKeyboardPaste.h"
#include "tests/linux/Desktop.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

namespace vesko {
namespace {

using namespace desktop;

// A display by another name while this lives.
class OtherDisplay {
public:
    explicit OtherDisplay(const QByteArray& name) { qputenv("WAYLAND_DISPLAY", name); }
    OtherDisplay(const OtherDisplay&) = delete;
    OtherDisplay& operator=(const OtherDisplay&) = delete;
    ~OtherDisplay() { qputenv("WAYLAND_DISPLAY", m_real); }

private:
    QByteArray m_real = qgetenv("WAYLAND_DISPLAY");
};

// Takes calls, and hangs up when it is told to.
class SilentCompositor {
public:
    SilentCompositor()
        : m_path(qgetenv("XDG_RUNTIME_DIR") + "/silent")
        , m_display(m_path)
        , m_socket(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, m_path.constData(), sizeof address.sun_path - 1);
        unlink(m_path.constData());
        EXPECT_EQ(bind(m_socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(m_socket, 1), 0);
    }
    SilentCompositor(const SilentCompositor&) = delete;
    SilentCompositor& operator=(const SilentCompositor&) = delete;
    ~SilentCompositor() { close(m_socket); }

    void hangUp() const { close(accept(m_socket, nullptr, nullptr)); }

private:
    QByteArray m_path;
    OtherDisplay m_display;
    int m_socket;
};

void expectNothing(const WaylandConnection& connection)
{
    EXPECT_EQ(connection.seat(), nullptr);
    EXPECT_FALSE(DataControlClipboard::offered(connection));
    EXPECT_FALSE(VirtualKeyboardPaste::offered(connection));
}

TEST(WaylandConnection, worksHere)
{
    WaylandConnection connection;
    EXPECT_TRUE(connection.works());
    EXPECT_NE(connection.seat(), nullptr);
    EXPECT_TRUE(valueOf(connection.done()));
}

TEST(WaylandConnection, isNoneWithoutACompositor)
{
    const OtherDisplay display("nobody");
    WaylandConnection connection;
    EXPECT_FALSE(connection.works());
    EXPECT_FALSE(valueOf(connection.done()));
    expectNothing(connection);
}

TEST(WaylandConnection, anotherSessionsCompositorIsNotOurs)
{
    const auto display = qgetenv("WAYLAND_DISPLAY");
    const auto folder = qgetenv("XDG_RUNTIME_DIR");
    const QByteArray first = folder + "/wayland-0"; // what is taken where nothing is named
    const bool made = symlink((folder + '/' + display).constData(), first.constData()) == 0;
    qunsetenv("WAYLAND_DISPLAY");
    {
        const WaylandConnection connection;
        EXPECT_FALSE(connection.works());
        expectNothing(connection);
    }
    qputenv("WAYLAND_DISPLAY", display);
    if (made)
        unlink(first.constData());
}

TEST(WaylandConnection, offersNothingIfTheCompositorIsSilent)
{
    const SilentCompositor compositor;
    const WaylandConnection connection;
    expectNothing(connection);
}

TEST(WaylandConnection, whoeverWaitsIsToldThatTheCompositorHasGone)
{
    const SilentCompositor compositor;
    WaylandConnection connection;
    const auto done = connection.done();
    compositor.hangUp();
    EXPECT_FALSE(valueOf(done));
    EXPECT_FALSE(connection.works());
    EXPECT_FALSE(valueOf(connection.done()));
}

} // namespace
} // namespace vesko

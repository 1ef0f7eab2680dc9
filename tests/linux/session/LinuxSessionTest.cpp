#include "VeskoLinux/session/LinuxSession.h"

#include "tests/fakes/FakeSessionState.h"
#include "tests/fakes/FakeSettingsStore.h"
#include "tests/fakes/TestClock.h"

#include <gtest/gtest.h>

#include <QByteArray>

namespace vesko {
namespace {

// A variable of the environment with another value, or none, while this lives.
class Variable {
public:
    Variable(const char* name, const char* value)
        : m_name(name)
        , m_before(qgetenv(name))
        , m_was(qEnvironmentVariableIsSet(name))
    {
        set(value != nullptr, value);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable() { set(m_was, m_before); }

private:
    void set(bool is, const QByteArray& value) const
    {
        if (is)
            qputenv(m_name, value);
        else
            qunsetenv(m_name);
    }

    const char* m_name;
    QByteArray m_before;
    bool m_was;
};

TEST(LinuxSession, saysWhatACompositorOffers)
{
    TestClock clock;
    FakeSettingsStore settings;
    const FakeSessionState state;
    const LinuxSession session(clock, settings, state);
    const auto& offer = session.offer();
    EXPECT_EQ(offer.kind, SessionOffer::Kind::wayland);
    EXPECT_EQ(offer.desktop, "sway");
    EXPECT_EQ(offer.shortcut, SessionOffer::Shortcut::command);
    EXPECT_NE(offer.shortcutLines.find("vesko --toggle"), std::string::npos);
    EXPECT_FALSE(offer.allKeys);
    EXPECT_TRUE(offer.pastes);
    // What each part says of itself is the same.
    EXPECT_FALSE(session.keys().permitted());
    EXPECT_FALSE(session.shortcut().install({}, [] { }));
    EXPECT_TRUE(session.clipboard().setText("words"));
}

TEST(LinuxSession, saysThatAnXServerAloneOffersEverything)
{
    const Variable compositor("WAYLAND_DISPLAY", nullptr), name("XDG_CURRENT_DESKTOP", "XFCE:GTK");
    TestClock clock;
    FakeSettingsStore settings;
    const FakeSessionState state;
    const LinuxSession session(clock, settings, state);
    EXPECT_EQ(session.offer().kind, SessionOffer::Kind::x11);
    EXPECT_EQ(session.offer().desktop, "XFCE");
    EXPECT_EQ(session.offer().shortcut, SessionOffer::Shortcut::own);
    EXPECT_TRUE(session.offer().shortcutLines.empty());
    EXPECT_TRUE(session.offer().allKeys);
    EXPECT_TRUE(session.offer().pastes);
}

TEST(LinuxSession, drawsItsWindowsThroughX11WhereItIs)
{
    struct Case {
        const char *name, *wayland, *x11, *wish, *chosen;
    };
    const Case cases[] = {
        { "both", "wayland-1", ":1", nullptr, "xcb;wayland" },
        { "no X server", "wayland-1", nullptr, nullptr, "" },
        { "no compositor", nullptr, ":1", nullptr, "" },
        { "the user's own wish", "wayland-1", ":1", "wayland", "wayland" },
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        const Variable wayland("WAYLAND_DISPLAY", one.wayland), x11("DISPLAY", one.x11),
            platform("QT_QPA_PLATFORM", one.wish);
        LinuxSession::chooseWindowSystem();
        EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), one.chosen);
    }
}

} // namespace
} // namespace vesko

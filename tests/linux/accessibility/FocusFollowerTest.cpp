#include "VeskoLinux/accessibility/FocusFollower.h"

#include "tests/fakes/TestClock.h"
#include "tests/linux/Desktop.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusReply>
#include <QDBusVirtualObject>

#include <atspi/atspi-constants.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <utility>
#include <vector>

namespace vesko {
namespace {

using desktop::until;

struct Reference {
    QString service;
    QDBusObjectPath path;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Reference& reference)
{
    argument.beginStructure();
    argument << reference.service << reference.path;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Reference& reference)
{
    argument.beginStructure();
    argument >> reference.service >> reference.path;
    argument.endStructure();
    return argument;
}

} // namespace
} // namespace vesko

Q_DECLARE_METATYPE(vesko::Reference)

namespace vesko {
namespace {

QString addressOfBus()
{
    const QString service = QStringLiteral("org.a11y.Bus");
    return QDBusReply<QString>(QDBusConnection::sessionBus().call(QDBusMessage::createMethodCall(
        service, QStringLiteral("/org/a11y/bus"), service, QStringLiteral("GetAddress"))));
}

// A program with one active window and some fields in it, which tells what the test says.
class ToldProgram final : public QDBusVirtualObject {
public:
    int focused = -1; // the number of a field
    bool hesitates = false; // to say what its fields are, until it is told to go on

    ToldProgram()
        : m_bus(QDBusConnection::connectToBus(addressOfBus(), QStringLiteral("told-program")))
    {
        qDBusRegisterMetaType<Reference>();
        qDBusRegisterMetaType<QList<Reference>>();
        EXPECT_TRUE(m_bus.registerVirtualObject(
            QStringLiteral("/org/a11y/atspi/accessible"), this, QDBusConnection::SubPath));
    }
    ~ToldProgram() override { QDBusConnection::disconnectFromBus(QStringLiteral("told-program")); }

    AtspiAddress field(int number) const
    {
        return { m_bus.baseService(), fieldPath + QString::number(number) };
    }
    // As events do, this comes before whatever is answered later.
    void tellFocus(int number, bool gained)
    {
        auto event = QDBusMessage::createSignal(field(number).path,
            QStringLiteral("org.a11y.atspi.Event.Object"), QStringLiteral("StateChanged"));
        event << QStringLiteral("focused") << int(gained) << 0
              << QVariant::fromValue(QDBusVariant(0));
        EXPECT_TRUE(m_bus.send(event));
    }
    // How often it was asked for the states of a field.
    int asked() const { return m_asked; }
    void goOn()
    {
        hesitates = false;
        for (const QDBusMessage& call : std::exchange(m_open, {}))
            tellStates(call, true);
    }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection&) override
    {
        const bool ofField = call.path().startsWith(fieldPath);
        if (call.member() == QStringLiteral("GetChildren")) {
            QList<Reference> windows;
            if (call.path() == atspi::rootPath)
                windows.append({ m_bus.baseService(), QDBusObjectPath(windowPath) });
            return m_bus.send(call.createReply(QVariant::fromValue(windows)));
        }
        if (call.member() == QStringLiteral("GetRole")) {
            return m_bus.send(call.createReply(uint(ofField ? ATSPI_ROLE_TEXT : ATSPI_ROLE_FRAME)));
        }
        if (call.member() != QStringLiteral("GetState"))
            return false;
        if (ofField)
            ++m_asked;
        if (ofField && hesitates)
            m_open.push_back(call);
        else
            tellStates(call, ofField);
        return true;
    }

private:
    void tellStates(const QDBusMessage& call, bool ofField)
    {
        const auto bit = [](int state) { return std::uint64_t(1) << state; };
        auto states
            = bit(ATSPI_STATE_SHOWING) | bit(ofField ? ATSPI_STATE_FOCUSABLE : ATSPI_STATE_ACTIVE);
        if (call.path() == field(focused).path)
            states |= bit(ATSPI_STATE_FOCUSED);
        const QList<uint> words{ uint(states), uint(states >> 32) };
        EXPECT_TRUE(m_bus.send(call.createReply(QVariant::fromValue(words))));
    }

    inline static const QString windowPath = QStringLiteral("/org/a11y/atspi/accessible/window");
    inline static const QString fieldPath = QStringLiteral("/org/a11y/atspi/accessible/field");

    QDBusConnection m_bus;
    int m_asked = 0;
    std::vector<QDBusMessage> m_open; // questions that are not answered
};

class FocusFollowerTest : public testing::Test {
protected:
    FocusFollowerTest()
    {
        m_bus.onFocus = [this, follow = m_bus.onFocus](const AtspiAddress& element, bool gained) {
            follow(element, gained);
            ++m_events;
        };
        m_bus.start();
        EXPECT_TRUE(until([this] { return m_bus.usable(); }));
    }

    void gain(int field)
    {
        m_program.focused = field;
        tell(field, true);
    }
    // To something that doesn't tell.
    void lose(int field)
    {
        m_program.focused = -1;
        tell(field, false);
    }
    void tell(int field, bool gained)
    {
        m_program.tellFocus(field, gained);
        EXPECT_TRUE(until([this, before = m_events] { return m_events > before; }));
    }
    // Time goes by until these count.
    bool comesTo(const std::vector<AtspiAddress>& elements)
    {
        return until([&] {
            m_clock.turn(0.01);
            return m_follower.heard(std::int32_t(QCoreApplication::applicationPid())) == elements;
        });
    }
    // Whatever was being asked is answered, if it is answered at all.
    void talkToAnEnd()
    {
        for (int count = 0; count < 10; ++count)
            valueOf(m_search.hasActiveWindow(m_program.field(0).service, QDeadlineTimer(10'000)));
    }
    bool valueOf(Task<bool> task)
    {
        const Eventual<bool> value;
        m_tasks.spawn([](Task<bool> from, Eventual<bool> to) -> Task<> {
            to.set(co_await std::move(from));
        }(std::move(task), value));
        return desktop::valueOf(value);
    }

    TestClock m_clock;
    AtspiBus m_bus{ m_clock };
    FocusSearch m_search{ m_bus };
    FocusFollower m_follower{ m_bus, m_search, m_clock };
    ToldProgram m_program;
    int m_events = 0; // that the follower has heard
    TaskScope m_tasks;
};

TEST_F(FocusFollowerTest, aFieldThatLostTheFocusNoLongerCounts)
{
    gain(1);
    ASSERT_TRUE(comesTo({ m_program.field(1) }));
    lose(1);
    EXPECT_TRUE(comesTo({}));
}

TEST_F(FocusFollowerTest, aFieldThatHasTheFocusCountsWhateverItTells)
{
    gain(1);
    tell(1, false);
    EXPECT_TRUE(until([&] {
        m_clock.turn(0.01);
        return m_program.asked() == 2;
    }));
    talkToAnEnd();
    EXPECT_TRUE(comesTo({ m_program.field(1) }));
}

TEST_F(FocusFollowerTest, aLossCountsThatComesWhileItsGainIsWeighedAgainstAnother)
{
    gain(1);
    talkToAnEnd();
    m_program.hesitates = true;
    gain(2);
    lose(2);
    m_program.goOn();
    EXPECT_TRUE(comesTo({}));
}

TEST_F(FocusFollowerTest, aLossCountsThatComesWhileItsGainIsWeighedForLong)
{
    m_program.hesitates = true;
    gain(1);
    ASSERT_TRUE(until([&] { return m_program.asked() == 1; }));
    m_program.hesitates = false;
    lose(1);
    m_clock.turn(1);
    talkToAnEnd();
    m_program.goOn();
    EXPECT_TRUE(comesTo({}));
}

} // namespace
} // namespace vesko

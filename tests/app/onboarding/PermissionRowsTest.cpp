#include "VeskoApp/onboarding/PermissionRows.h"
#include "tests/fakes/EventLoop.h"
#include "tests/fakes/FakePlatform.h"

#include <QGuiApplication>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vesko {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PermissionRowsTest : public testing::Test {
protected:
    void make()
    {
        rows = std::make_unique<PermissionRows>(
            machine.all, [this] { ++restarts; }, [this] { return spoken; });
    }
    std::vector<std::string> column(const char* name) const
    {
        std::vector<std::string> texts;
        for (const auto& row : rows->rows())
            texts.push_back(row.toMap()[QString::fromUtf8(name)].toString().toStdString());
        return texts;
    }
    void press(int row)
    {
        notice.clear();
        rows->press(row, [this](const QString& text) { notice = text.toStdString(); });
    }
    static void comeBack() { Q_EMIT qGuiApp->applicationStateChanged(Qt::ApplicationActive); }

    FakePlatform machine;
    int restarts = 0;
    std::string spoken = "auto";
    std::string notice;
    std::unique_ptr<PermissionRows> rows;
};

TEST_F(PermissionRowsTest, sayWhatEachIsFor)
{
    make();
    EXPECT_THAT(column("name"),
        ElementsAre("Microphone", "Speech Recognition", "Accessibility", "Input Monitoring"));
    EXPECT_THAT(column("line"),
        ElementsAre("Records only while you dictate.", "Apple on-device transcription.",
            "Pastes into the field you started in. Vesko switches it on, and it stays on.",
            "Notices the Fn key. Keystrokes are not saved."));
    EXPECT_THAT(column("status"), ElementsAre("Allowed", "Allowed", "Allowed", "Allowed"));
    EXPECT_THAT(column("button"), ElementsAre("Review", "Review", "Review", "Review"));
}

TEST_F(PermissionRowsTest, aDesktopThatWillAskAboutThePasteIsExplainedBefore)
{
    machine.all.offer.desktop = "KDE Plasma";
    machine.all.offer.asksToPaste = true;
    make();
    EXPECT_THAT(column("line")[2],
        testing::EndsWith(
            "stays on. When you dictate into another program, KDE Plasma asks whether Vesko may "
            "control the keyboard: once, or each time if it does not remember your answer. Allow "
            "it in the window that opens. Vesko presses the keys that paste, and no others."));
}

TEST_F(PermissionRowsTest, eachIsReadByItself)
{
    const struct {
        const char* what;
        std::function<void(FakePlatform&)> take;
        std::size_t row;
    } cases[] = {
        { "no microphone", [](FakePlatform& on) { on.permissions.hasMicrophone = false; }, 0 },
        { "no model for the user's language",
            [](FakePlatform& on) { on.recognizer.system = "sv-SE"; }, 1 },
        { "the recogniser is not for us",
            [](FakePlatform& on) { on.recognizer.isAuthorized = false; }, 1 },
        { "accessibility is off", [](FakePlatform& on) { on.permissions.hasAccessibility = false; },
            2 },
        { "keys can't be watched", [](FakePlatform& on) { on.keys.isPermitted = false; }, 3 },
    };
    for (const auto& [what, take, row] : cases) {
        SCOPED_TRACE(what);
        FakePlatform other;
        take(other);
        const PermissionRows some(other.all, [] {}, [] { return std::string("auto"); });
        for (std::size_t i = 0; i < 4; ++i) {
            const auto shown = some.rows()[static_cast<int>(i)].toMap();
            EXPECT_EQ(shown[QStringLiteral("allowed")].toBool(), i != row);
            EXPECT_EQ(shown[QStringLiteral("status")].toString().toStdString(),
                i != row       ? "Allowed"
                    : row == 1 ? "No speech model"
                               : "Not allowed");
            EXPECT_EQ(shown[QStringLiteral("button")].toString().toStdString(),
                i != row       ? "Review"
                    : row == 1 ? "Details"
                               : "Allow");
        }
    }
}

TEST_F(PermissionRowsTest, readingThemAsksForNothing)
{
    make();
    rows->revise();
    comeBack();
    EXPECT_EQ(machine.permissions.requests, 0);
    EXPECT_EQ(machine.recorder.accessRequests, 0);
    EXPECT_THAT(machine.desktop.openedSettings, IsEmpty());
    EXPECT_EQ(restarts, 0);
}

TEST_F(PermissionRowsTest, whatChangedElsewhereShowsWhenTheUserComesBack)
{
    machine.permissions.hasMicrophone = false;
    make();
    EXPECT_EQ(column("status")[0], "Not allowed");
    machine.permissions.hasMicrophone = true;
    EXPECT_EQ(column("status")[0], "Not allowed");
    int told = 0;
    QObject::connect(rows.get(), &PermissionRows::rowsChanged, [&] { ++told; });
    Q_EMIT qGuiApp->applicationStateChanged(Qt::ApplicationInactive);
    EXPECT_EQ(told, 0);
    comeBack();
    EXPECT_GT(told, 0);
    EXPECT_EQ(column("status")[0], "Allowed");
}

TEST_F(PermissionRowsTest, theMicrophoneIsTried)
{
    make();
    machine.permissions.opening.close();
    const int looks = machine.permissions.looks;
    press(0);
    EXPECT_EQ(notice, ""); // until the answer is there
    machine.permissions.opening.open();
    ASSERT_TRUE(eventually([&] { return !notice.empty(); }));
    EXPECT_EQ(notice, "Microphone access is ready");
    EXPECT_THAT(machine.desktop.openedSettings, IsEmpty());
    EXPECT_GT(machine.permissions.looks, looks);
}

TEST_F(PermissionRowsTest, aMicrophoneThatDoesNotOpenLeadsToTheSoundSettings)
{
    machine.permissions.microphoneOpens = false;
    make();
    press(0);
    ASSERT_TRUE(eventually([&] { return !notice.empty(); }));
    EXPECT_EQ(notice, "Allow Vesko in System Settings > Privacy & Security > Microphone.");
    EXPECT_THAT(machine.desktop.openedSettings, ElementsAre(SettingsPanel::sound));
}

TEST_F(PermissionRowsTest, aMissingModelIsNamedWithWhatHelps)
{
    const struct {
        const char* spoken;
        const char* system;
        const char* said;
    } cases[] = {
        { "auto", "en-US", "A speech model for English is installed." },
        { "auto", "sv-SE",
            "No speech model for Swedish is installed. Choose another engine or OpenRouter in "
            "Settings." },
        { "sv-SE", "en-US",
            "No speech model for Swedish is installed. Choose another engine or OpenRouter in "
            "Settings." },
    };
    for (const auto& [language, system, said] : cases) {
        SCOPED_TRACE(language);
        spoken = language;
        machine.recognizer.system = system;
        make();
        press(1);
        EXPECT_EQ(notice, said);
    }
    machine.recognizer.isAuthorized = false;
    spoken = "en-US";
    press(1);
    EXPECT_EQ(notice,
        "No speech model for English is installed. Install the package pocketsphinx-en-us, or "
        "choose another engine or OpenRouter in Settings.");
}

TEST_F(PermissionRowsTest, aReviewSaysWhatIsSoAndOpensNothing)
{
    make();
    press(2);
    EXPECT_EQ(notice, "Accessibility is on. Vesko can paste into the field you started in.");
    press(3);
    EXPECT_EQ(notice, "Vesko notices the dictation key.");
    EXPECT_THAT(machine.desktop.openedSettings, IsEmpty());
    EXPECT_EQ(machine.permissions.requests, 0);
    EXPECT_EQ(restarts, 0);
}

TEST_F(PermissionRowsTest, aButtonThatCouldOpenNothingSaysSo)
{
    machine.desktop.hasSettings = false;
    machine.keys.isPermitted = false;
    make();
    press(3);
    EXPECT_THAT(notice,
        testing::EndsWith(
            "Vesko found no program for your desktop's settings. Please open them yourself."));
}

TEST_F(PermissionRowsTest, accessibilityIsTurnedOnAndItsSettingsAreOpened)
{
    machine.permissions.hasAccessibility = false;
    make();
    EXPECT_EQ(column("status")[2], "Not allowed");
    press(2);
    EXPECT_EQ(machine.permissions.requests, 1);
    EXPECT_EQ(column("status")[2], "Allowed");
    EXPECT_THAT(machine.desktop.openedSettings, ElementsAre(SettingsPanel::accessibility));
    EXPECT_EQ(notice,
        "Enable Vesko in Accessibility. If it is missing, add Vesko.app from your Applications "
        "folder.");
}

TEST_F(PermissionRowsTest, withoutABusNothingIsSaidToBeTurnedOn)
{
    machine.permissions.hasAccessibility = false;
    machine.permissions.hasBus = false;
    make();
    press(2);
    EXPECT_EQ(column("status")[2], "Not allowed");
    EXPECT_EQ(notice,
        "This desktop has no accessibility bus, so nothing was turned on. Install the package "
        "at-spi2-core, and start the session anew.");
}

TEST_F(PermissionRowsTest, theKeysAreWatchedAnew)
{
    machine.keys.isPermitted = false;
    make();
    press(3);
    EXPECT_EQ(restarts, 1);
    EXPECT_THAT(machine.desktop.openedSettings, ElementsAre(SettingsPanel::keyboard));
    EXPECT_EQ(notice,
        "Enable Vesko in Input Monitoring. If it is missing, use the + button and select "
        "Vesko.app. If macOS asks, choose Quit & Reopen. Command Shift Space remains available.");
}

TEST_F(PermissionRowsTest, thereIsNoFifth)
{
    make();
    press(4);
    press(-1);
    drainEvents();
    EXPECT_EQ(notice, "");
    EXPECT_EQ(machine.permissions.requests, 0);
}

TEST_F(PermissionRowsTest, anAnswerThatComesTooLateFindsNobody)
{
    make();
    machine.permissions.opening.close();
    press(0);
    rows.reset();
    machine.permissions.opening.open();
    machine.permissions.look();
    drainEvents();
    EXPECT_EQ(notice, "");
}

} // namespace
} // namespace vesko

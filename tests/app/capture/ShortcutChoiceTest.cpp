// The shortcut is shown, another one is pressed and taken, or refused in words.

#include "VeskoApp/capture/ShortcutChoice.h"
#include "VeskoApp/capture/Hotkeys.h"
#include "tests/fakes/FakePlatform.h"

#include <gtest/gtest.h>

namespace vesko {

namespace {

constexpr int noModifiers = Qt::NoModifier;
constexpr int controlAlt = Qt::ControlModifier | Qt::AltModifier;

class ShortcutChoiceTest : public testing::Test {
protected:
    ShortcutChoiceTest()
    {
        machine.shortcut.keys = { { 40, { "AC03", "D" } }, { 55, { "AB04", "V" } },
            { 72, { "FK06", "" } }, { 110, { "HOME", "" } } };
        hotkeys.combination = [this] { return choice.combination(); };
        choice.install();
    }

    bool press(int key, int modifiers, unsigned scanCode)
    {
        choice.listen();
        return choice.press(key, modifiers, scanCode);
    }
    std::string words() const { return choice.words().toStdString(); }
    std::string refusal() const { return choice.refusal().toStdString(); }
    std::string stored() const
    {
        return machine.settings.get<std::string>("shortcut").value_or("nothing");
    }

    FakePlatform machine;
    Keychain keychain{ machine.secrets };
    Preferences preferences{ machine.settings, keychain, machine.loginItem };
    StatusLine status;
    Hotkeys hotkeys{ machine.shortcut, machine.keys, machine.clock };
    ShortcutChoice choice{ { machine.shortcut, hotkeys, preferences, status } };
};

TEST_F(ShortcutChoiceTest, AtFirstItIsTheDefault)
{
    EXPECT_EQ(words(), "Super+Shift+Space");
    EXPECT_TRUE(choice.isDefault());
    EXPECT_EQ(machine.shortcut.combination, KeyCombination());
    EXPECT_TRUE(machine.shortcut.installed());
    EXPECT_EQ(stored(), "nothing");
}

TEST_F(ShortcutChoiceTest, WhatIsPressedIsTakenAtOnceAndStored)
{
    EXPECT_TRUE(press(Qt::Key_D, controlAlt, 40));
    EXPECT_FALSE(choice.listening());
    EXPECT_EQ(words(), "Ctrl+Alt+D");
    EXPECT_EQ(refusal(), "");
    const KeyCombination expected{
        .control = true, .alt = true, .shift = false, .super = false, .key = "AC03"
    };
    EXPECT_EQ(machine.shortcut.combination, expected);
    EXPECT_TRUE(machine.shortcut.installed());

    // As the next start reads it.
    Preferences again{ machine.settings, keychain, machine.loginItem };
    const ShortcutChoice after{ { machine.shortcut, hotkeys, again, status } };
    EXPECT_EQ(after.combination(), expected);
    EXPECT_EQ(after.words(), QStringLiteral("Ctrl+Alt+D"));
}

TEST_F(ShortcutChoiceTest, TheDefaultIsOfferedAgain)
{
    press(Qt::Key_D, controlAlt, 40);
    choice.chooseDefault();
    EXPECT_EQ(words(), "Super+Shift+Space");
    EXPECT_EQ(machine.shortcut.combination, KeyCombination());
}

TEST_F(ShortcutChoiceTest, WhileItListensThePresentOneCanBePressed)
{
    choice.listen();
    EXPECT_FALSE(machine.shortcut.installed());
    choice.hold(Qt::Key_Control, noModifiers, true); // as some systems tell it
    EXPECT_EQ(choice.pressed(), QStringLiteral("Ctrl+"));
    choice.hold(Qt::Key_Shift, Qt::ControlModifier | Qt::ShiftModifier, true); // and others
    EXPECT_EQ(choice.pressed(), QStringLiteral("Ctrl+Shift+"));
    choice.hold(Qt::Key_Control, Qt::ControlModifier | Qt::ShiftModifier, false);
    EXPECT_EQ(choice.pressed(), QStringLiteral("Shift+"));
    choice.hold(Qt::Key_Shift, noModifiers, false);
    EXPECT_EQ(choice.pressed(), QString());
    choice.cancel();
    EXPECT_TRUE(machine.shortcut.installed());
    EXPECT_EQ(words(), "Super+Shift+Space");
}

TEST_F(ShortcutChoiceTest, WhatCanBeNoShortcutIsRefusedAndItGoesOnListening)
{
    const struct {
        const char* name;
        int key;
        int modifiers;
        unsigned scanCode;
        const char* refusal;
    } cases[] = {
        { "a letter", Qt::Key_D, noModifiers, 40,
            "D is typed with. A shortcut needs Ctrl, Alt or Super." },
        { "a capital", Qt::Key_D, Qt::ShiftModifier, 40,
            "Shift+D is typed with. A shortcut needs Ctrl, Alt or Super." },
        { "a key that moves the cursor", Qt::Key_Home, noModifiers, 110,
            "Home is typed with. A shortcut needs Ctrl, Alt or Super." },
        { "the paste", Qt::Key_V, Qt::ControlModifier, 55,
            "Ctrl+V is what text is pasted with, by Vesko too. Choose another shortcut." },
        { "the terminals' paste", Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier, 55,
            "Ctrl+Shift+V is what text is pasted with, by Vesko too. Choose another shortcut." },
        { "a key that the keyboard doesn't know", Qt::Key_unknown, controlAlt, 250,
            "No shortcut can be made with this key." },
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        EXPECT_TRUE(press(one.key, one.modifiers, one.scanCode));
        EXPECT_EQ(refusal(), one.refusal);
        EXPECT_TRUE(choice.listening());
        EXPECT_FALSE(machine.shortcut.installed());
        EXPECT_EQ(words(), "Super+Shift+Space");
    }
    choice.cancel();
    EXPECT_TRUE(machine.shortcut.installed());
    EXPECT_EQ(stored(), "nothing");
}

TEST_F(ShortcutChoiceTest, AFunctionKeyIsOneByItself)
{
    EXPECT_TRUE(press(Qt::Key_F6, noModifiers, 72));
    EXPECT_EQ(words(), "F6");
    EXPECT_EQ(refusal(), "");
}

TEST_F(ShortcutChoiceTest, WhatAnotherProgramHasIsRefusedAndThePresentOneStays)
{
    machine.shortcut.takenKey = "AC03";
    press(Qt::Key_D, controlAlt, 40);
    EXPECT_EQ(
        refusal(), "Ctrl+Alt+D can't be had: another program has it. Choose another shortcut.");
    EXPECT_EQ(words(), "Super+Shift+Space");
    EXPECT_TRUE(choice.listening());
    choice.cancel();
    EXPECT_TRUE(machine.shortcut.installed());
    EXPECT_EQ(status.shortcutMessage(), "");
}

TEST_F(ShortcutChoiceTest, OneThatIsTakenIsToldAndAnotherMendsIt)
{
    machine.shortcut.takenKey = "SPCE";
    choice.install();
    EXPECT_EQ(status.shortcutMessage(),
        "Super+Shift+Space is unavailable: another program has it. Use the floating button, or "
        "choose another shortcut in the settings.");
    press(Qt::Key_D, controlAlt, 40);
    EXPECT_EQ(status.shortcutMessage(), "");
    EXPECT_TRUE(machine.shortcut.installed());
}

TEST_F(ShortcutChoiceTest, OneThatComesFreeIsTakenWhenTriedAgain)
{
    machine.shortcut.takenKey = "SPCE";
    choice.install();
    choice.retry();
    EXPECT_FALSE(machine.shortcut.installed());
    machine.shortcut.takenKey.clear();
    choice.retry();
    EXPECT_TRUE(machine.shortcut.installed());
    EXPECT_EQ(status.shortcutMessage(), "");
}

TEST_F(ShortcutChoiceTest, TabAndEscapeLeaveItAsItIs)
{
    EXPECT_FALSE(press(Qt::Key_Tab, noModifiers, 23)) << "the keyboard goes on to the next";
    EXPECT_FALSE(choice.listening());
    EXPECT_TRUE(press(Qt::Key_Escape, noModifiers, 9));
    EXPECT_FALSE(choice.listening());
    EXPECT_TRUE(machine.shortcut.installed());
}

TEST_F(ShortcutChoiceTest, KeysAreTheFormsWhileItDoesNotListen)
{
    EXPECT_FALSE(choice.press(Qt::Key_D, controlAlt, 40));
    EXPECT_EQ(words(), "Super+Shift+Space");
}

} // namespace

} // namespace vesko

#include "VeskoApp/wording/SessionWords.h"

#include <gtest/gtest.h>

namespace vesko {

namespace {

void expectEmpty(const QString& advice)
{
    EXPECT_EQ(advice.toStdString(), "");
}

TEST(SessionWords, tellNothingWhereEverythingIsOffered)
{
    SessionOffer everything;
    everything.desktop = "Xfce";
    expectEmpty(shortcutAdvice(everything));
    expectEmpty(keysAdvice(everything));
    expectEmpty(learningAdvice(everything));
    expectEmpty(pasteAdvice(everything));
}

TEST(SessionWords, nameTheDesktop)
{
    SessionOffer little;
    little.kind = SessionOffer::Kind::wayland;
    little.desktop = "sway";
    little.shortcut = SessionOffer::Shortcut::command;
    little.allKeys = little.pastes = false;
    EXPECT_EQ(shortcutAdvice(little).toStdString(),
        "sway gives programs no shortcuts of their own. In its configuration, let keys of your "
        "choice run “vesko --toggle”.");
    for (const auto& advice : { keysAdvice(little), learningAdvice(little) })
        EXPECT_TRUE(advice.startsWith(QStringLiteral("sway "))) << advice.toStdString();
    EXPECT_TRUE(pasteAdvice(little).startsWith(QStringLiteral("On sway Vesko can't paste")));

    little.pastes = little.asksToPaste = true;
    EXPECT_TRUE(pasteAdvice(little).startsWith(
        QStringLiteral("When you dictate into another program, sway asks")));

    little.copies = false;
    EXPECT_TRUE(pasteAdvice(little).startsWith(
        QStringLiteral("Without Xwayland sway lets Vesko copy and paste nothing")));

    little.desktop.clear();
    EXPECT_TRUE(keysAdvice(little).startsWith(QStringLiteral("This desktop shows no program")));
}

} // namespace

} // namespace vesko

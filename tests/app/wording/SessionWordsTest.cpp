#include "VeskoApp/wording/SessionWords.h"

#include <gtest/gtest.h>

namespace vesko {

namespace {

TEST(SessionWords, tellNothingWhereEverythingIsOffered)
{
    const SessionOffer everything{ .desktop = "Xfce" };
    EXPECT_EQ(shortcutAdvice(everything), "");
    EXPECT_EQ(keysAdvice(everything), "");
    EXPECT_EQ(learningAdvice(everything), "");
    EXPECT_EQ(pasteAdvice(everything), "");
}

TEST(SessionWords, nameTheDesktop)
{
    SessionOffer little{ .kind = SessionOffer::Kind::wayland, .desktop = "sway" };
    little.shortcut = SessionOffer::Shortcut::command;
    little.allKeys = little.pastes = false;
    EXPECT_EQ(shortcutAdvice(little),
        "sway gives programs no shortcuts of their own. In its configuration, let keys of your "
        "choice run “vesko --toggle”.");
    for (const auto& advice : { keysAdvice(little), learningAdvice(little) })
        EXPECT_TRUE(advice.startsWith(QStringLiteral("sway "))) << advice.toStdString();
    EXPECT_TRUE(pasteAdvice(little).startsWith(QStringLiteral("On sway Vesko can't paste")));

    little.desktop.clear();
    EXPECT_TRUE(keysAdvice(little).startsWith(QStringLiteral("This desktop shows no program")));
}

} // namespace

} // namespace vesko

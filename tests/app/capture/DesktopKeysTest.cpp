#include "VeskoApp/capture/DesktopKeys.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

class SettingsOfADesktop final : public DesktopShortcut {
public:
    std::string present;
    bool takes = true;

    std::string keys() const override { return present; }
    std::string suggestion() const override { return "Super+Alt+Space"; }
    bool add() override
    {
        if (takes)
            present = suggestion();
        return takes;
    }
    void remove() override { present.clear(); }
};

TEST(DesktopKeys, areNotOfferedWhereTheDesktopKeepsNone)
{
    const DesktopKeys keys(nullptr);
    EXPECT_FALSE(keys.offered());
    EXPECT_TRUE(keys.keys().isEmpty());
    EXPECT_TRUE(keys.suggestion().isEmpty());
}

TEST(DesktopKeys, areAddedAndRemovedAsTheUserLikes)
{
    SettingsOfADesktop desktop;
    DesktopKeys keys(&desktop);
    int changes = 0;
    QObject::connect(&keys, &DesktopKeys::changed, &keys, [&changes] { ++changes; });
    EXPECT_TRUE(keys.offered());
    EXPECT_TRUE(keys.keys().isEmpty());
    keys.add();
    EXPECT_EQ(keys.keys(), keys.suggestion());
    EXPECT_EQ(changes, 1);
    keys.remove();
    EXPECT_TRUE(keys.keys().isEmpty());
    EXPECT_EQ(changes, 2);
}

TEST(DesktopKeys, sayThatTheDesktopDidNotTakeThemUntilTheNextTry)
{
    SettingsOfADesktop desktop;
    desktop.takes = false;
    DesktopKeys keys(&desktop);
    keys.add();
    EXPECT_EQ(keys.refusal().toStdString(),
        "The desktop's settings did not take Super+Alt+Space. Choose keys there.");
    desktop.takes = true;
    keys.add();
    EXPECT_TRUE(keys.refusal().isEmpty());
}

} // namespace
} // namespace vesko

#include "VeskoApp/exchange/UserPaths.h"

#include <QDir>

#include <gtest/gtest.h>

namespace vesko {
namespace {

TEST(UserPathsTest, APathOfAUserBeginsAtHome)
{
    const auto home = QDir::homePath();
    EXPECT_EQ(wholePath(QStringLiteral(" ~/a b.zip ")), home + QStringLiteral("/a b.zip"));
    EXPECT_EQ(wholePath(QStringLiteral("a.zip")), home + QStringLiteral("/a.zip"));
    EXPECT_EQ(wholePath(QStringLiteral("/tmp/a.zip")), QStringLiteral("/tmp/a.zip"));
    EXPECT_EQ(writtenPath(home + QStringLiteral("/a.zip")), QStringLiteral("~/a.zip"));
    EXPECT_EQ(
        writtenPath(home + QStringLiteral("work/a.zip")), home + QStringLiteral("work/a.zip"));
    EXPECT_EQ(writtenPath(QStringLiteral("/tmp/a.zip")), QStringLiteral("/tmp/a.zip"));
}

} // namespace
} // namespace vesko

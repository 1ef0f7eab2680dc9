// What the user is told, and who hears of it.

#include "VeskoApp/status/StatusLine.h"
#include "VeskoCore/library/VeskoError.h"

#include <gtest/gtest.h>

namespace vesko {

namespace {

TEST(StatusLineTest, AtTheStartItIsReadyAndNothingIsWrong)
{
    const StatusLine status;
    EXPECT_EQ(status.message(), "Ready to capture");
    EXPECT_EQ(status.errorMessage(), "");
    EXPECT_EQ(status.shortcutMessage(), "");
}

TEST(StatusLineTest, ObserversHearOfEachLineWhenItChangesOnly)
{
    StatusLine status;
    std::string heard;
    QObject::connect(&status, &StatusLine::messageChanged, [&] { heard += 'm'; });
    QObject::connect(&status, &StatusLine::errorMessageChanged, [&] { heard += 'e'; });
    QObject::connect(&status, &StatusLine::shortcutMessageChanged, [&] { heard += 's'; });
    for (int time = 0; time < 2; ++time) {
        status.setMessage("Copied");
        status.setErrorMessage("No room");
        status.setShortcutMessage("Taken");
    }
    EXPECT_EQ(heard, "mes");
    EXPECT_EQ(status.messageText(), QStringLiteral("Copied"));
    EXPECT_EQ(status.errorText(), QStringLiteral("No room"));
    EXPECT_EQ(status.shortcutText(), QStringLiteral("Taken"));
}

TEST(StatusLineTest, AFailureIsToldInTheUsersWordsUntilItIsDismissed)
{
    StatusLine status;
    status.report(std::make_exception_ptr(VeskoError(VeskoError::missingKey)));
    EXPECT_EQ(status.errorMessage(), VeskoError(VeskoError::missingKey).errorDescription());
    status.dismissError();
    EXPECT_EQ(status.errorMessage(), "");
}

TEST(StatusLineTest, AnErrorThatIsNoneAnyMoreIsWithdrawnUnlessAnotherStands)
{
    StatusLine status;
    status.setErrorMessage("No room");
    status.withdraw("No key");
    EXPECT_EQ(status.errorMessage(), "No room");
    status.withdraw("No room");
    EXPECT_EQ(status.errorMessage(), "");
}

} // namespace

} // namespace vesko

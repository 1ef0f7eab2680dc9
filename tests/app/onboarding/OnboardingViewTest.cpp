#include "VeskoApp/onboarding/OnboardingView.h"
#include "tests/fakes/EventLoop.h"
#include "tests/fakes/FakePlatform.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

class OnboardingViewTest : public testing::Test {
protected:
    OnboardingViewTest()
    {
        view = std::make_unique<OnboardingView>(
            permissions, QStringLiteral("Right Ctrl"),
            OnboardingView::Account{ [this] { return flow; }, [this] { return email; } },
            [this](UsageEvent event) { told.push_back(event); }, [this] { ++finished; });
    }
    void goTo(const char* step)
    {
        for (int i = 0; i < 4 && view->step() != QString::fromUtf8(step); ++i)
            view->goOn();
        ASSERT_EQ(view->step().toStdString(), step);
    }

    FakePlatform machine;
    PermissionRows permissions{ machine.all, [] {}, [] { return std::string("auto"); } };
    OnboardingFlow flow;
    std::optional<std::string> email;
    std::vector<UsageEvent> told;
    int finished = 0;
    std::unique_ptr<OnboardingView> view;
};

TEST_F(OnboardingViewTest, goesThroughItsStepsToTheEnd)
{
    const struct {
        const char* step;
        const char* place;
        const char* button;
        bool back;
        bool notNow;
    } steps[] = {
        { "welcome", "Step 1 of 4", "Get started", false, false },
        { "howTo", "Step 2 of 4", "Continue", true, false },
        { "permissions", "Step 3 of 4", "Continue", true, false },
        { "account", "Step 4 of 4", "Start using Vesko", true, true },
    };
    for (const auto& row : steps) {
        EXPECT_EQ(view->step().toStdString(), row.step);
        EXPECT_EQ(view->placeText().toStdString(), row.place);
        EXPECT_EQ(view->defaultTitle().toStdString(), row.button);
        EXPECT_TRUE(view->defaultEnabled());
        EXPECT_EQ(view->canGoBack(), row.back);
        EXPECT_EQ(view->offersNotNow(), row.notNow);
        EXPECT_EQ(finished, 0);
        view->goOn();
    }
    EXPECT_EQ(finished, 1);
    EXPECT_EQ(view->step(), QStringLiteral("account"));
    EXPECT_EQ(
        told, (std::vector{ UsageEvent::onboardingStarted, UsageEvent::onboardingCompleted }));
}

TEST_F(OnboardingViewTest, namesTheAccount)
{
    EXPECT_EQ(view->accountName(), QStringLiteral("Apple ID with hidden email"));
    email = "me@example.org";
    EXPECT_EQ(view->accountName(), QStringLiteral("me@example.org"));
}

TEST_F(OnboardingViewTest, goesBackToTheFirstStepAndNoFurther)
{
    goTo("permissions");
    view->goBack();
    EXPECT_EQ(view->step(), QStringLiteral("howTo"));
    view->goBack();
    view->goBack();
    EXPECT_EQ(view->step(), QStringLiteral("welcome"));
}

TEST_F(OnboardingViewTest, notNowEndsIt)
{
    goTo("account");
    view->complete();
    EXPECT_EQ(finished, 1);
}

TEST_F(OnboardingViewTest, aRequiredAccountIsInsistedOn)
{
    flow.accountRequired = true;
    goTo("account");
    EXPECT_FALSE(view->offersNotNow());
    EXPECT_FALSE(view->defaultEnabled());
    view->goOn();
    view->complete();
    view->advance();
    EXPECT_EQ(view->step(), QStringLiteral("account"));
    EXPECT_EQ(finished, 0);
}

TEST_F(OnboardingViewTest, anEarlyEndLeadsToTheAccount)
{
    view->complete();
    EXPECT_EQ(view->step(), QStringLiteral("account"));
    EXPECT_EQ(told, std::vector{ UsageEvent::onboardingStarted });
    EXPECT_EQ(finished, 0);
}

TEST_F(OnboardingViewTest, whoSignsInStaysAndMayFinish)
{
    flow.accountRequired = true;
    goTo("account");
    int changes = 0;
    QObject::connect(view.get(), &OnboardingView::stepChanged, [&] { ++changes; });
    flow.signedIn = true;
    view->accountChanged();
    EXPECT_GT(changes, 0);
    EXPECT_EQ(view->step(), QStringLiteral("account"));
    EXPECT_TRUE(view->signedIn());
    EXPECT_TRUE(view->defaultEnabled());
    EXPECT_FALSE(view->offersNotNow());
    view->goOn();
    EXPECT_EQ(finished, 1);
}

TEST_F(OnboardingViewTest, aSignInOnAnotherStepMovesNothing)
{
    goTo("howTo");
    flow.signedIn = true;
    view->accountChanged();
    EXPECT_EQ(view->step(), QStringLiteral("howTo"));
}

TEST_F(OnboardingViewTest, showsWhatAPermissionSays)
{
    EXPECT_EQ(view->notice(), QString());
    view->pressPermission(0);
    EXPECT_TRUE(
        eventually([&] { return view->notice() == QStringLiteral("Microphone access is ready"); }));
    EXPECT_EQ(view->gestureKey(), QStringLiteral("Right Ctrl"));
    view->advance();
    EXPECT_EQ(view->notice(), QString()); // of what is not seen any more
}

TEST_F(OnboardingViewTest, aViewThatIsGoneIsToldNothing)
{
    machine.permissions.opening.close();
    view->pressPermission(0);
    view.reset();
    machine.permissions.opening.open();
    drainEvents();
    EXPECT_EQ(finished, 0);
}

} // namespace
} // namespace vesko

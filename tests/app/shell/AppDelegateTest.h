#pragma once

#include "VeskoApp/shell/AppDelegate.h"
#include "tests/app/AppModelTest.h"

namespace vesko {

// The process around a controller, with windows that show nothing.
class AppDelegateTest : public AppModelTest {
protected:
    void launch()
    {
        delegate = std::make_unique<AppDelegate>(machine.all, *model);
        delegate->makeCapturePanel = [] { return std::make_unique<QWindow>(); };
        delegate->windows().make = [this](AppWindow kind) {
            auto window = std::make_unique<QWindow>();
            made.emplace_back(kind, window.get());
            return window;
        };
        delegate->terminate = [this] { ++terminated; };
        delegate->launch(background, demo);
    }
    // How often a user was sent to where one begins, and signs in.
    std::ptrdiff_t onboardings() const
    {
        std::ptrdiff_t count = 0;
        for (const auto& [kind, window] : made)
            if (kind == AppWindow::onboarding)
                count += 1 + std::ranges::count(machine.desktop.broughtHere, window);
        return count;
    }
    bool controlShown() const
    {
        const auto* const window = delegate->captureControl().window();
        return window && window->isVisible();
    }
    // The kinds of the windows that were made, in that order.
    std::vector<AppWindow> opened() const
    {
        std::vector<AppWindow> kinds;
        kinds.reserve(made.size());
        for (const auto& [kind, window] : made)
            kinds.push_back(kind);
        return kinds;
    }
    void open()
    {
        AppModelTest::open();
        launch();
    }
    void expectStatus(const char* toolTip, const char* title, bool enabled) const
    {
        EXPECT_EQ(machine.statusItem.toolTip.toStdString(), toolTip);
        EXPECT_EQ(machine.statusItem.captureTitle.toStdString(), title);
        EXPECT_EQ(machine.statusItem.captureEnabled, enabled);
    }

    bool background = true;
    AppDelegate::Demo demo;
    std::vector<std::pair<AppWindow, QWindow*>> made;
    int terminated = 0;
    std::unique_ptr<AppDelegate> delegate; // ends before the model
};

} // namespace vesko

#pragma once

#include "VeskoApp/platform/Notifications.h"

#include <utility>

namespace vesko {

// Remembers what it was to show.
class FakeNotifications final : public Notifications {
public:
    std::vector<Notice> shown;
    int withdrawn = 0;

    void show(Notice notice) override { shown.push_back(std::move(notice)); }
    void withdraw() override { ++withdrawn; }
};

} // namespace vesko

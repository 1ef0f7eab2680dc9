#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vesko {

// The desktop's notifications. One at a time; where the desktop shows none, nothing happens. Main
// thread only; nothing here waits.
class Notifications {
public:
    struct Action {
        std::string id;
        std::string title; // in the user's words

        bool operator==(const Action&) const = default;
    };
    // In the user's words, without any markup.
    struct Notice {
        std::string title;
        std::string text;
        std::vector<Action> actions; // left out where the desktop has none

        bool operator==(const Notice&) const = default;
    };

    virtual ~Notifications() = default;

    // Shows it, in place of the one before.
    virtual void show(Notice notice) = 0;
    // It has nothing to say any more.
    virtual void withdraw() = 0;

    // The user chose that action of the last notice.
    std::function<void(const std::string& id)> onAction;
};

} // namespace vesko

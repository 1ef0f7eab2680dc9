#pragma once

#include <string>

namespace vesko {

// A shortcut that the desktop itself keeps in its settings, where the user finds it, and that runs
// a command of this program. It is there whether the program runs or not. Main thread only.
class DesktopShortcut {
public:
    virtual ~DesktopShortcut() = default;

    // Its keys as they stand in the desktop's settings now, in words such as "Super+Alt+Space";
    // empty if there is none.
    virtual std::string keys() const = 0;
    // The keys that add() takes, in such words.
    virtual std::string suggestion() const = 0;
    // False if another of the user's own shortcuts has the keys, or the settings can't be changed.
    virtual bool add() = 0;
    virtual void remove() = 0;
};

} // namespace vesko

#pragma once

#include <functional>
#include <optional>

namespace vesko {

// How the user wants programs to look, as far as the desktop tells. Main thread only. It is asked
// in the background: before the answer, and on a desktop that has none, there is no preference.
class Appearance {
public:
    virtual ~Appearance() = default;

    virtual std::optional<bool> dark() const = 0;
    // Whether things are to be where they are going at once.
    virtual bool reduceMotion() const = 0;
    // Whether everything is to stand out from what it stands on.
    virtual bool highContrast() const = 0;

    std::function<void()> onChanged;
};

} // namespace vesko

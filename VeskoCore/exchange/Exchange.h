#pragma once

#include <exception>
#include <functional>

namespace vesko {

// What goes on for long tells how far it is, and asks whether it is still wanted.
struct ExchangeWatch {
    std::function<void(double)> progress = [](double) { }; // 0 to 1
    std::function<bool()> isCancelled = [] { return false; };
};

// Why nothing was exported or imported. What the disk refuses is a std::system_error.
struct ExchangeFailure : std::exception {
    enum Kind {
        cancelled,
        notALibrary, // or damaged
        laterVersion, // of Vesko has made it
        tooLarge, // unpacked
    };

    explicit ExchangeFailure(Kind which)
        : kind(which)
    {
    }
    const char* what() const noexcept override { return "the exchange failed"; }

    Kind kind;
};

} // namespace vesko

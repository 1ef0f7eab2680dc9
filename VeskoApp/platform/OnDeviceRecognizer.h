#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace vesko {

// Turns an audio file into text on this machine; nothing leaves it. Main thread only; the work
// itself happens elsewhere.
class OnDeviceRecognizer {
public:
    // What the recogniser says while it works. Several may come; text that is not final, or
    // none, means that it goes on.
    struct Report {
        std::optional<std::string> text;
        bool isFinal = false;
        bool failed = false;
    };

    // A running recognition. Destroying it cancels the work; no report comes afterwards.
    class Recognition {
    public:
        virtual ~Recognition() = default;
    };

    virtual ~OnDeviceRecognizer() = default;

    // Whether the user lets this program recognise speech.
    virtual bool authorized() const = 0;
    // Whether a model for this language is installed; a tag such as "en" or "en-US". Cheap.
    virtual bool supports(const std::string& language) const = 0;
    // The tag of the user's own language, from the system's settings.
    virtual std::string systemLanguage() const = 0;
    // Whether it could work now.
    virtual bool available() const = 0;

    // Reports come from the event loop, never before this returns; a report may destroy the
    // recognition that it comes from.
    virtual std::unique_ptr<Recognition> recognize(const std::filesystem::path& audio,
        const std::string& language, std::function<void(const Report&)> report)
        = 0;
};

} // namespace vesko

#pragma once

#include "VeskoApp/platform/Hearing.h"

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
        std::optional<std::string> text = {};
        bool isFinal = false;
        bool failed = false;
        std::optional<double> done = {}; // what share of the recording it has been through, 0 to 1
        std::string model = {}; // who did it, with a final text: "whisper.cpp/base"
        std::optional<std::string> language = {}; // the tag of what was detected
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

    // Words that may well be said, for all that begins from now on; empty for none.
    virtual void expect(std::string words) = 0;

    // Recognises a recording that is about to begin, in a language that is supported, while it is
    // made.
    virtual std::unique_ptr<Hearing> hear(const std::string& language) = 0;
    // Reports come from the event loop, never before this returns; a report may destroy the
    // recognition that it comes from. What a hearing of this very recording has heard needs no
    // second look; one of another language, or that missed some of it, is passed over.
    virtual std::unique_ptr<Recognition> recognize(const std::filesystem::path& audio,
        const std::string& language, std::function<void(const Report&)> report,
        std::unique_ptr<Hearing> heard = nullptr)
        = 0;
};

} // namespace vesko

#pragma once

#include "VeskoApp/platform/OnDeviceRecognizer.h"
#include "tests/fakes/DeafHearing.h"

#include <QObject>
#include <QTimer>

#include <set>
#include <vector>

namespace vesko {

// A recogniser that hears what a test tells it to.
class FakeOnDeviceRecognizer final : public OnDeviceRecognizer {
public:
    bool isAuthorized = true;
    bool isAvailable = true;
    std::set<std::string> installed{ "en-US" };
    std::string system = "en-US";
    // What every recording says; nothing leaves the recognition waiting for a report by hand.
    std::optional<std::string> hears = "hello world";

    std::vector<std::string> languages; // that recognitions were begun with
    std::vector<std::filesystem::path> audio; // likewise

    std::string expected; // words
    std::vector<std::string> heardLanguages; // that hearings were begun with
    int hearings = 0; // that are under way
    std::vector<bool> wasHeard; // of each recognition, whether a hearing came with it

    Report extra; // of what every recording says: its model and language

    bool running() const { return m_report != nullptr; }
    // A report of the running recognition, which may end it.
    void report(const Report& report)
    {
        const auto to = m_report;
        to(report);
    }

    bool authorized() const override { return isAuthorized; }
    bool supports(const std::string& language) const override
    {
        return installed.contains(language);
    }
    std::string systemLanguage() const override { return system; }
    bool available() const override { return isAvailable; }
    void expect(std::string words) override { expected = std::move(words); }
    std::unique_ptr<Hearing> hear(const std::string& language) override
    {
        heardLanguages.push_back(language);
        return std::make_unique<DeafHearing>(hearings);
    }
    std::unique_ptr<Recognition> recognize(const std::filesystem::path& file,
        const std::string& language, std::function<void(const Report&)> to,
        std::unique_ptr<Hearing> heard) override
    {
        wasHeard.push_back(heard != nullptr);
        audio.push_back(file);
        languages.push_back(language);
        m_report = std::move(to);
        return std::make_unique<Running>(*this);
    }

private:
    class Running : public Recognition {
    public:
        explicit Running(FakeOnDeviceRecognizer& owner)
            : m_owner(owner)
        {
            if (owner.hears)
                QTimer::singleShot(0, &m_context, [&owner] {
                    owner.report({ .text = owner.hears,
                        .isFinal = true,
                        .model = owner.extra.model,
                        .language = owner.extra.language });
                });
        }
        ~Running() override { m_owner.m_report = nullptr; }

    private:
        FakeOnDeviceRecognizer& m_owner;
        QObject m_context;
    };

    std::function<void(const Report&)> m_report;
};

} // namespace vesko

#include "VeskoApp/onboarding/PermissionRows.h"

#include "VeskoApp/wording/InterfaceLanguage.h"
#include "VeskoApp/wording/SessionWords.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <QGuiApplication>

#include <array>
#include <utility>

namespace vesko {

namespace {

struct RowWords {
    const char* name;
    const char* line;
};

constexpr std::array rowWords{
    RowWords{
        L10N_KEY("Vesko", "Microphone"), L10N_KEY("Vesko", "Records only while you dictate.") },
    RowWords{ L10N_KEY("Vesko", "Speech Recognition"),
        L10N_KEY("Vesko", "Apple on-device transcription.") },
    RowWords{ L10N_KEY("Vesko", "Accessibility"),
        L10N_KEY("Vesko",
            "Pastes into the field you started in. Vesko switches it on, and it stays on.") },
    RowWords{ L10N_KEY("Vesko", "Input Monitoring"),
        L10N_KEY("Vesko", "Notices the Fn key. Keystrokes are not saved.") },
};

} // namespace

PermissionRows::PermissionRows(Platform& platform, std::function<void()> restartFn,
    std::function<std::string()> spokenLanguage)
    : m_platform(platform)
    , m_restartFn(std::move(restartFn))
    , m_spokenLanguage(std::move(spokenLanguage))
{
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
        [this](Qt::ApplicationState state) {
            if (state == Qt::ApplicationActive)
                revise();
        });
    platform.permissions.onChanged = [this] { Q_EMIT rowsChanged(); };
    revise();
}

PermissionRows::~PermissionRows()
{
    m_platform.permissions.onChanged = {};
}

void PermissionRows::revise()
{
    m_platform.permissions.look();
    Q_EMIT rowsChanged();
}

bool PermissionRows::allowed(Row row) const
{
    switch (row) {
    case microphone:
        return m_platform.permissions.microphone();
    case speechRecognition:
        return m_platform.recognizer.authorized() && m_platform.recognizer.supports(language());
    case accessibility:
        return m_platform.permissions.accessibility();
    case inputMonitoring:
        return m_platform.keys.permitted();
    }
    return false;
}

std::string PermissionRows::language() const
{
    auto spoken = m_spokenLanguage();
    return spoken == "auto" ? m_platform.recognizer.systemLanguage() : spoken;
}

// This desktop asks nobody; what can be missing is a model.
QString PermissionRows::aboutSpeech() const
{
    const auto tag = language();
    const bool english = tag == "en" || tag.starts_with("en-");
    return translated(allowed(speechRecognition)
            ? L10N_KEY("Vesko", "A speech model for %1 is installed.")
            : english
            ? L10N_KEY("Vesko",
                  "No speech model for %1 is installed. Install the package pocketsphinx-en-us, "
                  "or choose another engine or OpenRouter in Settings.")
            : L10N_KEY("Vesko",
                  "No speech model for %1 is installed. Choose another engine or "
                  "OpenRouter in Settings."))
        .arg(shownLanguage(tag, m_platform.preferredLanguages));
}

QString PermissionRows::openSettings(SettingsPanel panel, const QString& advice)
{
    if (m_platform.desktop.openSettings(panel))
        return advice;
    return advice + u' '
        + translated(L10N_KEY("Vesko",
            "Vesko found no program for your desktop's settings. Please open them yourself."));
}

QVariantList PermissionRows::rows() const
{
    QVariantList all;
    for (const auto row : { microphone, speechRecognition, accessibility, inputMonitoring }) {
        const bool is = allowed(row);
        const QString missing = row == inputMonitoring ? keysAdvice(m_platform.offer) : QString();
        const QString more = row == accessibility ? pasteAdvice(m_platform.offer) : QString();
        const bool asks = row != speechRecognition; // there, nobody is asked
        all << QVariantMap{
            { QStringLiteral("name"), translated(rowWords.at(row).name) },
            { QStringLiteral("line"),
                missing.isEmpty() ? (translated(rowWords.at(row).line) + u' ' + more).trimmed()
                                  : missing },
            { QStringLiteral("allowed"), is },
            { QStringLiteral("status"),
                is                      ? translated(L10N_KEY("Vesko", "Allowed"))
                    : !asks             ? translated(L10N_KEY("Vesko", "No speech model"))
                    : missing.isEmpty() ? translated(L10N_KEY("Vesko", "Not allowed"))
                                        : translated(L10N_KEY("Vesko", "Not offered here")) },
            { QStringLiteral("button"),
                is ? translated(L10N_KEY("Vesko", "Review"))
                   : translated(asks ? L10N_KEY("Vesko", "Allow") : L10N_KEY("Vesko", "Details")) },
        };
    }
    return all;
}

void PermissionRows::press(int row, const Notify& notify)
{
    switch (row) {
    case microphone:
        m_tasks.spawn(askForMicrophone(notify));
        return;
    case speechRecognition:
        notify(aboutSpeech());
        break;
    case accessibility:
        if (allowed(accessibility)) {
            notify(translated(L10N_KEY(
                "Vesko", "Accessibility is on. Vesko can paste into the field you started in.")));
            break;
        }
        m_platform.desktop.openSettings(SettingsPanel::accessibility);
        m_tasks.spawn(turnAccessibilityOn(notify));
        return;
    case inputMonitoring:
        if (!m_platform.offer.allKeys) {
            notify(shortcutAdvice(m_platform.offer));
            break;
        }
        if (allowed(inputMonitoring)) {
            notify(translated(L10N_KEY("Vesko", "Vesko notices the dictation key.")));
            break;
        }
        notify(openSettings(SettingsPanel::keyboard,
            translated(L10N_KEY("Vesko",
                "Enable Vesko in Input Monitoring. If it is missing, use the + button and select "
                "Vesko.app. If macOS asks, choose Quit & Reopen. Command Shift Space remains "
                "available."))));
        m_restartFn();
        break;
    default:
        return;
    }
    revise();
}

Task<> PermissionRows::turnAccessibilityOn(Notify notify)
{
    const bool done = co_await m_platform.permissions.requestAccessibility();
    notify(done ? translated(L10N_KEY("Vesko",
                      "Enable Vesko in Accessibility. If it is missing, add Vesko.app from your "
                      "Applications folder."))
                : translated(L10N_KEY("Vesko",
                      "This desktop has no accessibility bus, so nothing was turned on. Install "
                      "the package at-spi2-core, and start the session anew.")));
    revise();
}

Task<> PermissionRows::askForMicrophone(Notify notify)
{
    const bool opened = co_await m_platform.permissions.requestMicrophone();
    notify(opened ? translated(L10N_KEY("Vesko", "Microphone access is ready"))
                  : openSettings(SettingsPanel::sound,
                        translated(L10N_KEY("Vesko",
                            "Allow Vesko in System Settings > Privacy & Security > "
                            "Microphone."))));
    revise();
}

} // namespace vesko

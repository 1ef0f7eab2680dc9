#include "VeskoApp/onboarding/PermissionRows.h"

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

PermissionRows::PermissionRows(Platform& platform, std::function<void()> restartFn)
    : m_platform(platform)
    , m_restartFn(std::move(restartFn))
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
        return m_platform.recognizer.authorized()
            && m_platform.recognizer.supports(m_platform.recognizer.systemLanguage());
    case accessibility:
        return m_platform.permissions.accessibility();
    case inputMonitoring:
        return m_platform.keys.permitted();
    }
    return false;
}

QVariantList PermissionRows::rows() const
{
    QVariantList all;
    for (const auto row : { microphone, speechRecognition, accessibility, inputMonitoring }) {
        const bool is = allowed(row);
        all << QVariantMap{
            { QStringLiteral("name"), translated(rowWords.at(row).name) },
            { QStringLiteral("line"), translated(rowWords.at(row).line) },
            { QStringLiteral("allowed"), is },
            { QStringLiteral("status"),
                is ? translated(L10N_KEY("Vesko", "Allowed"))
                   : translated(L10N_KEY("Vesko", "Not allowed")) },
            { QStringLiteral("button"),
                is ? translated(L10N_KEY("Vesko", "Review"))
                   : translated(L10N_KEY("Vesko", "Allow")) },
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
        // This desktop asks nobody; what can be missing is a model.
        notify(allowed(speechRecognition)
                ? translated(L10N_KEY("Vesko", "A speech model for your language is installed."))
                : translated(L10N_KEY("Vesko",
                      "No speech model for your language is installed. Install one, such as the "
                      "package pocketsphinx-en-us, or choose OpenRouter in Settings.")));
        break;
    case accessibility:
        m_platform.desktop.openSettings(SettingsPanel::accessibility);
        m_tasks.spawn(turnAccessibilityOn(notify));
        return;
    case inputMonitoring:
        m_platform.desktop.openSettings(SettingsPanel::keyboard);
        notify(translated(L10N_KEY("Vesko",
            "Enable Vesko in Input Monitoring. If it is missing, use the + button and select "
            "Vesko.app. If macOS asks, choose Quit & Reopen. Command Shift Space remains "
            "available.")));
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
    if (!opened)
        m_platform.desktop.openSettings(SettingsPanel::sound);
    notify(opened ? translated(L10N_KEY("Vesko", "Microphone access is ready"))
                  : translated(L10N_KEY("Vesko",
                        "Allow Vesko in System Settings > Privacy & Security > "
                        "Microphone.")));
    revise();
}

} // namespace vesko

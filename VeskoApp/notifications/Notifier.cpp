#include "VeskoApp/notifications/Notifier.h"

#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/base/Text.h"

#include <utility>

namespace vesko {

namespace {

constexpr std::size_t longestShownText = 200; // characters

const std::string copyAgain = "copy";
const std::string openIt = "open";
const std::string tryAgain = "retry";

Notifications::Action action(const std::string& id, const char* title)
{
    return { id, translated(title).toStdString() };
}

} // namespace

Notifier::Notifier(const Neighbours& neighbours)
    : m_to(neighbours)
{
    // What is shown belongs to the one before.
    m_to.run.onStarted = [this](const Recording& recording) {
        m_recording = recording;
        m_text.clear();
        m_to.notifications.withdraw();
    };
    m_to.run.onFailed = [this](const std::string& message) { tellFailed(message); };
    m_to.delivery.onNotPasted = [this](const std::string& text, const std::string& message) {
        tellNotPasted(text, message);
    };
    m_to.notifications.onAction = [this](const std::string& id) { act(id); };
    connect(&m_to.capture, &Capture::starting, this, [this] {
        m_text.clear();
        m_to.notifications.withdraw();
    });
    connect(&m_to.preferences, &Preferences::changed, this, &Notifier::showsTextChanged);
}

Notifier::~Notifier()
{
    m_to.run.onStarted = nullptr;
    m_to.run.onFailed = nullptr;
    m_to.delivery.onNotPasted = nullptr;
    m_to.notifications.onAction = nullptr;
}

bool Notifier::isWanted() const
{
    return !(m_to.floats && m_to.preferences.showFloating.get()) || !m_to.statusItem.visible();
}

void Notifier::tellNotPasted(const std::string& text, const std::string& message)
{
    if (!isWanted())
        return;
    m_text = text;
    auto body = translated(message).toStdString();
    if (showsText())
        body += "\n" + std::string(firstCharacters(text, longestShownText));
    m_to.notifications.show({ .title = translated(L10N_KEY("Vesko", "Not pasted")).toStdString(),
        .text = std::move(body),
        .actions = { action(copyAgain, L10N_KEY("Vesko", "Copy again")),
            action(openIt, L10N_KEY("Vesko", "Open note")) } });
}

void Notifier::tellFailed(const std::string& message)
{
    if (!isWanted())
        return;
    m_to.notifications.show(
        { .title = translated(L10N_KEY("Vesko", "Not transcribed")).toStdString(),
            .text = translated(message).toStdString(),
            .actions = { action(tryAgain, L10N_KEY("Vesko", "Retry")),
                action(openIt, L10N_KEY("Vesko", "Open note")) } });
}

void Notifier::act(const std::string& id)
{
    if (id == copyAgain && !m_text.empty())
        m_to.clipboard.copy(m_text);
    else if (id == openIt && m_recording && openNote)
        openNote(m_recording->noteID);
    else if (id == tryAgain && m_recording)
        m_to.run.retry(*m_recording, true);
}

} // namespace vesko

#include "VeskoApp/status/StatusLine.h"

#include "VeskoApp/base/Observed.h"
#include "VeskoApp/status/SafeMessage.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

namespace vesko {

StatusLine::StatusLine()
    : m_message(L10N_KEY("Vesko", "Ready to capture"))
{
}

void StatusLine::setMessage(std::string message)
{
    assign(*this, m_message, std::move(message), &StatusLine::messageChanged);
}

void StatusLine::setErrorMessage(std::string message)
{
    assign(*this, m_errorMessage, std::move(message), &StatusLine::errorMessageChanged);
}

void StatusLine::setShortcutMessage(std::string message)
{
    assign(*this, m_shortcutMessage, std::move(message), &StatusLine::shortcutMessageChanged);
}

void StatusLine::report(const std::exception_ptr& failure)
{
    setErrorMessage(safeMessage(failure));
}

void StatusLine::withdraw(const std::string& errorMessage)
{
    if (m_errorMessage == errorMessage)
        setErrorMessage({});
}

QString StatusLine::messageText() const
{
    return translated(m_message);
}

QString StatusLine::errorText() const
{
    return translated(m_errorMessage);
}

QString StatusLine::shortcutText() const
{
    return translated(m_shortcutMessage);
}

} // namespace vesko

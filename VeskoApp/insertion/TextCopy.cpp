#include "VeskoApp/insertion/TextCopy.h"

#include "VeskoCore/base/Localized.h"

namespace vesko {

TextCopy::TextCopy(Clipboard& clipboard, Analytics& analytics, StatusLine& status)
    : m_clipboard(clipboard)
    , m_analytics(analytics)
    , m_status(status)
{
}

bool TextCopy::copy(const std::string& text)
{
    if (!m_clipboard.setText(text)) {
        m_status.setErrorMessage(L10N_KEY("Vesko",
            "The text is saved, but the clipboard could not be updated. Copy it from your note."));
        return false;
    }
    m_analytics.track(UsageEvent::textCopied);
    m_status.setMessage(L10N_KEY("Vesko", "Copied to clipboard"));
    return true;
}

} // namespace vesko

#include "VeskoApp/insertion/TextDelivery.h"

#include "VeskoCore/base/Localized.h"

#include <utility>

namespace vesko {

TextDelivery::TextDelivery(const Neighbours& neighbours)
    : m_to(neighbours)
{
}

Task<> TextDelivery::deliver(std::string text, bool paste, std::optional<Destination> destination)
{
    if (!m_to.clipboard.copy(text))
        co_return;
    std::vector<std::string> reasons;
    std::optional<FocusDestination> field;
    if (!paste) {
        reasons = { "paste_off" };
    } else {
        if (destination)
            field = co_await *destination;
        if (field)
            reasons
                = co_await field->attemptPaste(m_to.focusedField, m_to.pasteKeystroke, m_to.clock);
        else
            reasons = { "no_field" };
    }
    if (!reasons.empty()) {
        m_to.status.setMessage(pasteMessage(reasons));
        co_return;
    }
    m_to.status.setMessage(L10N_KEY("Vesko", "Copied. Paste sent to the original field."));
    if (m_to.preferences.learnCorrections.get())
        m_to.review.start(std::move(*field), text,
            [&terms = m_to.terms](std::vector<DictionarySuggestion> corrections, bool sent) {
                terms.corrected(std::move(corrections), sent);
            });
}

} // namespace vesko

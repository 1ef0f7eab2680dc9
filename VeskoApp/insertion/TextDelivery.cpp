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
        auto captured = destination ? co_await *destination : std::unexpected("no_field");
        if (captured) {
            field = std::move(*captured);
            reasons
                = co_await field->attemptPaste(m_to.focusedField, m_to.pasteKeystroke, m_to.clock);
        } else {
            reasons = { captured.error() };
        }
    }
    if (!reasons.empty()) {
        tellNotPasted(text, reasons);
        co_return;
    }
    if (m_to.preferences.learnCorrections.get())
        m_to.review.start(*field, text,
            [&terms = m_to.terms](std::vector<DictionarySuggestion> corrections, bool sent) {
                terms.corrected(std::move(corrections), sent);
            });
    m_proof.emplace();
    m_proof->spawn(prove(std::move(*field), std::move(text)));
}

// The dictation is over by then. Whatever has been said meanwhile stands.
Task<> TextDelivery::prove(FocusDestination field, std::string text)
{
    const std::string said = m_to.status.message();
    const bool arrived = co_await field.seemsPasted(m_to.focusedField, m_to.clock, text);
    if (m_to.status.message() != said)
        co_return;
    if (arrived)
        m_to.status.setMessage(L10N_KEY("Vesko", "Copied. Paste sent to the original field."));
    else
        tellNotPasted(text, { "not_seen" });
}

void TextDelivery::tellNotPasted(const std::string& text, const std::vector<std::string>& reasons)
{
    const auto message = pasteMessage(reasons);
    m_to.status.setMessage(message);
    if (onNotPasted)
        onNotPasted(text, message);
}

} // namespace vesko

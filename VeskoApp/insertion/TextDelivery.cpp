#include "VeskoApp/insertion/TextDelivery.h"

#include "VeskoCore/base/Localized.h"

#include <utility>

namespace vesko {

TextDelivery::TextDelivery(const Neighbours& neighbours)
    : m_to(neighbours)
{
}

Task<bool> TextDelivery::deliver(
    std::string text, bool paste, std::optional<Destination> destination)
{
    ClipboardContent before;
    if (paste && destination && m_to.preferences.returnClipboard.get())
        before = co_await m_to.clipboard.content();
    if (!m_to.clipboard.copy(text))
        co_return false;
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
        co_return !paste;
    }
    if (m_to.preferences.learnCorrections.get())
        m_to.review.start(*field, text, onCorrections);
    m_proof.emplace();
    m_proof->spawn(prove(std::move(*field), std::move(text), std::move(before)));
    co_return true;
}

// The dictation is over by then. Whatever has been said meanwhile stands.
Task<> TextDelivery::prove(FocusDestination field, std::string text, ClipboardContent before)
{
    const std::string said = m_to.status.message();
    const auto proof = co_await field.lookForPaste(m_to.focusedField, m_to.clock, text);
    // A program that shows the text has read the clipboard.
    const bool gaveBack = proof == PasteProof::seen && m_to.clipboard.giveBack(before, text);
    if (m_to.status.message() != said)
        co_return;
    if (gaveBack)
        m_to.status.setMessage(L10N_KEY(
            "Vesko", "Pasted into the original field. The clipboard holds what it held before."));
    else if (proof == PasteProof::notSeen)
        tellNotPasted(text, { "not_seen" });
    else
        m_to.status.setMessage(L10N_KEY("Vesko", "Copied. Paste sent to the original field."));
}

void TextDelivery::tellNotPasted(const std::string& text, const std::vector<std::string>& reasons)
{
    const auto message = pasteMessage(reasons);
    m_to.status.setMessage(message);
    if (onNotPasted)
        onNotPasted(text, message);
}

} // namespace vesko

#pragma once

#include "VeskoApp/platform/TextLanguageRecognizer.h"

namespace vesko {

// Tells languages with CLD2, which knows about 80 of them by their letters and short pieces of
// words.
//
// CLD2 gives no probability. It says which share of a text is in the language that it names
// (percent), how strongly (score, which is not comparable between languages) and whether the
// language stands out from the second best (reliable). Of a text of one or two sentences it is too
// sure: it calls "Hotel Barcelona" reliably Catalan, and in one script it names a single language
// for two mixed ones. So the finding for the whole text is put to a vote of its parts, the two
// halves and the three thirds. A part that is reliably in the same language counts for it, one that
// is reliably in another against it, and one of which CLD2 is not sure not at all:
//
//     confidence = min(percent / 100, max(0, (for - against) / 5))
//
// or 0 if the whole is not reliable. 0.8 is thus reached if four parts agree and none objects, or
// all five do. The score is not used: right and wrong findings in short texts have the same scores.
// Only the first 8 KiB of a text are looked at.
class Cld2LanguageRecognizer final : public TextLanguageRecognizer {
public:
    std::optional<Finding> recognize(const std::string& text) const override;
};

} // namespace vesko

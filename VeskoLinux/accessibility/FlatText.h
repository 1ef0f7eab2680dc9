#pragma once

#include "VeskoApp/async/Task.h"
#include "VeskoLinux/accessibility/AtspiBus.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace vesko {

// The text of an editor whose paragraphs, links and the like are elements of their own: each stands
// as one object character in the text around it.
struct FlatText {
    QString text; // of the whole, a line a paragraph, cut at FieldText::limit
    std::optional<std::int64_t> caret; // in UTF-16 units of it

    // `own` is the element's text and `caret` its own place in it. Nothing if the elements inside
    // don't answer to the characters, or are too many or too deep to be read in time.
    static Task<std::optional<FlatText>> of(AtspiBus& bus, AtspiAddress element, QString own,
        std::optional<std::int64_t> caret, AtspiInquiry inquiry);
};

bool holdsElements(const QString& text);

} // namespace vesko

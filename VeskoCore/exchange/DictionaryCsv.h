#pragma once

#include "VeskoCore/base/SharedArray.h"
#include "VeskoCore/library/DictionaryEntry.h"

#include <string>
#include <string_view>
#include <vector>

namespace vesko {

// A rule as a table of other programs tells it.
struct DictionaryRow {
    std::string original;
    std::string replacement;
    bool enabled = true;

    bool operator==(const DictionaryRow&) const = default;
};

// The dictionary as a table for other programs: UTF-8, with the heading
// "original,replacement,enabled", fields quoted where they have to be, lines ended by CR LF.
// https://www.rfc-editor.org/rfc/rfc4180
std::string dictionaryCsv(const SharedArray<DictionaryEntry>& entries);

// The rules of such a table, also of one without a heading or a third column, with a byte order
// mark, with semicolons instead of commas as some desktops' programs write, or with other ends of
// lines. Rows without two texts are left out; which terms are allowed is the store's business.
// Throws VeskoError::invalidDictionary for what is no UTF-8 text, or holds more than 100,000 rows.
std::vector<DictionaryRow> readDictionaryCsv(std::string_view text);

} // namespace vesko

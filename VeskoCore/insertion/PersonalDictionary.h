#pragma once

#include "VeskoCore/base/SharedArray.h"
#include "VeskoCore/library/DictionaryEntry.h"
#include "VeskoCore/library/DictionarySuggestion.h"

#include <string>
#include <string_view>
#include <vector>

// The user's own spellings: putting them into a transcript, and finding them in what the user
// changed. Pure functions on UTF-8 text, on any thread. Bytes that are not UTF-8 are no part of any
// word and equal nothing but themselves.
namespace vesko::PersonalDictionary {

// The text with each enabled entry's `original` replaced by its `replacement`, exactly as stored.
//
// A term is found ignoring case (Unicode's full case folding, so that STRASSE is found for
// "straße"), whole only (no letter, number or underscore beside it), and is replaced only if the
// found text in lower case is the term in lower case (so that STRASSE stays). Matches go from left
// to right and don't overlap. Where several terms match, the one with most characters counts, of
// as many the one that reaches further; of entries that differ only in case the first. Replacements
// are not searched again. Bytes outside the matches stay as they are.
std::string apply(const SharedArray<DictionaryEntry>& dictionary, std::string_view text);

// The words that look corrected between what was inserted and what the user made of it, in the
// order of the text, each pair once. Only words put one for one in the place of others count, and
// texts that hold an address of the web or of mail, or are too long, tell nothing. Canonically
// equivalent texts are the same text.
std::vector<DictionarySuggestion> corrections(std::string_view original, std::string_view edited);

} // namespace vesko::PersonalDictionary

#pragma once

#include "VeskoCore/base/InputFile.h"
#include "VeskoCore/library/Library.h"

namespace vesko {

// Bytes of a document, wherever it is written or read: what one place lets pass, each other takes.
// Parsing takes a multiple of this in memory; a lifetime of dictation stays far below it.
constexpr std::uint64_t largestDocument = 1ULL << 30;

// The library that a file holds. Throws VeskoError::unsupportedSchema for a later schema, whatever
// its shape, JsonError for what is no library, and std::system_error for what can't be read. As
// quick as it can be where the text is laid out as the store writes it: then it is read and parsed
// note by note, in memory that is used again, instead of as a whole document that is several times
// as large as the library.
Library readLibrary(InputFile& file);

} // namespace vesko

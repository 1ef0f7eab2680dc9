#pragma once

#include "VeskoCore/library/Library.h"

#include <string>

namespace vesko {

// The library that a text holds. Throws VeskoError::unsupportedSchema for a later schema, whatever
// its shape, and JsonError for what is no library. As quick as it can be where the text is laid out
// as the store writes it: then each note is parsed by itself, in memory that is used again, instead
// of a whole document that is several times as large as the library.
Library readLibrary(std::string text);

} // namespace vesko

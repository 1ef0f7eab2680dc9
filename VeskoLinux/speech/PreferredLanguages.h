#pragma once

#include <string>
#include <vector>

namespace vesko {

// The languages in which the user wants to read, as tags such as "de-AT", the first one first: by
// the rules of gettext the list in LANGUAGE and then the locale of the messages, from LC_ALL,
// LC_MESSAGES or LANG. A locale of C has none.
std::vector<std::string> preferredLanguages();

} // namespace vesko

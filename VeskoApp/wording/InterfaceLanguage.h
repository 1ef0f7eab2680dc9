#pragma once

#include <QString>

#include <string>
#include <vector>

namespace vesko {

// The language of the catalogue that suits a user best: the first of these tags, the most wanted
// one first, that there is a catalogue for; "en" if there is none.
std::string interfaceLanguage(const std::vector<std::string>& preferred);

// The catalogue of that language, a resource of the program.
QString catalogueOf(const std::string& language);

// The name of a language, as a user with these preferred languages reads it.
QString shownLanguage(const std::string& tag, const std::vector<std::string>& preferred);

} // namespace vesko

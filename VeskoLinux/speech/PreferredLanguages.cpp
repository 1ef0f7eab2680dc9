#include "VeskoLinux/speech/PreferredLanguages.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <sstream>

namespace vesko {

namespace {

std::string variable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

// "de_AT.UTF-8@euro" is "de-AT". Empty for the locale without a language.
std::string tagOf(const std::string& locale)
{
    std::string tag = locale.substr(0, locale.find_first_of(".@"));
    std::ranges::replace(tag, '_', '-');
    return tag == "C" || tag == "POSIX" ? "" : tag;
}

std::string messagesLocale()
{
    for (const char* name : std::array{ "LC_ALL", "LC_MESSAGES", "LANG" }) {
        const std::string value = variable(name);
        if (!value.empty())
            return value;
    }
    return "";
}

} // namespace

std::vector<std::string> preferredLanguages()
{
    const std::string own = tagOf(messagesLocale());
    if (own.empty())
        return {};
    std::vector<std::string> tags;
    std::istringstream list(variable("LANGUAGE") + ":" + own);
    for (std::string locale; std::getline(list, locale, ':');) {
        const std::string tag = tagOf(locale);
        if (!tag.empty() && std::ranges::find(tags, tag) == tags.end())
            tags.push_back(tag);
    }
    return tags;
}

} // namespace vesko

#include "VeskoApp/wording/InterfaceLanguage.h"

#include "VeskoCore/speech/SpokenLanguage.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace vesko {

namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 5> catalogues{ {
    { "de", ":/i18n/vesko_de.qm" },
    { "en", ":/i18n/vesko_linux_en.qm" },
    { "es", ":/i18n/vesko_es.qm" },
    { "fr", ":/i18n/vesko_fr.qm" },
    { "ru", ":/i18n/vesko_ru.qm" },
} };

} // namespace

std::string interfaceLanguage(const std::vector<std::string>& preferred)
{
    for (const auto& tag : preferred) {
        auto language = SpokenLanguage::code(tag);
        if (std::ranges::find(catalogues, language, &decltype(catalogues)::value_type::first)
            != catalogues.end())
            return language;
    }
    return "en";
}

QString catalogueOf(const std::string& language)
{
    const auto* const row
        = std::ranges::find(catalogues, language, &decltype(catalogues)::value_type::first);
    return QString::fromUtf8(row->second.data(), qsizetype(row->second.size()));
}

QString shownLanguage(const std::string& tag, const std::vector<std::string>& preferred)
{
    return QString::fromStdString(
        SpokenLanguage::displayName(tag, false, interfaceLanguage(preferred)));
}

} // namespace vesko

#include "VeskoCore/speech/ModelList.h"

#include "VeskoCore/library/VeskoError.h"
#include "VeskoCore/speech/ServiceAnswer.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace vesko {

namespace {

bool consistsOnlyOf(std::string_view text, std::string_view characters)
{
    return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

void require(bool holds)
{
    if (!holds)
        throw std::runtime_error("SpeechModels.json is damaged");
}

} // namespace

std::uintmax_t PublishedModel::bytes() const
{
    std::size_t behind = 0;
    const double number = std::stod(size, &behind);
    const bool large = size.substr(behind) == " GiB";
    return static_cast<std::uintmax_t>(std::llround(number * (large ? 1 << 30 : 1 << 20)));
}

std::vector<PublishedModel> publishedModels(const std::string& json)
{
    constexpr std::size_t digits = 40;
    std::vector<PublishedModel> models;
    try {
        const ServiceAnswer list(json);
        const auto text = [&](const auto& of, const char* key) {
            return std::string(ServiceAnswer::required<std::string_view>(of, key));
        };
        for (const auto entry :
            ServiceAnswer::required<simdjson::dom::array>(list.root(), "models")) {
            const auto of = ServiceAnswer::as<ServiceAnswer::Object>(entry);
            models.push_back({ .name = text(of, "name"),
                .size = text(of, "size"),
                .sha1 = text(of, "sha1"),
                .source = text(of, "source") });
        }
    } catch (const VeskoError&) {
        require(false);
    }
    for (const auto& model : models) {
        require(consistsOnlyOf(model.name, "abcdefghijklmnopqrstuvwxyz0123456789.-_")
            && model.sha1.size() == digits && consistsOnlyOf(model.sha1, "0123456789abcdef"));
        const auto blank = model.size.find(' ');
        require(blank != std::string::npos
            && consistsOnlyOf(model.size.substr(0, blank), "0123456789.") && model.size[0] != '.'
            && (model.size.substr(blank) == " MiB" || model.size.substr(blank) == " GiB"));
    }
    return models;
}

} // namespace vesko

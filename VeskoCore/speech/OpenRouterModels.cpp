// The models that the service lists.

#include "VeskoCore/speech/OpenRouterClient.h"
#include "VeskoCore/speech/ServiceAnswer.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <unicode/coll.h>
#include <utility>

namespace vesko {

namespace {

using Pricing = std::map<std::string, std::string>;

std::optional<Pricing> pricingOf(const ServiceAnswer::Object& model)
{
    ServiceAnswer::Object prices;
    if (model.at_key("pricing").get(prices) != simdjson::SUCCESS)
        return std::nullopt;
    Pricing pricing;
    for (const auto price : prices) {
        std::string_view value;
        if (price.value.get(value) != simdjson::SUCCESS)
            return std::nullopt;
        pricing.emplace(price.key, value);
    }
    return pricing;
}

std::vector<ProviderModel> modelsOf(const std::string& body)
{
    const ServiceAnswer answer(body);
    std::vector<ProviderModel> models;
    for (const auto element : answer.required<simdjson::dom::array>(answer.root(), "data")) {
        const auto model = ServiceAnswer::as<ServiceAnswer::Object>(element);
        const auto id = answer.required<std::string_view>(model, "id");
        const auto name = answer.required<std::string_view>(model, "name");
        constexpr auto longest = OpenRouterClient::longestModelText;
        if (models.size() < OpenRouterClient::mostModels && id.size() <= longest
            && name.size() <= longest)
            models.push_back(
                { .id = std::string(id), .name = std::string(name), .pricing = pricingOf(model) });
    }
    if (models.empty())
        throw VeskoError(VeskoError::invalidResponse);
    return models;
}

// A text whose bytes are in the order of the texts that they are made from.
std::string sortKey(const icu::Collator& order, const std::string& text)
{
    const auto units = icu::UnicodeString::fromUTF8(text);
    std::string key(static_cast<std::size_t>(order.getSortKey(units, nullptr, 0)), '\0');
    order.getSortKey(
        units, reinterpret_cast<std::uint8_t*>(key.data()), static_cast<std::int32_t>(key.size()));
    return key;
}

// By name in the order of the user's locale, numbers by their value.
void sortByName(std::vector<ProviderModel>& models)
{
    // The locale of bare C compares bytes, which nobody reads as an order.
    const icu::Locale& user = icu::Locale::getDefault();
    const bool bare = std::strcmp(user.getVariant(), "POSIX") == 0;
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> order(
        icu::Collator::createInstance(bare ? icu::Locale::getRoot() : user, status));
    if (U_SUCCESS(status))
        order->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    if (U_FAILURE(status))
        throw std::runtime_error("ICU has no order of texts");
    // The number of a model keeps those of one name in their order.
    std::vector<std::pair<std::string, std::size_t>> keys;
    keys.reserve(models.size());
    for (const auto& model : models)
        keys.emplace_back(sortKey(*order, model.name), keys.size());
    std::ranges::sort(keys);
    std::vector<ProviderModel> sorted;
    sorted.reserve(models.size());
    for (const auto& [key, index] : keys)
        sorted.push_back(std::move(models[index]));
    models = std::move(sorted);
}

} // namespace

std::vector<ProviderModel> OpenRouterClient::models(bool transcription, std::stop_token stop) const
{
    const HTTPResult result
        = send(transcription ? "models?output_modalities=transcription" : "models", std::nullopt,
            std::nullopt, std::move(stop));
    auto models = modelsOf(result.data);
    sortByName(models);
    return models;
}

} // namespace vesko

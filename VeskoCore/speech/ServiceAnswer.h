#pragma once

#include "VeskoCore/base/JsonText.h"
#include "VeskoCore/library/VeskoError.h"

#include <optional>
#include <string>
#include <string_view>

namespace vesko {

// The JSON body of a service's answer, read field by field. Whatever is not as it has to be makes
// the whole answer a VeskoError::invalidResponse; keys that nobody asks for are ignored. Values
// point into the answer.
class ServiceAnswer {
public:
    using Object = simdjson::dom::object;

    explicit ServiceAnswer(const std::string& body)
        : m_root(as<Object>(parseJson(m_parser, body)))
    {
    }
    ServiceAnswer(const ServiceAnswer&) = delete;
    ServiceAnswer& operator=(const ServiceAnswer&) = delete;

    const Object& root() const { return m_root; }

    template <class T>
    static T required(const Object& in, std::string_view key)
    {
        return as<T>(in.at_key(key));
    }
    // Nothing for a key that is missing or null; another type is still a failure.
    template <class T>
    static std::optional<T> optional(const Object& in, std::string_view key)
    {
        const auto value = in.at_key(key);
        if (value.error() == simdjson::NO_SUCH_FIELD || value.is_null())
            return std::nullopt;
        return as<T>(value);
    }
    // From an element, or from what should have been one.
    template <class T, class Element>
    static T as(Element value)
    {
        T result{};
        if (value.get(result) != simdjson::SUCCESS)
            throw VeskoError(VeskoError::invalidResponse);
        return result;
    }

    // The number under "cost" in the object "usage", United States dollars.
    std::optional<double> cost() const
    {
        const auto usage = optional<Object>(m_root, "usage");
        return usage ? optional<double>(*usage, "cost") : std::nullopt;
    }

private:
    simdjson::dom::parser m_parser;
    Object m_root;
};

} // namespace vesko

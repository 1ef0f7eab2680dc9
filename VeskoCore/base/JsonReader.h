#pragma once

#include "VeskoCore/base/Date.h"
#include "VeskoCore/base/JsonError.h"
#include "VeskoCore/base/JsonFields.h"
#include "VeskoCore/base/JsonText.h"
#include "VeskoCore/base/SharedArray.h"
#include "VeskoCore/base/SharedText.h"
#include "VeskoCore/base/Uuid.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <concepts>
#include <memory>
#include <optional>
#include <set>
#include <simdjson.h>
#include <string>
#include <utility>
#include <vector>

namespace vesko {

// Who wrote a JSON text.
enum class JsonOrigin : bool {
    file, // this program: dates are whole seconds in UTC, and nothing is null
    service, // dates are as Date::parseInternet takes them, and an optional value may be null
};

// A parsed JSON text. Only what the standard allows is JSON: no byte order mark, no comma too many,
// nothing behind the value, UTF-8 throughout, at most 1,024 levels.
class JsonDocument {
public:
    // Holds nothing yet.
    JsonDocument() = default;
    // Throws JsonError. A text with spare capacity is not copied.
    explicit JsonDocument(std::string text, JsonOrigin origin = JsonOrigin::file);
    // Holds another text from now on, in the memory of the one before. Throws JsonError. The bytes
    // behind it, spareForJson of them, must be readable.
    void parse(std::string_view text);
    JsonDocument(const JsonDocument&) = delete;
    JsonDocument& operator=(const JsonDocument&) = delete;

    // For looking around before it is clear what the document is.
    simdjson::dom::element root() const { return m_root; }

    // The record that the text holds. Throws JsonError for a missing or doubled key, a wrong type,
    // a null, a number that doesn't fit, a malformed UUID or date, an unknown raw text; keys that
    // no table has are ignored, whatever stands under them.
    template <class T>
    T as() const
    {
        T value{};
        read(m_root, value);
        return value;
    }

private:
    using Element = simdjson::dom::element;

    template <class T>
    static T get(Element from)
    {
        T value{};
        if (from.get(value) != simdjson::SUCCESS)
            throw JsonError();
        return value;
    }

    void read(Element from, bool& to) const { to = get<bool>(from); }
    void read(Element from, double& to) const { to = get<double>(from); }
    void read(Element from, std::string& to) const { to = get<std::string_view>(from); }
    // Shares the text with one that was read just before, if they are the same.
    void read(Element from, SharedText& to) const;
    void read(Element from, Uuid& to) const { to = parsed(from, &Uuid::parse); }
    void read(Element from, Date& to) const
    {
        const bool wholeSeconds = m_origin == JsonOrigin::file;
        to = parsed(from, wholeSeconds ? &Date::parse : &Date::parseInternet);
    }

    template <std::integral T>
    void read(Element from, T& to) const
    {
        const auto value = get<std::int64_t>(from);
        if (!std::in_range<T>(value))
            throw JsonError();
        to = static_cast<T>(value);
    }
    template <JsonEnumeration T>
    void read(Element from, T& to) const
    {
        const auto name = get<std::string_view>(from);
        const auto& names = jsonNames<T>;
        const auto found = std::ranges::find(names, name);
        if (found == names.end())
            throw JsonError();
        to = static_cast<T>(found - names.begin());
    }
    template <class T>
    void read(Element from, std::optional<T>& to) const
    {
        if (m_origin == JsonOrigin::service && from.is_null())
            to.reset();
        else
            read(from, to.emplace());
    }
    template <class T>
    void read(Element from, std::vector<T>& to) const
    {
        to.clear();
        // Nothing is reserved: a hostile text could claim far more than it goes on to fill.
        for (const Element element : get<simdjson::dom::array>(from))
            read(element, to.emplace_back());
    }
    template <class T>
    void read(Element from, SharedArray<T>& to) const
    {
        std::vector<std::shared_ptr<const T>> elements;
        for (const Element element : get<simdjson::dom::array>(from)) {
            auto value = std::make_shared<T>();
            read(element, *value);
            elements.push_back(std::move(value));
        }
        to = SharedArray<T>(std::move(elements));
    }
    // An array in any order, and an element may be repeated.
    template <class T>
    void read(Element from, std::set<T>& to) const
    {
        for (const Element element : get<simdjson::dom::array>(from)) {
            T value{};
            read(element, value);
            to.insert(std::move(value));
        }
    }
    template <JsonVariant T>
    void read(Element from, T& to) const
    {
        constexpr auto& keys = jsonCases<T>;
        std::size_t found = 0, alternative = 0;
        Element payload;
        for (const auto member : get<simdjson::dom::object>(from)) {
            const auto key = std::ranges::find(keys, member.key);
            if (key == keys.end())
                continue;
            ++found;
            alternative = static_cast<std::size_t>(key - keys.begin());
            payload = member.value;
        }
        if (found != 1)
            throw JsonError("Invalid number of keys found, expected one.");
        [&]<std::size_t... Index>(std::index_sequence<Index...>) {
            ((Index == alternative ? readPayload(payload, to.template emplace<Index>()) : void()),
                ...);
        }(std::make_index_sequence<keys.size()>());
    }
    template <JsonRecord T>
    void read(Element from, T& to) const
    {
        constexpr auto& members = membersOf<T>;
        std::bitset<members.size()> seen;
        std::size_t next = 0; // mostly, since the keys of a file stand in their order
        for (const auto [key, value] : get<simdjson::dom::object>(from)) {
            for (std::size_t tried = 0; tried < members.size(); ++tried) {
                const auto at = std::exchange(next, (next + 1) % members.size());
                if (members[at].key != key)
                    continue;
                if (seen[at])
                    throw JsonError();
                seen.set(at);
                members[at].read(*this, value, to);
                break;
            }
        }
        for (std::size_t at = 0; at < members.size(); ++at)
            if (!seen[at] && members[at].mustBeThere)
                throw JsonError();
    }

    template <class T>
    void readPayload(Element from, T& to) const
    {
        bool seen = false;
        for (const auto member : get<simdjson::dom::object>(from)) {
            if (member.key != jsonPayloadKey)
                continue;
            if (std::exchange(seen, true))
                throw JsonError();
            read(member.value, to);
        }
        if (!seen)
            throw JsonError();
    }

    template <class T>
    static T parsed(Element from, std::optional<T> (*parse)(std::string_view))
    {
        const auto value = parse(get<std::string_view>(from));
        if (!value)
            throw JsonError();
        return *value;
    }
    template <class T>
    struct Member {
        std::string_view key;
        bool mustBeThere;
        void (*read)(const JsonDocument&, Element, T&);
    };
    template <class Record, class T>
    static constexpr bool isOptional(const JsonField<Record, std::optional<T>>&)
    {
        return true;
    }
    template <class Record, class T>
    static constexpr bool isOptional(const JsonField<Record, T>& field)
    {
        return field.presence == JsonKey::mayBeMissing;
    }
    template <JsonRecord T, std::size_t index>
    static constexpr Member<T> memberOf()
    {
        constexpr auto& field = std::get<index>(jsonFields<T>);
        return { field.key, !isOptional(field),
            [](const JsonDocument& document, Element from, T& to) {
                document.read(from, to.*std::get<index>(jsonFields<T>).member);
            } };
    }
    template <JsonRecord T>
    static constexpr auto membersOf = []<std::size_t... index>(std::index_sequence<index...>) {
        return std::array{ memberOf<T, index>()... };
    }(std::make_index_sequence<std::tuple_size_v<std::remove_cvref_t<decltype(jsonFields<T>)>>>());

    simdjson::dom::parser m_parser;
    simdjson::dom::element m_root;
    // A note's body is mostly one of the two texts that each of its transcripts has.
    mutable std::array<SharedText, 2> m_recentTexts;
    JsonOrigin m_origin = JsonOrigin::file;
};

} // namespace vesko

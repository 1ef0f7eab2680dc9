#include "VeskoCore/base/JsonReader.h"

namespace vesko {

JsonDocument::JsonDocument(std::string text, JsonOrigin origin)
    : m_origin(origin)
{
    // Gone with this scope: the parser keeps what it needs, and a large text weighs.
    const std::string own = std::move(text);
    if (m_parser.parse(own).get(m_root) != simdjson::SUCCESS)
        throw JsonError();
}

void JsonDocument::parse(std::string_view text)
{
    constexpr bool copied = false;
    if (m_parser.parse(text.data(), text.size(), copied).get(m_root) != simdjson::SUCCESS)
        throw JsonError();
}

} // namespace vesko

#include "VeskoCore/base/JsonReader.h"

namespace vesko {

JsonDocument::JsonDocument(std::string text, JsonOrigin origin)
    : m_origin(origin)
{
    // Gone with this scope: the parser keeps what it needs, and a large text weighs.
    const std::string own = std::move(text);
    if (parseJson(m_parser, own).get(m_root) != simdjson::SUCCESS)
        throw JsonError();
}

void JsonDocument::parse(std::string_view text)
{
    if (parseJson(m_parser, text).get(m_root) != simdjson::SUCCESS)
        throw JsonError();
}

void JsonDocument::read(Element from, SharedText& to) const
{
    const auto text = get<std::string_view>(from);
    auto known = std::ranges::find(m_recentTexts, text);
    if (known == m_recentTexts.end())
        *--known = std::string(text);
    std::rotate(m_recentTexts.begin(), known, known + 1);
    to = m_recentTexts.front();
}

} // namespace vesko

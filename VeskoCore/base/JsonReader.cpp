#include "VeskoCore/base/JsonReader.h"

namespace vesko {

JsonDocument::JsonDocument(
    std::string text) // NOLINT: taken by value so that it goes before the records come
{
    if (m_parser.parse(text).get(m_root) != simdjson::SUCCESS)
        throw JsonError();
}

} // namespace vesko

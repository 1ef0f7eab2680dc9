#include "VeskoCore/base/JsonReader.h"

namespace vesko {

JsonDocument::JsonDocument(const std::string& text)
{
    if (m_parser.parse(text).get(m_root) != simdjson::SUCCESS)
        throw JsonError();
}

} // namespace vesko

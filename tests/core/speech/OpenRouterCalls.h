#pragma once

#include "VeskoCore/library/VeskoError.h"
#include "VeskoCore/speech/OpenRouterClient.h"
#include "tests/fakes/LoopbackServer.h"

#include <simdjson.h>

// What tests of the client share.
namespace vesko {

// A client that speaks to a real server.
inline OpenRouterClient clientOf(const LoopbackServer& server)
{
    return OpenRouterClient(server.url() + "/api/v1/");
}

// The failure of an action, as a VeskoError; notFound, which this client never throws, for none.
template <typename Action>
VeskoError failure(const Action& action)
{
    try {
        action();
    } catch (const VeskoError& error) {
        return error;
    }
    return VeskoError::notFound;
}

// A body that was sent, read by a JSON reader that is not the client's writer.
class SentBody {
public:
    explicit SentBody(const std::string& body) { m_root = m_parser.parse(body); }
    bool has(std::string_view key) const { return m_root[key].error() == simdjson::SUCCESS; }
    std::string text(std::string_view pointer) const
    {
        return std::string(m_root.at_pointer(pointer).get_string().value());
    }
    simdjson::dom::element at(std::string_view pointer) const
    {
        return m_root.at_pointer(pointer).value();
    }
    std::size_t size() const { return m_root.get_object().value().size(); }

private:
    simdjson::dom::parser m_parser;
    simdjson::dom::element m_root;
};

} // namespace vesko

#pragma once

#include "tests/fakes/LoopbackServer.h"

#include <map>
#include <regex>
#include <set>
#include <simdjson.h>
#include <string>
#include <vector>

namespace vesko {

// Reads what usage analytics sent as a stranger would, with a reader and a list of its own, and
// objects to everything that is not on the list.
class WireCheck {
public:
    // In words, one for each find; none if the request holds what it may hold, all of it, and
    // nothing else.
    static std::vector<std::string> objections(const LoopbackServer::Request& request)
    {
        WireCheck check;
        check.head(request);
        check.body(request.body);
        return check.m_objections;
    }
    // The names of the events, in their order.
    static std::vector<std::string> events(const std::string& body)
    {
        std::vector<std::string> names;
        simdjson::dom::parser parser;
        for (const auto envelope : parser.parse(body).get_array())
            names.emplace_back(envelope["eventName"].get_string().value());
        return names;
    }

private:
    enum class Kind { text, truth };
    struct Field {
        Kind kind;
        std::regex form; // of a text
    };

    static const std::map<std::string, Field>& fields()
    {
        static const std::string uuid = "[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}";
        static const std::map<std::string, Field> list{
            { "eventName",
                { Kind::text,
                    std::regex("app_started|recording_started|recording_saved|"
                               "transcription_succeeded|transcription_failed|note_created|"
                               "note_exported|text_copied|onboarding_started|"
                               "onboarding_completed|sign_in_started|sign_in_succeeded|"
                               "sign_in_failed|sign_in_cancelled|signed_out|account_deleted") } },
            { "props.environment", { Kind::text, std::regex("sandbox|production") } },
            { "props.iid", { Kind::text, std::regex(uuid) } },
            { "sessionId", { Kind::text, std::regex(uuid) } },
            { "systemProps.appBuildNumber", { Kind::text, std::regex("[0-9]{1,9}") } },
            { "systemProps.appVersion", { Kind::text, std::regex("[0-9]+(\\.[0-9]+){1,3}") } },
            { "systemProps.isDebug", { Kind::truth, std::regex() } },
            { "systemProps.osName", { Kind::text, std::regex("Linux") } },
            { "systemProps.sdkVersion", { Kind::text, std::regex("vesko-aptabase@1") } },
            { "timestamp",
                { Kind::text, std::regex("\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\dZ") } },
        };
        return list;
    }

    void head(const LoopbackServer::Request& request)
    {
        if (request.startLine != "POST /api/v0/events HTTP/1.1")
            m_objections.push_back("start line " + request.startLine);
        static const std::set<std::string> known{ "Host", "Accept", "Content-Type", "App-Key",
            "Content-Length" };
        std::set<std::string> seen;
        for (const auto& [name, value] : request.headers)
            if (!known.contains(name) || !seen.insert(name).second)
                m_objections.push_back("header " + name);
        if (request.header("Content-Type") != "application/json")
            m_objections.emplace_back("content type");
    }
    void body(const std::string& text)
    {
        simdjson::dom::parser parser;
        simdjson::dom::array envelopes;
        if (parser.parse(text).get(envelopes) != simdjson::SUCCESS || envelopes.size() == 0) {
            m_objections.emplace_back("the body is no list of events");
            return;
        }
        for (const auto envelope : envelopes) {
            m_seen.clear();
            object(envelope, "");
            for (const auto& [path, field] : fields())
                if (!m_seen.contains(path))
                    m_objections.push_back("no " + path);
        }
    }
    void object(simdjson::dom::element element, const std::string& prefix)
    {
        simdjson::dom::object members;
        if (element.get(members) != simdjson::SUCCESS) {
            m_objections.push_back("no object: " + prefix);
            return;
        }
        for (const auto [key, value] : members) {
            const std::string path = prefix + std::string(key);
            if (path == "props" || path == "systemProps")
                object(value, path + ".");
            else
                leaf(value, path);
        }
    }
    void leaf(simdjson::dom::element value, const std::string& path)
    {
        const auto field = fields().find(path);
        if (field == fields().end()) {
            m_objections.push_back("unknown " + path);
            return;
        }
        if (!m_seen.insert(path).second)
            m_objections.push_back("twice " + path);
        std::string_view text;
        const bool right = field->second.kind == Kind::truth ? value.is_bool()
                                                             : value.get(text) == simdjson::SUCCESS
                && std::regex_match(std::string(text), field->second.form);
        if (!right)
            m_objections.push_back("value of " + path);
    }

    std::set<std::string> m_seen; // in the envelope at hand
    std::vector<std::string> m_objections;
};

} // namespace vesko

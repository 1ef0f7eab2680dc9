#include "VeskoCore/speech/TranscriptionServer.h"

#include "VeskoCore/base/Text.h"
#include "VeskoCore/base/Uuid.h"
#include "VeskoCore/library/VeskoError.h"
#include "VeskoCore/speech/Curl.h"
#include "VeskoCore/speech/CurlTransport.h"
#include "VeskoCore/speech/ServiceAnswer.h"
#include "VeskoCore/speech/SpokenLanguage.h"

#include <memory>
#include <utility>

namespace vesko {

namespace {

// An address, read by libcurl, so that nothing is understood otherwise than it will be used.
class Address {
public:
    explicit Address(const std::string& text)
        : m_parts(curl().url(), curl().urlCleanup)
    {
        m_valid = m_parts
            && curl().urlSet(m_parts.get(), CURLUPART_URL, std::string(trimmed(text)).c_str(), 0)
                == CURLUE_OK;
    }
    bool valid() const { return m_valid; }
    std::optional<std::string> part(CURLUPart which) const
    {
        char* text = nullptr;
        if (curl().urlGet(m_parts.get(), which, &text, 0) != CURLUE_OK)
            return std::nullopt;
        std::string copy = text;
        curl().free(text);
        return copy;
    }
    bool isLoopback() const
    {
        // No name but this one: another might be resolved to anything.
        const auto host = part(CURLUPART_HOST).value_or("");
        return host == "localhost" || host == "127.0.0.1" || host == "[::1]";
    }
    bool isAcceptable() const
    {
        if (!m_valid || part(CURLUPART_USER) || part(CURLUPART_PASSWORD) || part(CURLUPART_QUERY)
            || part(CURLUPART_FRAGMENT))
            return false;
        const auto scheme = part(CURLUPART_SCHEME);
        return scheme == "https" || (scheme == "http" && isLoopback());
    }

private:
    std::unique_ptr<CURLU, decltype(&curl_url_cleanup)> m_parts;
    bool m_valid = false;
};

// The parts of a form (RFC 7578) one after the other.
class Form {
public:
    void add(std::string_view name, std::string_view value)
    {
        begin(name);
        m_body.append("\r\n\r\n").append(value).append("\r\n");
    }
    void addFile(std::string_view name, std::string_view bytes)
    {
        begin(name);
        m_body.append("; filename=\"audio.wav\"\r\nContent-Type: audio/wav\r\n\r\n");
        m_body.append(bytes).append("\r\n");
    }
    std::string type() const { return "multipart/form-data; boundary=" + m_boundary; }
    std::string body() && { return std::move(m_body.append("--" + m_boundary + "--\r\n")); }

private:
    void begin(std::string_view name)
    {
        m_body.append("--" + m_boundary + "\r\nContent-Disposition: form-data; name=\"");
        m_body.append(name).append("\"");
    }

    const std::string m_boundary = "vesko-" + Uuid::random().text();
    std::string m_body;
};

EngineAnswer answerIn(const HTTPResult& result)
{
    const ServiceAnswer answer(result.data);
    EngineAnswer heard;
    heard.text = trimmed(answer.required<std::string_view>(answer.root(), "text"));
    // Some give a tag, some the English name, which is no use.
    const auto language = answer.root().at_key("language");
    std::string_view tag;
    if (language.get(tag) == simdjson::SUCCESS && (tag.size() == 2 || tag.size() == 3))
        heard.language = SpokenLanguage::code(tag);
    return heard;
}

} // namespace

std::optional<std::string> TranscriptionServer::endpoint(const std::string& address)
{
    const Address parsed(address);
    if (!parsed.isAcceptable())
        return std::nullopt;
    std::string url(trimmed(address));
    while (url.ends_with('/'))
        url.pop_back();
    if (!url.ends_with("/v1"))
        url += "/v1";
    return url + "/audio/transcriptions";
}

bool TranscriptionServer::isLocal(const std::string& address)
{
    const Address parsed(address);
    return parsed.isAcceptable() && parsed.isLoopback();
}

TranscriptionServer::TranscriptionServer(Place place, HttpTransport transport)
    : m_place(std::move(place))
    , m_transport(transport ? std::move(transport) : curlTransport())
{
}

EngineAnswer TranscriptionServer::transcribe(const std::string& wav, const std::string& language,
    const std::string& prompt, std::stop_token stop) const
{
    const auto url = endpoint(m_place.address);
    if (!url)
        throw VeskoError(VeskoError::notFound);
    if (wav.size() > audioLimit)
        throw VeskoError(VeskoError::audioTooLarge);
    Form form;
    form.add("model", m_place.model);
    form.add("response_format", "json");
    if (language != "auto")
        form.add("language", SpokenLanguage::code(language));
    if (!prompt.empty())
        form.add("prompt", prompt);
    form.addFile("file", wav);
    HttpRequest request{ .url = *url,
        .method = "POST",
        .headers = { { "Content-Type", form.type() } },
        .body = {},
        .pastProxy = isLocal(m_place.address) };
    if (m_place.key) {
        const std::string_view bearer = trimmed(*m_place.key);
        if (bearer.empty() || bearer.find_first_of("\r\n") != std::string_view::npos)
            throw VeskoError(VeskoError::missingKey);
        request.bearer = bearer;
    }
    request.body = std::move(form).body();
    const HTTPResult result = m_transport(request, std::move(stop));
    if (result.status < 200 || result.status > 299)
        throw VeskoError::http(result.status);
    return answerIn(result);
}

} // namespace vesko

#include "VeskoCore/speech/CurlTransport.h"

#include "VeskoCore/library/VeskoError.h"
#include "VeskoCore/speech/Curl.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <malloc.h>
#include <memory>
#include <simdjson.h>
#include <string_view>
#include <utility>

namespace vesko {

namespace {

using SteadyClock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr std::size_t headerLimit = std::size_t{ 256 } * 1024; // bytes of all header lines

struct EasyDeleter {
    void operator()(CURL* handle) const { curl().easyCleanup(handle); }
};
struct MultiDeleter {
    void operator()(CURLM* handle) const { curl().multiCleanup(handle); }
};
struct ListDeleter {
    void operator()(curl_slist* list) const { curl().slistFreeAll(list); }
};
using Easy = std::unique_ptr<CURL, EasyDeleter>;
using Multi = std::unique_ptr<CURLM, MultiDeleter>;
using List = std::unique_ptr<curl_slist, ListDeleter>;

bool isOneLine(std::string_view text)
{
    return text.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos;
}

URLError::Kind kindOf(CURLcode code, CURL* easy)
{
    switch (code) {
    case CURLE_COULDNT_RESOLVE_PROXY:
    case CURLE_COULDNT_RESOLVE_HOST:
        return URLError::cannotFindHost;
    case CURLE_COULDNT_CONNECT: {
        long number = 0;
        curl().easyGetinfo(easy, CURLINFO_OS_ERRNO, &number);
        return number == ENETUNREACH ? URLError::notConnectedToInternet
                                     : URLError::cannotConnectToHost;
    }
    case CURLE_PARTIAL_FILE:
    case CURLE_GOT_NOTHING:
    case CURLE_SEND_ERROR:
    case CURLE_RECV_ERROR:
        return URLError::networkConnectionLost;
    case CURLE_OPERATION_TIMEDOUT:
        return URLError::timedOut;
    default:
        return URLError::other;
    }
}

// Header values outside ASCII have no agreed encoding; what is not UTF-8 is read as Latin-1, so
// that no bytes but UTF-8 get further into the program.
std::string headerText(std::string_view value)
{
    if (simdjson::validate_utf8(value))
        return std::string(value);
    std::string text;
    for (const char byte : value) {
        const auto point = static_cast<unsigned char>(byte);
        if (point < 0x80) {
            text += byte;
        } else {
            text += static_cast<char>(0xC0 | (point >> 6));
            text += static_cast<char>(0x80 | (point & 0x3F));
        }
    }
    return text;
}

// libcurl copies a request several times, the key with it, and these wipe what it gives back.
void wipingFree(void* memory)
{
    if (memory)
        ::explicit_bzero(memory, ::malloc_usable_size(memory));
    std::free(memory);
}

void* wipingRealloc(void* memory, std::size_t size)
{
    void* const larger = std::malloc(size);
    if (!larger || !memory)
        return larger;
    std::memcpy(larger, memory, std::min(size, ::malloc_usable_size(memory)));
    wipingFree(memory);
    return larger;
}

// One exchange, from its first byte to its last.
class Exchange {
public:
    Exchange(const HttpRequest& request, std::size_t bodyLimit)
        : m_request(request)
        , m_bodyLimit(bodyLimit)
        , m_easy(curl().easyInit())
        , m_multi(curl().multiInit())
    {
        if (!m_easy || !m_multi)
            throw URLError(URLError::other);
        if (!isOneLine(request.url) || !isOneLine(request.method))
            throw URLError(URLError::other);
        // With it, a large body would wait a second for the server's leave.
        addHeader("Expect:");
        // Else libcurl says of no body that it is a form.
        if (!request.body)
            addHeader("Content-Type:");
        for (const auto& [name, value] : request.headers)
            addHeader(std::string(name).append(": ").append(value));
        if (request.bearer)
            addAuthorization(*request.bearer);
        set(CURLOPT_URL, request.url.c_str());
        set(CURLOPT_PROTOCOLS_STR, "http,https");
        // HTTP/2 may repeat a refused request by itself.
        set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
        set(CURLOPT_FORBID_REUSE, 1L);
        set(CURLOPT_FOLLOWLOCATION, 0L);
        set(CURLOPT_NOSIGNAL, 1L);
        // Else the end of an exchange waits for a name server that does not answer.
        set(CURLOPT_QUICK_EXIT, 1L);
        set(CURLOPT_TIMEOUT_MS, static_cast<long>(std::ceil(request.resourceTimeout * 1000)));
        if (request.pastProxy)
            set(CURLOPT_NOPROXY, "*");
        set(CURLOPT_HTTPHEADER, m_headers.get());
        if (request.body || request.method == "POST") {
            // libcurl reads the body where it stands.
            set(CURLOPT_POSTFIELDS, request.body ? request.body->data() : "");
            set(CURLOPT_POSTFIELDSIZE_LARGE,
                static_cast<curl_off_t>(request.body ? request.body->size() : 0));
        }
        set(CURLOPT_CUSTOMREQUEST, request.method.c_str());
        set(CURLOPT_WRITEFUNCTION, &Exchange::takeBody);
        set(CURLOPT_WRITEDATA, this);
        set(CURLOPT_HEADERFUNCTION, &Exchange::takeHeader);
        set(CURLOPT_HEADERDATA, this);
        curl().multiAddHandle(m_multi.get(), m_easy.get());
    }
    ~Exchange() { curl().multiRemoveHandle(m_multi.get(), m_easy.get()); }
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    HTTPResult perform(const std::stop_token& stop)
    {
        const std::stop_callback wake(stop, [this] { curl().multiWakeup(m_multi.get()); });
        const Seconds idleLimit(m_request.timeout);
        auto lastProgress = SteadyClock::now();
        curl_off_t moved = 0;
        while (true) {
            if (stop.stop_requested())
                throw URLError(URLError::cancelled);
            int running = 0;
            if (curl().multiPerform(m_multi.get(), &running) != CURLM_OK)
                throw URLError(URLError::other);
            if (running == 0)
                return result();
            const auto now = SteadyClock::now();
            if (const curl_off_t total = bytesMoved(); total != moved) {
                moved = total;
                lastProgress = now;
            }
            const Seconds left = idleLimit - (now - lastProgress);
            if (left <= Seconds::zero())
                throw URLError(URLError::timedOut);
            constexpr double longestPoll = 60; // keeps the milliseconds within an int
            const double wait = std::ceil(std::min(left.count(), longestPoll) * 1000);
            if (curl().multiPoll(m_multi.get(), nullptr, 0, static_cast<int>(wait), nullptr)
                != CURLM_OK)
                throw URLError(URLError::other);
        }
    }

private:
    template <typename Value>
    void set(CURLoption option, Value value)
    {
        if (curl().easySetopt(m_easy.get(), option, value) != CURLE_OK)
            throw URLError(URLError::other);
    }

    void addHeader(const std::string& line)
    {
        curl_slist* list
            = isOneLine(line) ? curl().slistAppend(m_headers.get(), line.c_str()) : nullptr;
        if (!list)
            throw URLError(URLError::other);
        if (!m_headers)
            m_headers.reset(list);
    }

    void addAuthorization(std::string_view token)
    {
        constexpr std::string_view name = "Authorization: Bearer ";
        std::string line;
        line.reserve(name.size() + token.size());
        line.append(name).append(token);
        try {
            addHeader(line);
        } catch (const URLError&) {
            wipe(line);
            throw;
        }
        wipe(line);
    }

    HTTPResult result()
    {
        int left = 0;
        const CURLMsg* message = curl().multiInfoRead(m_multi.get(), &left);
        if (!message || message->msg != CURLMSG_DONE)
            throw URLError(URLError::other);
        const CURLcode code = message->data.result;
        // libcurl knows the second also for a URL that is not HTTP, which never connects.
        const bool strangeAnswer = code == CURLE_WEIRD_SERVER_REPLY
            || (code == CURLE_UNSUPPORTED_PROTOCOL && number(CURLINFO_NUM_CONNECTS) > 0);
        if (strangeAnswer)
            throw VeskoError(VeskoError::invalidResponse);
        if (code != CURLE_OK)
            throw URLError(kindOf(code, m_easy.get()));
        // libcurl takes headers that break off for a whole answer without a body.
        if (!m_headEnded)
            throw URLError(URLError::networkConnectionLost);

        HTTPResult result{ .data = std::move(m_body),
            .status = static_cast<int>(number(CURLINFO_RESPONSE_CODE)),
            .requestID = std::nullopt };
        curl_header* header = nullptr;
        if (curl().easyHeader(m_easy.get(), "X-Generation-Id", 0, CURLH_HEADER, -1, &header)
            == CURLHE_OK)
            result.requestID = headerText(header->value);
        return result;
    }

    long number(CURLINFO info)
    {
        long value = 0;
        curl().easyGetinfo(m_easy.get(), info, &value);
        return value;
    }

    curl_off_t bytesMoved()
    {
        curl_off_t sent = 0;
        curl().easyGetinfo(m_easy.get(), CURLINFO_SIZE_UPLOAD_T, &sent);
        return sent + static_cast<curl_off_t>(m_headerBytes + m_body.size());
    }

    // Fewer bytes taken than given ends the exchange.
    static std::size_t takeBody(
        const char* data, std::size_t, std::size_t size, void* self) noexcept
    {
        auto& exchange = *static_cast<Exchange*>(self);
        if (size > exchange.m_bodyLimit - exchange.m_body.size())
            return CURL_WRITEFUNC_ERROR;
        exchange.m_body.append(data, size);
        return size;
    }

    static std::size_t takeHeader(
        const char* data, std::size_t, std::size_t size, void* self) noexcept
    {
        auto& exchange = *static_cast<Exchange*>(self);
        const std::string_view line(data, size);
        if (line.starts_with("HTTP/"))
            exchange.m_headEnded = false;
        else if (line == "\r\n" || line == "\n")
            exchange.m_headEnded = true;
        exchange.m_headerBytes += size;
        return exchange.m_headerBytes > headerLimit ? 0 : size;
    }

    const HttpRequest& m_request;
    const std::size_t m_bodyLimit;
    List m_headers; // outlives the handle that reads it
    Easy m_easy;
    Multi m_multi;
    std::string m_body;
    std::size_t m_headerBytes = 0;
    bool m_headEnded = false;
};

} // namespace

Curl::Curl()
{
    if (globalInitMem(
            CURL_GLOBAL_DEFAULT, &std::malloc, &wipingFree, &wipingRealloc, &::strdup, &std::calloc)
        != CURLE_OK)
        throw std::runtime_error("libcurl can't begin");
}

HttpTransport curlTransport(std::size_t bodyLimit)
{
    return [=](const HttpRequest& request, const std::stop_token& stop) {
        return Exchange(request, bodyLimit).perform(stop);
    };
}

} // namespace vesko

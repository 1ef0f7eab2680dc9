#include "tests/fakes/LoopbackServer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <arpa/inet.h>
#include <cstdlib>
#include <netinet/in.h>
#include <stdexcept>
#include <strings.h>
#include <sys/socket.h>
#include <unistd.h>

namespace vesko {

namespace {

constexpr std::chrono::minutes deadline(1);

// Start line and headers of the bytes before the empty line.
LoopbackServer::Request parsedHead(const std::string& head)
{
    LoopbackServer::Request request;
    std::size_t at = head.find("\r\n");
    request.startLine = head.substr(0, at);
    while (at != std::string::npos) {
        at += 2;
        const std::size_t end = std::min(head.find("\r\n", at), head.size());
        const std::string line = head.substr(at, end - at);
        const std::size_t colon = std::min(line.find(':'), line.size());
        const std::size_t value = std::min(line.find_first_not_of(": ", colon), line.size());
        request.headers.emplace_back(line.substr(0, colon), line.substr(value));
        at = end == head.size() ? std::string::npos : end;
    }
    return request;
}

} // namespace

std::optional<std::string> LoopbackServer::Request::header(const std::string& name) const
{
    std::optional<std::string> found;
    for (const auto& [key, value] : headers) {
        if (strcasecmp(key.c_str(), name.c_str()) != 0)
            continue;
        if (found)
            return std::nullopt;
        found = value;
    }
    return found;
}

LoopbackServer::Reply LoopbackServer::answer(
    int status, const std::string& body, const Headers& headers)
{
    std::string bytes = "HTTP/1.1 " + std::to_string(status) + " Scripted\r\n";
    for (const auto& [name, value] : headers)
        bytes.append(name).append(": ").append(value).append("\r\n");
    bytes += "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
    return { .bytes = bytes };
}

LoopbackServer::LoopbackServer()
    : m_listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    // A proxy of the machine must not come between.
    setenv("no_proxy", "127.0.0.1,localhost", 1);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    if (bind(m_listener, generic, size) != 0 || listen(m_listener, 64) != 0
        || getsockname(m_listener, generic, &size) != 0)
        throw std::runtime_error("no port on 127.0.0.1");
    m_port = ntohs(address.sin_port);
    m_accepting = std::jthread([this](const std::stop_token& stop) { accept(stop); });
}

LoopbackServer::~LoopbackServer()
{
    m_accepting.request_stop();
    shutdown(m_listener, SHUT_RDWR);
    m_accepting.join();
    for (auto& serving : m_serving)
        serving.request_stop();
    {
        const std::lock_guard lock(m_mutex);
        for (const int connection : m_open)
            shutdown(connection, SHUT_RDWR);
    }
    m_serving.clear();
    close(m_listener);
}

std::string LoopbackServer::url() const
{
    return "http://127.0.0.1:" + std::to_string(m_port);
}

void LoopbackServer::reply(Reply reply)
{
    const std::lock_guard lock(m_mutex);
    m_replies.push_back(std::move(reply));
}

void LoopbackServer::stopReading()
{
    const std::lock_guard lock(m_mutex);
    m_reading = false;
}

void LoopbackServer::readSlowlyFor(std::chrono::milliseconds time)
{
    const std::lock_guard lock(m_mutex);
    m_slowTime = time;
}

std::vector<LoopbackServer::Request> LoopbackServer::requests() const
{
    const std::lock_guard lock(m_mutex);
    return m_requests;
}

LoopbackServer::Request LoopbackServer::onlyRequest() const
{
    const auto all = requests();
    EXPECT_EQ(all.size(), 1U);
    return all.empty() ? Request() : all.front();
}

std::size_t LoopbackServer::connections() const
{
    const std::lock_guard lock(m_mutex);
    return m_connections;
}

bool LoopbackServer::waitForConnections(std::size_t count) const
{
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, deadline, [&] { return m_connections >= count; });
}

bool LoopbackServer::waitForRequests(std::size_t count) const
{
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, deadline, [&] { return m_requests.size() >= count; });
}

bool LoopbackServer::waitForReplies(std::size_t count) const
{
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, deadline, [&] { return m_repliesSent >= count; });
}

void LoopbackServer::accept(const std::stop_token& stop)
{
    while (!stop.stop_requested()) {
        const int connection = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0)
            continue;
        {
            const std::lock_guard lock(m_mutex);
            ++m_connections;
            m_open.push_back(connection);
        }
        m_changed.notify_all();
        m_serving.emplace_back(
            [this, connection](const std::stop_token& ended) { serve(connection, ended); });
    }
}

void LoopbackServer::serve(int connection, const std::stop_token& stop)
{
    bool reading = true;
    {
        std::unique_lock lock(m_mutex);
        reading = m_reading;
        if (!reading)
            m_changed.wait(lock, stop, [] { return false; });
    }
    while (reading) {
        auto request = readRequest(connection, stop);
        if (!request)
            break;
        const Reply reply = nextReply();
        {
            const std::lock_guard lock(m_mutex);
            m_requests.push_back(std::move(*request));
        }
        m_changed.notify_all();
        reading = send(connection, reply, stop);
    }
    const std::lock_guard lock(m_mutex);
    std::erase(m_open, connection);
    close(connection);
}

std::optional<LoopbackServer::Request> LoopbackServer::readRequest(
    int connection, const std::stop_token& stop)
{
    auto slowUntil = std::chrono::steady_clock::now();
    {
        const std::lock_guard lock(m_mutex);
        slowUntil += m_slowTime;
    }
    std::string bytes;
    std::optional<Request> request;
    std::size_t whole = 0;
    while (!request || bytes.size() < whole) {
        if (std::chrono::steady_clock::now() < slowUntil)
            pause(std::chrono::milliseconds(20), stop);
        char chunk[65536];
        // No lock is held here; the analyzer loses sight of the one that the pause gave back.
        // NOLINTNEXTLINE(clang-analyzer-unix.BlockInCriticalSection)
        const ssize_t got = recv(connection, chunk, sizeof chunk, 0);
        if (got <= 0)
            return std::nullopt;
        bytes.append(chunk, static_cast<std::size_t>(got));
        const std::size_t end = request ? std::string::npos : bytes.find("\r\n\r\n");
        if (end != std::string::npos) {
            request = parsedHead(bytes.substr(0, end));
            whole = end + 4 + std::stoul(request->header("Content-Length").value_or("0"));
        }
    }
    request->body = bytes.substr(bytes.find("\r\n\r\n") + 4);
    request->bytes = std::move(bytes);
    return request;
}

// True if the connection is to serve another request.
bool LoopbackServer::send(int connection, const Reply& reply, const std::stop_token& stop)
{
    if (!sendBytes(connection, reply.bytes, reply.pause, stop))
        return false;
    while (reply.repeated) {
        if (!sendBytes(connection, *reply.repeated, reply.pause, stop))
            return false;
    }
    {
        const std::lock_guard lock(m_mutex);
        ++m_repliesSent;
    }
    m_changed.notify_all();
    if (reply.then == Then::reset) {
        const linger atOnce{ .l_onoff = 1, .l_linger = 0 };
        setsockopt(connection, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    }
    return reply.then == Then::stayOpen;
}

bool LoopbackServer::sendBytes(int connection, const std::string& bytes,
    std::chrono::milliseconds between, const std::stop_token& stop)
{
    const std::size_t step = between.count() > 0 ? 1 : bytes.size();
    for (std::size_t sent = 0; sent < bytes.size();) {
        const ssize_t took = ::send(
            connection, bytes.data() + sent, std::min(step, bytes.size() - sent), MSG_NOSIGNAL);
        if (took <= 0 || stop.stop_requested())
            return false;
        sent += static_cast<std::size_t>(took);
        if (between.count() > 0)
            pause(between, stop);
    }
    return true;
}

void LoopbackServer::pause(std::chrono::milliseconds time, const std::stop_token& stop)
{
    std::unique_lock lock(m_mutex);
    m_changed.wait_for(lock, stop, time, [] { return false; });
}

LoopbackServer::Reply LoopbackServer::nextReply()
{
    const std::lock_guard lock(m_mutex);
    if (m_replies.empty())
        return answer(500, "no reply was scripted");
    Reply reply = std::move(m_replies.front());
    m_replies.pop_front();
    return reply;
}

} // namespace vesko

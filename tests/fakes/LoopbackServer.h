#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace vesko {

// A real HTTP server on 127.0.0.1 that says what a test tells it to, byte for byte, and remembers
// what it was sent. Every connection has a thread of its own. Replies are given out in the order
// in which whole requests arrive; a request for which none is left gets a 500.
class LoopbackServer {
public:
    using Headers = std::vector<std::pair<std::string, std::string>>;

    struct Request {
        std::string bytes; // as they came over the wire
        std::string startLine; // "POST /path HTTP/1.1"
        Headers headers;
        std::string body;

        // The value of the only header of that name, in any case; nothing if there is none, or
        // if there are several.
        std::optional<std::string> header(const std::string& name) const;
    };

    // What happens once the bytes of a reply have been sent.
    enum class Then {
        stayOpen, // wait for the next request on this connection, or for its end
        close,
        reset, // the client sees "connection reset by peer"
    };
    struct Reply {
        std::string bytes; // status line, headers and body; nothing is added
        Then then = Then::stayOpen;
        std::chrono::milliseconds pause{ 0 }; // after each byte; zero sends all at once
        // Sent after the bytes, again and again until the client has gone.
        std::optional<std::string> repeated = std::nullopt;
    };

    // A well-formed reply with the right Content-Length.
    static Reply answer(int status, const std::string& body, const Headers& headers = {});

    LoopbackServer();
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    int port() const { return m_port; }
    std::string url() const; // "http://127.0.0.1:PORT"

    void reply(Reply reply);
    // From now on a connection is taken but not read from, as by a server that is stuck.
    void stopReading();
    // From now on a request is taken in small sips until so much time has passed, then at once.
    void readSlowlyFor(std::chrono::milliseconds time);

    // The whole requests so far.
    std::vector<Request> requests() const;
    // The only request; fails the test if there was not exactly one.
    Request onlyRequest() const;
    std::size_t connections() const;
    // Waits until so many connections were made, whole requests came, or replies were sent to their
    // end; false if that does not happen within a minute.
    bool waitForConnections(std::size_t count) const;
    bool waitForRequests(std::size_t count) const;
    bool waitForReplies(std::size_t count) const;

private:
    void accept(const std::stop_token& stop);
    void serve(int connection, const std::stop_token& stop);
    std::optional<Request> readRequest(int connection, const std::stop_token& stop);
    void pause(std::chrono::milliseconds time, const std::stop_token& stop);
    bool send(int connection, const Reply& reply, const std::stop_token& stop);
    bool sendBytes(int connection, const std::string& bytes, std::chrono::milliseconds between,
        const std::stop_token& stop);
    Reply nextReply();

    int m_listener = -1;
    int m_port = 0;

    mutable std::mutex m_mutex;
    mutable std::condition_variable_any m_changed;
    std::deque<Reply> m_replies;
    std::vector<Request> m_requests;
    std::vector<int> m_open; // sockets in use, to be woken when the server ends
    std::size_t m_connections = 0;
    std::size_t m_repliesSent = 0;
    bool m_reading = true;
    std::chrono::milliseconds m_slowTime{ 0 };

    std::vector<std::jthread> m_serving;
    std::jthread m_accepting; // the only one to add to m_serving
};

} // namespace vesko

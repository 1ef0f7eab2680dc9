#pragma once

#include <algorithm>
#include <arpa/inet.h>
#include <atomic>
#include <csignal>
#include <memory>
#include <netinet/in.h>
#include <openssl/ssl.h>
#include <stdexcept>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace vesko {

// A TLS server on 127.0.0.1 that takes one connection. It has a certificate that nobody has signed
// but it itself, for its own name or for another, or none at all, and counts what it is told
// nevertheless.
class UnprovenServer {
    template <auto Free>
    struct Deleter {
        template <typename Object>
        void operator()(Object* object) const
        {
            Free(object);
        }
    };

public:
    enum class Proof { selfSigned, selfSignedForAnother, none };

    explicit UnprovenServer(Proof proof)
        : m_key(EVP_EC_gen("P-256"))
        , m_certificate(X509_new())
        , m_context(SSL_CTX_new(TLS_server_method()))
        , m_listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        X509* certificate = m_certificate.get();
        ASN1_INTEGER_set(X509_get_serialNumber(certificate), 1);
        X509_gmtime_adj(X509_getm_notBefore(certificate), -3600);
        X509_gmtime_adj(X509_getm_notAfter(certificate), 3600);
        X509_NAME* name = X509_get_subject_name(certificate);
        const auto* host = proof == Proof::selfSignedForAnother ? "example.com" : "localhost";
        X509_NAME_add_entry_by_txt(
            name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>(host), -1, -1, 0);
        X509_set_issuer_name(certificate, name);
        X509_set_pubkey(certificate, m_key.get());
        X509_sign(certificate, m_key.get(), EVP_sha256());
        if (proof != Proof::none) {
            SSL_CTX_use_certificate(m_context.get(), certificate);
            SSL_CTX_use_PrivateKey(m_context.get(), m_key.get());
        }

        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* generic = reinterpret_cast<sockaddr*>(&address);
        if (m_listener < 0 || bind(m_listener, generic, size) != 0 || listen(m_listener, 1) != 0
            || getsockname(m_listener, generic, &size) != 0)
            throw std::runtime_error("no port on 127.0.0.1");
        m_port = ntohs(address.sin_port);
        m_serving = std::jthread([this] { serve(); });
    }
    ~UnprovenServer()
    {
        shutdown(m_listener, SHUT_RDWR);
        m_serving.join();
        close(m_listener);
    }

    std::string url() const { return "https://localhost:" + std::to_string(m_port) + "/"; }
    X509* certificate() const { return m_certificate.get(); }
    bool wasConnected() const { return m_connected; }
    int bytesRead() const { return m_bytesRead; }

private:
    void serve()
    {
        // A client that hangs up while it is being spoken to must not end the tests.
        sigset_t pipe;
        sigemptyset(&pipe);
        sigaddset(&pipe, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &pipe, nullptr);
        const int connection = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0)
            return;
        m_connected = true;
        const std::unique_ptr<SSL, Deleter<SSL_free>> session(SSL_new(m_context.get()));
        SSL_set_fd(session.get(), connection);
        char bytes[1024];
        if (SSL_accept(session.get()) == 1)
            m_bytesRead = std::max(0, SSL_read(session.get(), bytes, sizeof bytes));
        close(connection);
    }

    std::unique_ptr<EVP_PKEY, Deleter<EVP_PKEY_free>> m_key;
    std::unique_ptr<X509, Deleter<X509_free>> m_certificate;
    std::unique_ptr<SSL_CTX, Deleter<SSL_CTX_free>> m_context;
    int m_listener;
    int m_port = 0;
    std::atomic<bool> m_connected = false;
    std::atomic<int> m_bytesRead = 0;
    std::jthread m_serving;
};

} // namespace vesko

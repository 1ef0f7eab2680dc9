#include "VeskoCore/speech/CurlTransport.h"
#include "tests/fakes/UnprovenServer.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

X509* trusted = nullptr;

} // namespace

// By this call libcurl asks for the authorities that the machine trusts. Here it is the program's
// own, so that a test can say who is trusted.
extern "C" int X509_STORE_load_file(X509_STORE* store, const char*)
{
    return trusted ? X509_STORE_add_cert(store, trusted) : 1;
}

namespace vesko {
namespace {

using Proof = UnprovenServer::Proof;

TEST(CurlTransportTls, AServerThatCannotProveWhoItIsGetsNothing)
{
    setenv("no_proxy", "127.0.0.1,localhost", 1);
    for (const Proof proof : { Proof::selfSigned, Proof::selfSignedForAnother, Proof::none }) {
        UnprovenServer server(proof);
        const HttpRequest request{ .url = server.url(),
            .method = "POST",
            .headers = { { "Authorization", "Bearer secret" } },
            .body = "voice" };
        try {
            curlTransport()(request, {});
            ADD_FAILURE() << "an unproven server was trusted";
        } catch (const URLError& error) {
            EXPECT_EQ(error.kind(), URLError::other);
        }
        EXPECT_TRUE(server.wasConnected());
        EXPECT_EQ(server.bytesRead(), 0);
    }
}

// The first of the two shows that the certificate is trusted, so it is the name that the second
// fails for.
TEST(CurlTransportTls, ATrustedCertificateForAnotherNameProvesNothing)
{
    setenv("no_proxy", "127.0.0.1,localhost", 1);
    for (const Proof proof : { Proof::selfSigned, Proof::selfSignedForAnother }) {
        UnprovenServer server(proof);
        trusted = server.certificate();
        const HttpRequest request{ .url = server.url(),
            .method = "POST",
            .headers = { { "Authorization", "Bearer secret" } },
            .body = "voice" };
        try {
            curlTransport()(request, {});
            ADD_FAILURE() << "the server never answers";
        } catch (const URLError& error) {
            const bool refused = error.kind() == URLError::other;
            EXPECT_EQ(refused, proof == Proof::selfSignedForAnother) << error.kind();
        }
        trusted = nullptr;
        EXPECT_EQ(server.bytesRead() > 0, proof == Proof::selfSigned);
    }
}

} // namespace
} // namespace vesko

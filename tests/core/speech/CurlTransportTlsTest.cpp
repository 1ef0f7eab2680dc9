#include "VeskoCore/speech/CurlTransport.h"
#include "tests/fakes/UnprovenServer.h"

#include <gtest/gtest.h>

#include <cstdlib>

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

} // namespace
} // namespace vesko

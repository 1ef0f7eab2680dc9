// What it costs to make 25 MB of audio a request, and the first search of a process, which is all
// that happens there before.

#include "VeskoCore/base/Digest.h"
#include "VeskoCore/library/TextSearch.h"
#include "VeskoCore/speech/OpenRouterClient.h"
#include "bench/Budget.h"

#include <random>

using namespace vesko;

namespace {

constexpr double requestAim = 1.8; // of coding the same bytes alone
constexpr double searchLimit = 0.01; // seconds

std::string noise(std::size_t size)
{
    std::string bytes(size, '\0');
    std::mt19937 random(1);
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

} // namespace

int main()
{
    bench::report("the first search of a process, vs 10 ms",
        bench::seconds([] { benchmark::DoNotOptimize(TextSearch("x", "en").foundIn("a text")); }),
        searchLimit, 1);

    const auto audio = noise(OpenRouterClient::audioLimit);
    const OpenRouterClient client("https://service.example/", [](const HttpRequest& request, auto) {
        benchmark::DoNotOptimize(request.body->data());
        return HTTPResult{ .data = R"({"text":"x"})", .status = 200, .requestID = {} };
    });
    bench::compare(
        "25 MB of audio into a request, vs its base64 alone",
        [&] {
            return bench::seconds(
                [&] { client.transcribe(audio, "m4a", "model", std::nullopt, "key", true, {}); });
        },
        [&] { return bench::seconds([&] { benchmark::DoNotOptimize(base64(audio)); }); },
        requestAim);
}

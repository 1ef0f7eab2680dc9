#pragma once

#include "VeskoCore/library/TranscriptResult.h"
#include "VeskoCore/speech/HttpTransport.h"

#include <gtest/gtest.h>

namespace vesko {

// Stands for the network: keeps what it was asked for and gives one answer.
struct FakeNetwork {
    HTTPResult answer{ .data = {}, .status = 200, .requestID = std::nullopt };
    std::vector<HttpRequest> requests;

    HttpTransport transport()
    {
        return [this](const HttpRequest& request, const std::stop_token&) {
            requests.push_back(request);
            return answer;
        };
    }
    const std::string& onlyBody() const
    {
        EXPECT_EQ(requests.size(), 1U);
        return requests.at(0).body.value();
    }
};

// The result of an answer whose words, as they are, these are.
inline TranscriptResult resultOf(
    const std::string& words, std::optional<double> cost, const std::string& requestID)
{
    return { .rawText = words,
        .text = words,
        .cost = cost,
        .requestID = requestID,
        .warning = std::nullopt };
}

// The value of the header as it goes out, which is not there twice.
inline std::optional<std::string> header(const HttpRequest& request, const std::string& name)
{
    std::optional<std::string> found;
    if (name == "Authorization" && request.bearer)
        found = "Bearer " + std::string(std::string_view(*request.bearer));
    for (const auto& [key, value] : request.headers) {
        if (key == name) {
            EXPECT_FALSE(found) << name << " is there twice";
            found = value;
        }
    }
    return found;
}

} // namespace vesko

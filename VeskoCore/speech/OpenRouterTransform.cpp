// A transcript cleaned up or translated by a chat model. The transcript is precious and this step
// is not: whatever goes wrong here, the transcript comes back as it was.

#include "VeskoCore/base/JsonWriter.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/base/Text.h"
#include "VeskoCore/speech/OpenRouterClient.h"
#include "VeskoCore/speech/ServiceAnswer.h"
#include "VeskoCore/speech/TextTransform.h"

#include <vector>

namespace vesko {

// The body of the chat call.
struct ChatMessage {
    std::string role;
    std::string content;
};

struct ChatReasoning {
    bool enabled = false;
};

struct ChatRequest {
    int maxTokens = 8192;
    std::vector<ChatMessage> messages;
    std::string model;
    ChatReasoning reasoning;
    int temperature = 0;
};

template <>
inline constexpr std::tuple jsonFields<ChatMessage>{
    JsonField{ "content", &ChatMessage::content },
    JsonField{ "role", &ChatMessage::role },
};

template <>
inline constexpr std::tuple jsonFields<ChatReasoning>{
    JsonField{ "enabled", &ChatReasoning::enabled },
};

template <>
inline constexpr std::tuple jsonFields<ChatRequest>{
    JsonField{ "max_tokens", &ChatRequest::maxTokens },
    JsonField{ "messages", &ChatRequest::messages },
    JsonField{ "model", &ChatRequest::model },
    JsonField{ "reasoning", &ChatRequest::reasoning },
    JsonField{ "temperature", &ChatRequest::temperature },
};

namespace {

struct Choice {
    std::optional<std::string_view> finishReason;
    std::optional<std::string_view> content;
};

// The first choice. Every one of them has to be readable.
Choice firstChoice(const ServiceAnswer& answer)
{
    std::optional<Choice> first;
    for (const auto element : answer.required<simdjson::dom::array>(answer.root(), "choices")) {
        const auto choice = ServiceAnswer::as<ServiceAnswer::Object>(element);
        const auto message = answer.required<ServiceAnswer::Object>(choice, "message");
        const Choice read{
            .finishReason = answer.optional<std::string_view>(choice, "finish_reason"),
            .content = answer.optional<std::string_view>(message, "content"),
        };
        if (!first)
            first = read;
    }
    return first.value_or(Choice());
}

TranscriptResult transformed(TranscriptResult transcript, const HTTPResult& result)
{
    const ServiceAnswer answer(result.data);
    const auto [finishReason, content] = firstChoice(answer);
    const auto cost = answer.cost();
    // Whatever ended otherwise, by its length for instance, is a part of the text.
    if (finishReason != "stop" || !content || trimmed(*content).empty())
        throw VeskoError(VeskoError::invalidResponse);
    transcript.text = trimmed(*content);
    transcript.cost = sumOfCosts(transcript.cost, cost);
    return transcript;
}

} // namespace

TranscriptResult OpenRouterClient::clean(TranscriptResult transcript, const std::string& model,
    std::string_view key, bool allowProcessing, std::stop_token stop) const
{
    return transform(
        std::move(transcript), model, key, allowProcessing, true, std::nullopt, std::move(stop));
}

TranscriptResult OpenRouterClient::transform(TranscriptResult transcript, const std::string& model,
    std::string_view key, bool allowProcessing, bool cleanup,
    const std::optional<std::string>& translateTo, std::stop_token stop) const
{
    auto instructions = TextTransform::instructions(cleanup, translateTo);
    if (!instructions)
        return transcript;
    if (!allowProcessing) {
        transcript.warning = VeskoError(VeskoError::cloudConsentRequired).errorDescription();
        return transcript;
    }
    try {
        if (model.empty())
            throw VeskoError(VeskoError::invalidModel);
        const ChatRequest request{ .messages
            = { { "system", std::move(*instructions) },
                { "user", translateTo ? transcript.text : transcript.rawText } },
            .model = model,
            .reasoning = {} };
        return transformed(transcript,
            send("chat/completions", key, JsonWriter::write(request, JsonWriter::Form::compact),
                std::move(stop)));
    } catch (const std::exception&) {
        // The warning is all that is said of it: the transcript stands.
        transcript.warning = translateTo
            ? L10N_KEY("Vesko", "Translation was unavailable. The original transcript was kept.")
            : L10N_KEY("Vesko", "AI cleanup was unavailable. The original transcript was kept.");
        return transcript;
    }
}

} // namespace vesko

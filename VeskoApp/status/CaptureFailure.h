#pragma once

#include <exception>
#include <string>

namespace vesko {

// A failure of the microphone, the recorder or the on-device recogniser, in the words that the
// user is told: a key for the catalogues.
class CaptureFailure : public std::exception {
public:
    explicit CaptureFailure(std::string message)
        : m_message(std::move(message))
    {
    }
    const std::string& message() const { return m_message; }
    const char* what() const noexcept override { return m_message.c_str(); }

private:
    std::string m_message;
};

} // namespace vesko

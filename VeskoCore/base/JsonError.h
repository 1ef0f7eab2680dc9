#pragma once

#include <exception>

namespace vesko {

// A text is no JSON or not the JSON that was asked for, or a record holds what JSON can't. It says
// no more than a fixed text, since the words of a document are the user's.
class JsonError : public std::exception {
public:
    explicit JsonError(const char* message = "JsonError")
        : m_message(message)
    {
    }
    const char* what() const noexcept override { return m_message; }

private:
    const char* m_message;
};

} // namespace vesko

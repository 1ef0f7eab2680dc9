#pragma once

#include <exception>

namespace vesko {

// A text is no JSON or not the JSON that was asked for, or a record holds what JSON can't. It says
// no more, since the words of a document are the user's.
class JsonError : public std::exception {
public:
    const char* what() const noexcept override { return "JsonError"; }
};

} // namespace vesko

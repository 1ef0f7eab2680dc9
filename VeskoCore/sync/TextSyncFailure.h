#pragma once

#include <exception>

namespace vesko {

// The failures of the text sync. They have no words for a user: nothing shows them yet.
class TextSyncFailure : public std::exception {
public:
    enum Kind {
        invalidRevision, // a revision or an argument breaks a rule
        tooLarge, // a limit of count or size is passed
        incompleteHistory, // a local change was asked for while parents are missing
        unsupportedSchema, // a stored schema isn't 1
    };

    TextSyncFailure(Kind kind)
        : m_kind(kind)
    {
    }

    Kind kind() const { return m_kind; }
    const char* what() const noexcept override { return "TextSyncFailure"; }

    friend bool operator==(const TextSyncFailure& a, const TextSyncFailure& b)
    {
        return a.m_kind == b.m_kind;
    }

private:
    Kind m_kind;
};

} // namespace vesko

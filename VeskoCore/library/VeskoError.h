#pragma once

#include <exception>
#include <string>

namespace vesko {

// The core's failures. Two of them are equal when kind and status are. The description is a key
// for the catalogues; it says what was kept and never holds words of the system.
class VeskoError : public std::exception {
public:
    enum Kind {
        invalidProject,
        duplicateProject,
        invalidDictionary,
        duplicateDictionary,
        notFound,
        unsafePath,
        unsupportedSchema,
        corruptLibrary,
        libraryTooLarge,
        libraryBusy,
        emptyTranscript,
        noSpeech, // nobody spoke, so no back end was asked
        missingKey,
        cloudConsentRequired,
        invalidModel,
        audioTooLarge,
        invalidResponse,
        storage,
        httpStatus, // made by http()
    };

    VeskoError(Kind kind)
        : m_kind(kind)
    {
    }
    static VeskoError http(int status);

    Kind kind() const { return m_kind; }
    // The HTTP status of an httpStatus failure, else 0.
    int status() const { return m_status; }
    const char* errorDescription() const;
    const char* what() const noexcept override { return errorDescription(); }

    friend bool operator==(const VeskoError& a, const VeskoError& b)
    {
        return a.m_kind == b.m_kind && a.m_status == b.m_status;
    }

private:
    Kind m_kind;
    int m_status = 0;
};

} // namespace vesko

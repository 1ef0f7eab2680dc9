#pragma once

#include "VeskoCore/speech/ModelList.h"

#include <exception>
#include <filesystem>
#include <functional>
#include <stop_token>
#include <string>

namespace vesko {

// A model could not be had. What has come stays for the next time, unless it is wrong.
class ModelFailure : public std::exception {
public:
    enum Kind {
        unreachable, // no connection, or it broke off
        refused, // the server answered with something else
        noRoom,
        storage,
        wrongSum, // what came is not that model; it is gone
        stopped,
    };
    explicit ModelFailure(Kind kind)
        : m_kind(kind)
    {
    }
    Kind kind() const { return m_kind; }
    // A key for the catalogues.
    const char* errorDescription() const;
    const char* what() const noexcept override { return errorDescription(); }

private:
    Kind m_kind;
};

// Loads the model's file from the folder of an address, which ends in "/", into a folder that is
// made if need be; gives its place. What a former attempt left there is gone on with. Redirects are
// followed, to https only where the address is. Blocks; a stop request ends it within moments.
// `progress` is told the bytes that are there. Throws ModelFailure.
std::filesystem::path downloadModel(const PublishedModel& model, const std::string& address,
    const std::filesystem::path& folder, const std::function<void(std::uintmax_t)>& progress,
    const std::stop_token& stop);

} // namespace vesko

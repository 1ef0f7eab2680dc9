#include "VeskoApp/status/SafeMessage.h"
#include "VeskoApp/platform/SecretStore.h"
#include "VeskoApp/status/CaptureFailure.h"
#include "VeskoCore/library/VeskoError.h"
#include "VeskoCore/speech/HttpTransport.h"

#include <gtest/gtest.h>

#include <system_error>
#include <vector>

namespace vesko {

namespace {

TEST(SafeMessage, PutsEveryFailureIntoWordsOfOurOwn)
{
    constexpr const char* offline
        = "The network is unavailable. Your recording is saved. Reconnect and retry.";
    constexpr const char* unfinished
        = "The network request could not finish. Your recording is saved. Retry when ready.";
    constexpr const char* anything
        = "Vesko could not complete this operation. Your saved files were preserved. Check the "
          "data folder and try again.";
    const std::vector<std::pair<std::exception_ptr, std::string>> cases{
        { std::make_exception_ptr(VeskoError(VeskoError::libraryBusy)),
            "Vesko is already using this library. Open the running app instead." },
        { std::make_exception_ptr(VeskoError::http(402)),
            "OpenRouter needs more credit. Top up your account, then retry." },
        { std::make_exception_ptr(CaptureFailure("said as it is")), "said as it is" },
        { std::make_exception_ptr(KeychainFailure()),
            "Vesko could not access your key in Keychain. Unlock your Mac and try again." },
        { std::make_exception_ptr(KeychainFailure(KeychainFailure::absent)),
            "No password store (keyring) runs here, so Vesko has no place for keys. Start one, "
            "such as GNOME Keyring, KWallet or KeePassXC, and try again." },
        { std::make_exception_ptr(URLError(URLError::notConnectedToInternet)), offline },
        { std::make_exception_ptr(URLError(URLError::networkConnectionLost)), offline },
        { std::make_exception_ptr(URLError(URLError::cannotFindHost)), offline },
        { std::make_exception_ptr(URLError(URLError::cannotConnectToHost)), offline },
        { std::make_exception_ptr(URLError(URLError::timedOut)),
            "The provider timed out. Your recording is saved. A retry may incur another provider "
            "charge." },
        { std::make_exception_ptr(URLError(URLError::cancelled)), unfinished },
        { std::make_exception_ptr(URLError(URLError::other)), unfinished },
        { std::make_exception_ptr(std::system_error(
              std::make_error_code(std::errc::no_space_on_device), "/home/someone/secret")),
            anything },
        { std::make_exception_ptr(std::runtime_error("sk-secret")), anything },
        { std::make_exception_ptr(42), anything },
    };
    for (const auto& [failure, text] : cases)
        EXPECT_EQ(safeMessage(failure), text);
}

} // namespace

} // namespace vesko

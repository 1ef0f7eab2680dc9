#include "VeskoCore/library/VeskoError.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

TEST(VeskoError, SaysWhatWasKept)
{
    const std::pair<VeskoError::Kind, std::string> table[] = {
        { VeskoError::invalidProject, "Enter a project name between 1 and 80 characters." },
        { VeskoError::duplicateProject, "A project with this name already exists." },
        { VeskoError::invalidDictionary,
            "Enter two different terms between 1 and 80 characters. The dictionary holds up to "
            "1,000 terms." },
        { VeskoError::duplicateDictionary,
            "This recognized term is already in your dictionary. Edit its existing entry." },
        { VeskoError::notFound, "This item is no longer available." },
        { VeskoError::unsafePath, "The recording path is invalid. The library was preserved." },
        { VeskoError::unsupportedSchema,
            "This library was made by a newer Vesko. Update the app before opening it." },
        { VeskoError::corruptLibrary,
            "The library could not be read. Your files were preserved. Open the data folder to "
            "recover its backup." },
        { VeskoError::libraryTooLarge,
            "The library is too large. Vesko can open up to 1 GB. Your files were preserved." },
        { VeskoError::libraryBusy,
            "Vesko is already using this library. Open the running app instead." },
        { VeskoError::noSpeech, "No speech was heard. The recording is saved." },
        { VeskoError::emptyTranscript,
            "No speech was returned. Your audio is saved. You can retry with another model." },
        { VeskoError::missingKey, "Add your OpenRouter key in Settings. Your audio stays saved." },
        { VeskoError::cloudConsentRequired,
            "Allow OpenRouter processing in Settings, or choose Apple on-device speech. Your "
            "original stays saved." },
        { VeskoError::invalidModel, "Choose a model in Settings." },
        { VeskoError::audioTooLarge,
            "This audio is too large for one request. The original is saved. Use a shorter "
            "recording." },
        { VeskoError::invalidResponse,
            "The provider returned an unreadable result. Your audio is saved." },
        { VeskoError::storage,
            "Vesko could not save this change. Check free disk space and access to the data "
            "folder." },
    };
    for (const auto& [kind, expected] : table) {
        EXPECT_EQ(VeskoError(kind).errorDescription(), expected);
        EXPECT_EQ(VeskoError(kind).what(), expected);
    }
}

TEST(VeskoError, DescribesAnHttpFailureByItsStatus)
{
    const std::string rejected = "OpenRouter rejected this key. Check it in Settings.";
    const std::string credit = "OpenRouter needs more credit. Top up your account, then retry.";
    const std::string busy = "The provider is busy or its limit was reached. Try again later.";
    const std::string other = "The provider could not complete this request. Your audio is saved. "
                              "Try again later.";
    const std::pair<int, std::string> table[] = { { 401, rejected }, { 403, rejected },
        { 402, credit }, { 429, busy }, { 404, other }, { 500, other }, { 0, other } };
    for (const auto& [status, expected] : table)
        EXPECT_EQ(VeskoError::http(status).errorDescription(), expected) << status;
}

TEST(VeskoError, ComparesByKindAndStatus)
{
    EXPECT_EQ(VeskoError(VeskoError::storage), VeskoError(VeskoError::storage));
    EXPECT_FALSE(VeskoError(VeskoError::storage) == VeskoError(VeskoError::notFound));
    EXPECT_EQ(VeskoError::http(404), VeskoError::http(404));
    EXPECT_FALSE(VeskoError::http(404) == VeskoError::http(500));
}

} // namespace
} // namespace vesko

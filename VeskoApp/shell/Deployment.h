#pragma once

#include "VeskoApp/account/AccountDeployment.h"
#include "VeskoApp/analytics/AnalyticsBundle.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vesko {

// What a build was made for: the values of Info.json.
struct Deployment {
    std::string version; // CFBundleShortVersionString, "0.0.0" if it is no text
    std::string openRouterBaseURL; // VeskoOpenRouterBaseURL: https, or a service on this machine
    // VeskoAnalyticsAppKey, VeskoAnalyticsBaseURL, VeskoAnalyticsEnvironment ("production" or, with
    // any other value, the sandbox), CFBundleVersion. What is missing, or is not of its kind, is
    // as if there were no such service.
    AnalyticsBundle analytics;
    // VeskoAuthBaseURL, VeskoGoogleClientID, VeskoAccountRequired; what is missing there, or is not
    // of its kind, is off. VeskoGoogleAuthURL and VeskoGoogleTokenURL name another Google, as
    // tests need one.
    AccountDeployment account;

    // VeskoSpeechModelsURL: the folder that the files of SpeechModels.json stand in, with "/" at
    // its end; empty if it is missing, or no address.
    std::string speechModelsURL;

    // Reads Info.json from the first of the folders that has one. Throws std::runtime_error with
    // words for a developer when none has, or it is damaged or incomplete: the program was
    // installed wrongly.
    static Deployment read(const std::vector<std::filesystem::path>& folders);
};

} // namespace vesko

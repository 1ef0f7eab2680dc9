#include "VeskoApp/shell/Deployment.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <arpa/inet.h>
#include <cstdint>
#include <stdexcept>

namespace vesko {

namespace {

constexpr qint64 sizeLimit = 64 * 1024; // bytes

std::optional<std::string> textIfThere(const QJsonObject& values, const char* key)
{
    const QJsonValue value = values[QLatin1StringView(key)];
    return value.isString() ? std::optional(value.toString().toStdString()) : std::nullopt;
}

bool isWebAddress(const QUrl& url)
{
    const bool web
        = url.scheme() == QLatin1StringView("https") || url.scheme() == QLatin1StringView("http");
    return url.isValid() && web && !url.host().isEmpty();
}

std::optional<std::string> addressIfThere(const QJsonObject& values, const char* key)
{
    const QString address = values[QLatin1StringView(key)].toString();
    return isWebAddress(QUrl(address, QUrl::StrictMode)) ? std::optional(address.toStdString())
                                                         : std::nullopt;
}

bool isThisMachine(const QUrl& url)
{
    constexpr std::uint32_t ownNetwork = 127;
    const auto host = url.host().toStdString();
    in_addr number{};
    if (inet_pton(AF_INET, host.c_str(), &number) == 1)
        return ntohl(number.s_addr) >> 24 == ownNetwork;
    return host == "localhost" || host == "::1";
}

// An address that can't be one would only show at the first dictation, and the user's key goes
// there: unencrypted it must not leave the machine.
std::string speechService(const QJsonObject& values)
{
    constexpr auto key = "VeskoOpenRouterBaseURL";
    const auto address = addressIfThere(values, key);
    if (!address)
        throw std::runtime_error(std::string("Info.json holds no web address in ") + key);
    const QUrl url(QString::fromStdString(*address));
    if (url.scheme() != QLatin1StringView("https") && !isThisMachine(url))
        throw std::runtime_error(std::string("Info.json holds an unencrypted address in ") + key);
    return *address;
}

AnalyticsBundle analytics(const QJsonObject& values)
{
    AnalyticsBundle bundle;
    bundle.appKey = textIfThere(values, "VeskoAnalyticsAppKey");
    bundle.baseURL = addressIfThere(values, "VeskoAnalyticsBaseURL").value_or(bundle.baseURL);
    if (textIfThere(values, "VeskoAnalyticsEnvironment") == "production")
        bundle.environment = AnalyticsEnvironment::production;
    bundle.version = textIfThere(values, "CFBundleShortVersionString").value_or(bundle.version);
    bundle.build = textIfThere(values, "CFBundleVersion").value_or(bundle.build);
    return bundle;
}

AccountDeployment accountOf(const QJsonObject& values)
{
    AccountDeployment account;
    account.baseURL = addressIfThere(values, "VeskoAuthBaseURL");
    const auto clientID = values[QLatin1StringView("VeskoGoogleClientID")].toString().toStdString();
    if (isGoogleClientID(clientID))
        account.googleClientID = clientID;
    account.required = values[QLatin1StringView("VeskoAccountRequired")].toBool();
    GoogleEndpoints& google = account.google;
    google.authorization
        = addressIfThere(values, "VeskoGoogleAuthURL").value_or(google.authorization);
    google.token = addressIfThere(values, "VeskoGoogleTokenURL").value_or(google.token);
    return account;
}

} // namespace

Deployment Deployment::read(const std::vector<std::filesystem::path>& folders)
{
    for (const auto& folder : folders) {
        QFile file(folder / "Info.json");
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const auto document = QJsonDocument::fromJson(file.read(sizeLimit));
        if (!document.isObject())
            throw std::runtime_error("Info.json is damaged");
        const QJsonObject values = document.object();
        const auto usage = vesko::analytics(values);
        return {
            .version = usage.version,
            .openRouterBaseURL = speechService(values),
            .analytics = usage,
            .account = accountOf(values),
            .speechModelsURL = addressIfThere(values, "VeskoSpeechModelsURL").value_or(""),
        };
    }
    throw std::runtime_error("Info.json is missing");
}

} // namespace vesko

#include "VeskoApp/shell/Deployment.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <stdexcept>

namespace vesko {

namespace {

constexpr qint64 sizeLimit = 64 * 1024; // bytes

std::string text(const QJsonObject& values, const char* key)
{
    const QJsonValue value = values[QLatin1StringView(key)];
    if (!value.isString() || value.toString().isEmpty())
        throw std::runtime_error(std::string("Info.json lacks the text ") + key);
    return value.toString().toStdString();
}

bool isWebAddress(const QString& text)
{
    const QUrl url(text, QUrl::StrictMode);
    const bool web
        = url.scheme() == QLatin1StringView("https") || url.scheme() == QLatin1StringView("http");
    return url.isValid() && web && !url.host().isEmpty();
}

// An address that can't be one would only show at the first dictation.
std::string webAddress(const QJsonObject& values, const char* key)
{
    const auto address = text(values, key);
    if (!isWebAddress(QString::fromStdString(address)))
        throw std::runtime_error(std::string("Info.json holds no web address in ") + key);
    return address;
}

std::optional<std::string> textIfThere(const QJsonObject& values, const char* key)
{
    const QJsonValue value = values[QLatin1StringView(key)];
    return value.isString() ? std::optional(value.toString().toStdString()) : std::nullopt;
}

AnalyticsBundle analytics(const QJsonObject& values)
{
    AnalyticsBundle bundle;
    bundle.appKey = textIfThere(values, "VeskoAnalyticsAppKey");
    if (values.contains(QLatin1StringView("VeskoAnalyticsBaseURL")))
        bundle.baseURL = webAddress(values, "VeskoAnalyticsBaseURL");
    if (textIfThere(values, "VeskoAnalyticsEnvironment") == "production")
        bundle.environment = AnalyticsEnvironment::production;
    bundle.version = text(values, "CFBundleShortVersionString");
    bundle.build = textIfThere(values, "CFBundleVersion").value_or(bundle.build);
    return bundle;
}

std::optional<std::string> optionalAddress(const QJsonObject& values, const char* key)
{
    const QString address = values[QLatin1StringView(key)].toString();
    return isWebAddress(address) ? std::optional(address.toStdString()) : std::nullopt;
}

AccountDeployment accountOf(const QJsonObject& values)
{
    AccountDeployment account;
    account.baseURL = optionalAddress(values, "VeskoAuthBaseURL");
    const auto clientID = values[QLatin1StringView("VeskoGoogleClientID")].toString().toStdString();
    if (isGoogleClientID(clientID))
        account.googleClientID = clientID;
    account.required = values[QLatin1StringView("VeskoAccountRequired")].toBool();
    GoogleEndpoints& google = account.google;
    google.authorization
        = optionalAddress(values, "VeskoGoogleAuthURL").value_or(google.authorization);
    google.token = optionalAddress(values, "VeskoGoogleTokenURL").value_or(google.token);
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
        return {
            .version = text(values, "CFBundleShortVersionString"),
            .openRouterBaseURL = webAddress(values, "VeskoOpenRouterBaseURL"),
            .analytics = vesko::analytics(values),
            .account = accountOf(values),
        };
    }
    throw std::runtime_error("Info.json is missing");
}

} // namespace vesko

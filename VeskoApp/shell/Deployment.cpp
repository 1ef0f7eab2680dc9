#include "VeskoApp/shell/Deployment.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

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
            .openRouterBaseURL = text(values, "VeskoOpenRouterBaseURL"),
        };
    }
    throw std::runtime_error("Info.json is missing");
}

} // namespace vesko

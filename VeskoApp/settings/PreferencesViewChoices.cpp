// What the settings form offers to choose from.

#include "VeskoApp/settings/GestureKeyNames.h"
#include "VeskoApp/settings/PreferencesView.h"
#include "VeskoApp/wording/InterfaceLanguage.h"
#include "VeskoApp/wording/SessionWords.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/speech/OpenRouterClient.h"
#include "VeskoCore/speech/SpokenLanguage.h"

#include <QCollator>

#include <algorithm>
#include <array>

namespace vesko {

namespace {

QVariantMap choice(const std::string& tag, const QString& name)
{
    return { { QStringLiteral("tag"), QString::fromStdString(tag) },
        { QStringLiteral("name"), name } };
}

// In the order of their names, behind a first row that stands for none of them.
QVariantList languageChoices(
    QVariantMap first, const std::string& current, const std::vector<std::string>& preferred)
{
    const auto none = first[QStringLiteral("tag")].toString().toStdString();
    auto tags = SpokenLanguage::offered();
    if (current != none && std::ranges::find(tags, current) == tags.end())
        tags.push_back(current);
    std::vector<std::pair<QString, std::string>> named;
    named.reserve(tags.size());
    for (const auto& tag : tags)
        named.emplace_back(shownLanguage(tag, preferred), tag);
    std::ranges::sort(named,
        [order = QCollator(QLocale(QString::fromStdString(interfaceLanguage(preferred))))](
            const auto& a, const auto& b) { return order.compare(a.first, b.first) < 0; });
    QVariantList rows{ first };
    for (const auto& [name, tag] : named)
        rows << choice(tag, name);
    return rows;
}

} // namespace

QVariantList PreferencesView::providers() const
{
    return { choice("apple", translated(L10N_KEY("Vesko", "Apple on-device"))),
        choice("openrouter", translated(L10N_KEY("Vesko", "OpenRouter"))) };
}

QVariantList PreferencesView::keySources() const
{
    QVariantList rows{ choice("personal", translated(L10N_KEY("Vesko", "My personal key"))) };
    if (hasVeskoAccess())
        rows.prepend(choice("vesko", translated(L10N_KEY("Vesko", "Vesko access"))));
    return rows;
}

QVariantList PreferencesView::languages() const
{
    return languageChoices(choice("auto", translated(L10N_KEY("Vesko", "Automatic"))),
        m_to.preferences.language.get(), m_to.platform.preferredLanguages);
}

QVariantList PreferencesView::translations() const
{
    return languageChoices(choice("off", translated(L10N_KEY("Vesko", "Off"))),
        m_to.preferences.translateTo.get(), m_to.platform.preferredLanguages);
}

QVariantList PreferencesView::speechModels() const
{
    const auto& models = m_to.catalog.sttModels();
    QVariantList rows;
    for (const auto& model : models)
        rows << choice(model.id, QString::fromStdString(model.name));
    const auto& current = m_to.preferences.sttModel.get();
    if (!models.empty() && std::ranges::find(models, current, &ProviderModel::id) == models.end())
        rows.prepend(choice(current, QString::fromStdString(current)));
    return rows;
}

QVariantList PreferencesView::suggestedTextModels() const
{
    QVariantList ids;
    for (const auto* id :
        { OpenRouterClient::defaultCleanupModel.data(), "anthropic/claude-haiku-5.5",
            "google/gemini-3.8-flash", "qwen/qwen3.8-flash", "deepseek/deepseek-v4.1-flash" })
        ids << QString::fromUtf8(id);
    return ids;
}

QString PreferencesView::shortcutAdvice() const
{
    return vesko::shortcutAdvice(m_to.platform.offer);
}

QString PreferencesView::shortcutLines() const
{
    return QString::fromStdString(m_to.platform.offer.shortcutLines);
}

QString PreferencesView::learningAdvice() const
{
    return vesko::learningAdvice(m_to.platform.offer);
}

QString PreferencesView::pasteAdvice() const
{
    return vesko::pasteAdvice(m_to.platform.offer);
}

QString PreferencesView::gestureAdvice() const
{
    const auto& offer = m_to.platform.offer;
    return offer.hasGesture() ? QString() : keysAdvice(offer);
}

QVariantList PreferencesView::gestureKeys() const
{
    QVariantList rows;
    // Else it is the desktop's configuration that names the key.
    if (!m_to.platform.offer.allKeys)
        return rows;
    for (const auto key : { GestureKey::fn, GestureKey::rightControl, GestureKey::rightAlt,
             GestureKey::menu, GestureKey::pause, GestureKey::scrollLock })
        if (key != GestureKey::fn || m_to.platform.keys.reportsFn())
            rows << choice(Preferences::nameOf(key), shownName(key));
    return rows;
}

QString PreferencesView::gestureKey() const
{
    return QString::fromStdString(
        Preferences::nameOf(m_to.preferences.gestureKey(m_to.platform.keys.reportsFn())));
}

} // namespace vesko

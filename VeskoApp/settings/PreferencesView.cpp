#include "VeskoApp/settings/PreferencesView.h"

#include "VeskoApp/wording/InterfaceLanguage.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <QPointer>

#include <system_error>

namespace vesko {

namespace {

constexpr double noticeIsShown = 10; // seconds

} // namespace

PreferencesView::PreferencesView(const Neighbours& neighbours)
    : m_to(neighbours)
    , m_account(neighbours.accounts)
    , m_signIn(neighbours.accounts)
    , m_keyForm(neighbours.preferences, neighbours.status,
          [this](const QString& notice) { setNotice(notice); })
    , m_noticeEnd(neighbours.platform.clock)
{
    connect(&m_to.preferences, &Preferences::changed, this, &PreferencesView::changed);
    connect(&m_to.analytics, &Analytics::enabledChanged, this, &PreferencesView::changed);
    for (const auto happens : { &ModelCatalog::changed, &ModelCatalog::loadingChanged })
        connect(&m_to.catalog, happens, this, &PreferencesView::changed);
}

void PreferencesView::opened()
{
    m_to.preferences.refresh();
    m_to.permissions.revise();
}

QString PreferencesView::languageHint() const
{
    if (m_to.preferences.language.get() == "auto")
        return translated(L10N_KEY("Vesko",
            "Automatic lets the speech model guess, and a short phrase can come back in the wrong "
            "language. After your next dictation Vesko asks which language you speak and remembers "
            "it."));
    return translated(L10N_KEY("Vesko",
                          "Vesko tells the speech model you speak %1. Choose Automatic if you "
                          "switch between languages."))
        .arg(shownLanguage(m_to.preferences.language.get(), m_to.platform.preferredLanguages));
}

QString PreferencesView::catalogTitle() const
{
    return m_to.catalog.loading() ? translated(L10N_KEY("Vesko", "Loading models…"))
                                  : translated(L10N_KEY("Vesko", "Refresh model catalog"));
}

QString PreferencesView::analyticsNote() const
{
    if (!analyticsConfigured())
        return translated(
            L10N_KEY("Vesko", "Analytics is not configured in this build. No events are sent."));
    return translated(
        L10N_KEY("Vesko",
            "Optional usage events go to %1. They include a random analytics identifier and app "
            "version, never your audio, notes, project names, filenames, receipts or keys. Turning "
            "this off clears unsent events and removes the local identifier. It does not erase "
            "events already sent."))
        .arg(m_to.analytics.host());
}

void PreferencesView::openCredits()
{
    m_to.platform.browser.open("https://openrouter.ai/settings/credits");
}

void PreferencesView::pressPermission(int row)
{
    m_to.permissions.press(row, [self = QPointer(this)](const QString& notice) {
        if (self)
            self->setNotice(notice);
    });
}

void PreferencesView::openPrivacySettings()
{
    openSettings(SettingsPanel::privacy);
}

void PreferencesView::openSettings(SettingsPanel panel)
{
    if (!m_to.platform.desktop.openSettings(panel))
        setNotice(translated(L10N_KEY("Vesko",
            "Vesko found no program for your desktop's settings. Please open them yourself.")));
}

void PreferencesView::setLaunchAtLogin(bool on)
{
    try {
        m_to.preferences.setLogin(on);
    } catch (const std::system_error&) {
        m_to.status.setErrorMessage(L10N_KEY("Vesko",
            "Launch at login could not be changed. Check Login Items in System Settings."));
    }
}

void PreferencesView::openLoginItems()
{
    openSettings(SettingsPanel::startup);
}

void PreferencesView::openDataFolder()
{
    m_to.platform.desktop.openFolder(m_to.platform.dataFolder);
}

void PreferencesView::setNotice(const QString& notice)
{
    m_notice = notice;
    m_noticeEnd.start(noticeIsShown, [this] { setNotice({}); });
    if (notice.isEmpty())
        m_noticeEnd.cancel();
    Q_EMIT noticeChanged();
}

} // namespace vesko

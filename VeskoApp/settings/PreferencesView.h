#pragma once

#include "VeskoApp/account/AccountSection.h"
#include "VeskoApp/account/SignInChoices.h"
#include "VeskoApp/analytics/Analytics.h"
#include "VeskoApp/capture/CaptureCues.h"
#include "VeskoApp/onboarding/PermissionRows.h"
#include "VeskoApp/preferences/Preferences.h"
#include "VeskoApp/settings/KeyForm.h"
#include "VeskoApp/status/StatusLine.h"
#include "VeskoApp/transcription/ModelCatalog.h"

#include <QObject>
#include <QVariant>

namespace vesko {

// What the settings form shows and does, over the user's settings. Choices are rows with "tag" and
// "name", and a tag that is in force without being among those offered has a row of its own. Main
// thread; what it is given must outlive it.
class PreferencesView : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString provider READ provider WRITE setProvider NOTIFY changed)
    Q_PROPERTY(QString keySource READ keySource WRITE setKeySource NOTIFY changed)
    Q_PROPERTY(QString sttModel READ sttModel WRITE setSTTModel NOTIFY changed)
    Q_PROPERTY(QString cleanupModel READ cleanupModel WRITE setCleanupModel NOTIFY changed)
    Q_PROPERTY(QString language READ language WRITE setLanguage NOTIFY changed)
    Q_PROPERTY(QString translateTo READ translateTo WRITE setTranslateTo NOTIFY changed)
    Q_PROPERTY(QString gestureKey READ gestureKey WRITE setGestureKey NOTIFY changed)
    Q_PROPERTY(bool cleanupEnabled READ cleanupEnabled WRITE setCleanupEnabled NOTIFY changed)
    Q_PROPERTY(bool fnEnabled READ fnEnabled WRITE setFnEnabled NOTIFY changed)
    Q_PROPERTY(bool showFloating READ showFloating WRITE setShowFloating NOTIFY changed)
    Q_PROPERTY(bool soundsEnabled READ soundsEnabled WRITE setSoundsEnabled NOTIFY changed)
    Q_PROPERTY(bool pasteEnabled READ pasteEnabled WRITE setPasteEnabled NOTIFY changed)
    Q_PROPERTY(bool returnClipboard READ returnClipboard WRITE setReturnClipboard NOTIFY changed)
    Q_PROPERTY(
        bool dictionaryEnabled READ dictionaryEnabled WRITE setDictionaryEnabled NOTIFY changed)
    Q_PROPERTY(bool learnCorrections READ learnCorrections WRITE setLearnCorrections NOTIFY changed)

    Q_PROPERTY(QVariantList providers READ providers CONSTANT)
    Q_PROPERTY(QVariantList keySources READ keySources NOTIFY changed)
    Q_PROPERTY(QVariantList languages READ languages NOTIFY changed)
    Q_PROPERTY(QVariantList translations READ translations NOTIFY changed)
    Q_PROPERTY(QVariantList speechModels READ speechModels NOTIFY changed) // none until loaded
    Q_PROPERTY(QVariantList suggestedTextModels READ suggestedTextModels CONSTANT)
    // What this session does not offer, and how to do without it; empty if it offers all.
    Q_PROPERTY(QString shortcutAdvice READ shortcutAdvice CONSTANT)
    Q_PROPERTY(QString shortcutLines READ shortcutLines CONSTANT)
    Q_PROPERTY(QString learningAdvice READ learningAdvice CONSTANT)
    Q_PROPERTY(QString pasteAdvice READ pasteAdvice CONSTANT)
    Q_PROPERTY(QString gestureAdvice READ gestureAdvice CONSTANT)
    Q_PROPERTY(QVariantList gestureKeys READ gestureKeys CONSTANT)

    Q_PROPERTY(bool onDevice READ onDevice NOTIFY changed)
    Q_PROPERTY(QString languageHint READ languageHint NOTIFY changed)
    Q_PROPERTY(bool usesPersonalKey READ usesPersonalKey NOTIFY changed)
    Q_PROPERTY(bool hasVeskoAccess READ hasVeskoAccess NOTIFY changed)
    Q_PROPERTY(bool translates READ translates NOTIFY changed)
    Q_PROPERTY(bool launchesAtLogin READ launchesAtLogin NOTIFY changed)
    Q_PROPERTY(bool needsLoginApproval READ needsLoginApproval NOTIFY changed)
    Q_PROPERTY(QString catalogTitle READ catalogTitle NOTIFY changed)
    Q_PROPERTY(QObject* keyForm READ keyForm CONSTANT)
    Q_PROPERTY(QObject* permissions READ permissions CONSTANT)
    Q_PROPERTY(QObject* account READ account CONSTANT)
    Q_PROPERTY(QObject* signIn READ signIn CONSTANT)
    Q_PROPERTY(bool analyticsEnabled READ analyticsEnabled WRITE setAnalyticsEnabled NOTIFY changed)
    Q_PROPERTY(bool analyticsConfigured READ analyticsConfigured CONSTANT)
    Q_PROPERTY(QString analyticsNote READ analyticsNote CONSTANT)
    Q_PROPERTY(QString notice READ notice NOTIFY noticeChanged) // empty for none

public:
    // What it shows and reaches; must outlive it.
    struct Neighbours {
        Platform& platform;
        Preferences& preferences;
        PermissionRows& permissions;
        AccountStore& accounts;
        Analytics& analytics;
        const ModelCatalog& catalog;
        CaptureCues& cues;
        StatusLine& status;
    };

    explicit PreferencesView(const Neighbours& neighbours);

    QString provider() const { return shown(m_to.preferences.provider); }
    void setProvider(const QString& tag) { set(m_to.preferences.provider, tag); }
    QString keySource() const { return shown(m_to.preferences.keySource); }
    void setKeySource(const QString& tag) { set(m_to.preferences.keySource, tag); }
    QString sttModel() const { return shown(m_to.preferences.sttModel); }
    void setSTTModel(const QString& id) { set(m_to.preferences.sttModel, id); }
    QString cleanupModel() const { return shown(m_to.preferences.cleanupModel); }
    void setCleanupModel(const QString& id) { set(m_to.preferences.cleanupModel, id); }
    QString language() const { return shown(m_to.preferences.language); }
    void setLanguage(const QString& tag) { set(m_to.preferences.language, tag); }
    QString translateTo() const { return shown(m_to.preferences.translateTo); }
    void setTranslateTo(const QString& tag) { set(m_to.preferences.translateTo, tag); }
    QString gestureKey() const;
    void setGestureKey(const QString& tag) { set(m_to.preferences.gestureKeyName, tag); }
    bool cleanupEnabled() const { return m_to.preferences.cleanupEnabled.get(); }
    void setCleanupEnabled(bool on) { m_to.preferences.cleanupEnabled.set(on); }
    bool fnEnabled() const { return m_to.preferences.fnEnabled.get(); }
    void setFnEnabled(bool on) { m_to.preferences.fnEnabled.set(on); }
    bool showFloating() const { return m_to.preferences.showFloating.get(); }
    void setShowFloating(bool on) { m_to.preferences.showFloating.set(on); }
    bool soundsEnabled() const { return m_to.preferences.soundsEnabled.get(); }
    void setSoundsEnabled(bool on) { m_to.preferences.soundsEnabled.set(on); }
    bool pasteEnabled() const { return m_to.preferences.pasteEnabled.get(); }
    void setPasteEnabled(bool on) { m_to.preferences.pasteEnabled.set(on); }
    bool returnClipboard() const { return m_to.preferences.returnClipboard.get(); }
    void setReturnClipboard(bool on) { m_to.preferences.returnClipboard.set(on); }
    bool dictionaryEnabled() const { return m_to.preferences.dictionaryEnabled.get(); }
    void setDictionaryEnabled(bool on) { m_to.preferences.dictionaryEnabled.set(on); }
    bool learnCorrections() const { return m_to.preferences.learnCorrections.get(); }
    void setLearnCorrections(bool on) { m_to.preferences.learnCorrections.set(on); }

    // PreferencesViewChoices.cpp
    QVariantList providers() const;
    QVariantList keySources() const;
    QVariantList languages() const;
    QVariantList translations() const;
    QVariantList speechModels() const;
    QVariantList suggestedTextModels() const;
    QString shortcutAdvice() const;
    QString shortcutLines() const;
    QString learningAdvice() const;
    QString pasteAdvice() const;
    QString gestureAdvice() const;
    QVariantList gestureKeys() const;

    bool onDevice() const { return m_to.preferences.provider.get() == "apple"; }
    QString languageHint() const;
    // Also where the other choice has no key on this machine.
    bool usesPersonalKey() const
    {
        return !hasVeskoAccess() || m_to.preferences.keySource.get() != "vesko";
    }
    bool hasVeskoAccess() const { return m_to.preferences.hasVeskoAccess(); }
    bool translates() const { return m_to.preferences.translateTo.get() != "off"; }
    bool launchesAtLogin() const { return m_to.preferences.loginStatus() == LoginStatus::enabled; }
    bool needsLoginApproval() const
    {
        return m_to.preferences.loginStatus() == LoginStatus::requiresApproval;
    }
    QString catalogTitle() const;
    QObject* keyForm() { return &m_keyForm; }
    QObject* permissions() { return &m_to.permissions; }
    QObject* account() { return &m_account; }
    QObject* signIn() { return &m_signIn; }
    bool analyticsEnabled() const { return m_to.analytics.enabled(); }
    void setAnalyticsEnabled(bool on) { m_to.analytics.setEnabled(on); }
    // Whether this build has a service to send to.
    bool analyticsConfigured() const { return m_to.analytics.configured(); }
    QString analyticsNote() const;
    const QString& notice() const { return m_notice; }

    // The form is shown: what others may have changed is read again.
    Q_INVOKABLE void opened();
    // The page of OpenRouter on which the user pays.
    Q_INVOKABLE void openCredits();
    Q_INVOKABLE void previewStartSound() { m_to.cues.play(CaptureCues::Cue::start); }
    Q_INVOKABLE void previewStopSound() { m_to.cues.play(CaptureCues::Cue::stop); }
    Q_INVOKABLE void pressPermission(int row);
    Q_INVOKABLE void openPrivacySettings();
    Q_INVOKABLE void setLaunchAtLogin(bool on);
    Q_INVOKABLE void openLoginItems();
    Q_INVOKABLE void openDataFolder();
    // The user has read the notice.
    Q_INVOKABLE void dismissNotice() { setNotice({}); }

Q_SIGNALS:
    void changed();
    void noticeChanged();

private:
    static QString shown(const Preferences::Setting<std::string>& setting)
    {
        return QString::fromStdString(setting.get());
    }
    static void set(Preferences::Setting<std::string>& setting, const QString& value)
    {
        setting.set(value.toStdString());
    }
    void setNotice(const QString& notice);
    void openSettings(SettingsPanel panel);

    Neighbours m_to;
    AccountSection m_account;
    SignInChoices m_signIn;
    KeyForm m_keyForm;
    QString m_notice;
    Timer m_noticeEnd;
};

} // namespace vesko

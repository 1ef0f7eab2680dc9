#pragma once

#include "VeskoApp/account/AccountSection.h"
#include "VeskoApp/account/SignInChoices.h"
#include "VeskoApp/capture/AppModel.h"
#include "VeskoApp/onboarding/PermissionRows.h"

#include <QObject>
#include <QVariant>

namespace vesko {

// What the settings form shows and does, over the user's settings and the controller. Choices are
// rows with "tag" and "name", and a tag that is in force without being among those offered has a
// row of its own. The key that the user types is held here only until it is saved. Main thread;
// what it is given must outlive it.
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
    Q_PROPERTY(
        bool dictionaryEnabled READ dictionaryEnabled WRITE setDictionaryEnabled NOTIFY changed)
    Q_PROPERTY(bool learnCorrections READ learnCorrections WRITE setLearnCorrections NOTIFY changed)

    Q_PROPERTY(QVariantList providers READ providers CONSTANT)
    Q_PROPERTY(QVariantList keySources READ keySources CONSTANT)
    Q_PROPERTY(QVariantList languages READ languages NOTIFY changed)
    Q_PROPERTY(QVariantList translations READ translations NOTIFY changed)
    Q_PROPERTY(QVariantList speechModels READ speechModels NOTIFY changed) // none until loaded
    Q_PROPERTY(QVariantList suggestedTextModels READ suggestedTextModels CONSTANT)
    // What this session does not offer, and how to do without it; empty if it offers all.
    Q_PROPERTY(QString shortcutAdvice READ shortcutAdvice CONSTANT)
    Q_PROPERTY(QString shortcutLines READ shortcutLines CONSTANT)
    Q_PROPERTY(QString learningAdvice READ learningAdvice CONSTANT)
    Q_PROPERTY(QString pasteAdvice READ pasteAdvice CONSTANT)
    Q_PROPERTY(QVariantList gestureKeys READ gestureKeys CONSTANT)

    Q_PROPERTY(bool onDevice READ onDevice NOTIFY changed)
    Q_PROPERTY(QString languageHint READ languageHint NOTIFY changed)
    Q_PROPERTY(bool usesPersonalKey READ usesPersonalKey NOTIFY changed)
    Q_PROPERTY(bool hasKey READ hasKey NOTIFY changed)
    Q_PROPERTY(bool hasVeskoAccess READ hasVeskoAccess NOTIFY changed)
    Q_PROPERTY(QString keyStatus READ keyStatus NOTIFY changed)
    Q_PROPERTY(QString keyPrompt READ keyPrompt NOTIFY changed)
    Q_PROPERTY(QString keyDraft MEMBER m_keyDraft NOTIFY keyDraftChanged)
    Q_PROPERTY(bool translates READ translates NOTIFY changed)
    Q_PROPERTY(bool launchesAtLogin READ launchesAtLogin NOTIFY changed)
    Q_PROPERTY(bool needsLoginApproval READ needsLoginApproval NOTIFY changed)
    Q_PROPERTY(QString catalogTitle READ catalogTitle NOTIFY changed)
    Q_PROPERTY(QObject* permissions READ permissions CONSTANT)
    Q_PROPERTY(QObject* account READ account CONSTANT)
    Q_PROPERTY(QObject* signIn READ signIn CONSTANT)
    Q_PROPERTY(bool analyticsEnabled READ analyticsEnabled WRITE setAnalyticsEnabled NOTIFY changed)
    Q_PROPERTY(bool analyticsConfigured READ analyticsConfigured CONSTANT)
    Q_PROPERTY(QString analyticsNote READ analyticsNote CONSTANT)
    Q_PROPERTY(QString notice READ notice NOTIFY noticeChanged) // empty for none

public:
    PreferencesView(AppModel& model, Platform& platform, PermissionRows& permissions);

    QString provider() const { return shown(m_preferences.provider); }
    void setProvider(const QString& tag) { set(m_preferences.provider, tag); }
    QString keySource() const { return shown(m_preferences.keySource); }
    void setKeySource(const QString& tag) { set(m_preferences.keySource, tag); }
    QString sttModel() const { return shown(m_preferences.sttModel); }
    void setSTTModel(const QString& id) { set(m_preferences.sttModel, id); }
    QString cleanupModel() const { return shown(m_preferences.cleanupModel); }
    void setCleanupModel(const QString& id) { set(m_preferences.cleanupModel, id); }
    QString language() const { return shown(m_preferences.language); }
    void setLanguage(const QString& tag) { set(m_preferences.language, tag); }
    QString translateTo() const { return shown(m_preferences.translateTo); }
    void setTranslateTo(const QString& tag) { set(m_preferences.translateTo, tag); }
    QString gestureKey() const;
    void setGestureKey(const QString& tag) { set(m_preferences.gestureKeyName, tag); }
    bool cleanupEnabled() const { return m_preferences.cleanupEnabled.get(); }
    void setCleanupEnabled(bool on) { m_preferences.cleanupEnabled.set(on); }
    bool fnEnabled() const { return m_preferences.fnEnabled.get(); }
    void setFnEnabled(bool on) { m_preferences.fnEnabled.set(on); }
    bool showFloating() const { return m_preferences.showFloating.get(); }
    void setShowFloating(bool on) { m_preferences.showFloating.set(on); }
    bool soundsEnabled() const { return m_preferences.soundsEnabled.get(); }
    void setSoundsEnabled(bool on) { m_preferences.soundsEnabled.set(on); }
    bool pasteEnabled() const { return m_preferences.pasteEnabled.get(); }
    void setPasteEnabled(bool on) { m_preferences.pasteEnabled.set(on); }
    bool dictionaryEnabled() const { return m_preferences.dictionaryEnabled.get(); }
    void setDictionaryEnabled(bool on) { m_preferences.dictionaryEnabled.set(on); }
    bool learnCorrections() const { return m_preferences.learnCorrections.get(); }
    void setLearnCorrections(bool on) { m_preferences.learnCorrections.set(on); }

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
    QVariantList gestureKeys() const;

    bool onDevice() const { return m_preferences.provider.get() == "apple"; }
    QString languageHint() const;
    bool usesPersonalKey() const { return m_preferences.keySource.get() != "vesko"; }
    bool hasKey() const { return m_preferences.hasKey(); }
    bool hasVeskoAccess() const { return m_preferences.hasVeskoAccess(); }
    QString keyStatus() const;
    QString keyPrompt() const;
    bool translates() const { return m_preferences.translateTo.get() != "off"; }
    bool launchesAtLogin() const { return m_preferences.loginStatus() == LoginStatus::enabled; }
    bool needsLoginApproval() const
    {
        return m_preferences.loginStatus() == LoginStatus::requiresApproval;
    }
    QString catalogTitle() const;
    QObject* permissions() { return &m_permissions; }
    QObject* account() { return &m_account; }
    QObject* signIn() { return &m_signIn; }
    bool analyticsEnabled() const { return m_model.analytics().enabled(); }
    void setAnalyticsEnabled(bool on) { m_model.analytics().setEnabled(on); }
    // Whether this build has a service to send to.
    bool analyticsConfigured() const { return m_model.analytics().configured(); }
    QString analyticsNote() const;
    const QString& notice() const { return m_notice; }

    // The form is shown: what others may have changed is read again.
    Q_INVOKABLE void opened();
    Q_INVOKABLE void saveKey();
    Q_INVOKABLE void removeKey();
    // The page of OpenRouter on which the user pays.
    Q_INVOKABLE void openCredits();
    Q_INVOKABLE void previewStartSound() { m_model.previewCue(CaptureCues::Cue::start); }
    Q_INVOKABLE void previewStopSound() { m_model.previewCue(CaptureCues::Cue::stop); }
    Q_INVOKABLE void pressPermission(int row);
    Q_INVOKABLE void openPrivacySettings();
    Q_INVOKABLE void setLaunchAtLogin(bool on);
    Q_INVOKABLE void openLoginItems();

Q_SIGNALS:
    void changed();
    void keyDraftChanged();
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
    void clearKeyDraft();
    Task<> save(std::string key);
    Task<> remove();

    AppModel& m_model;
    Preferences& m_preferences;
    Platform& m_platform;
    PermissionRows& m_permissions;
    AccountSection m_account;
    SignInChoices m_signIn;
    QString m_keyDraft;
    QString m_notice;
    TaskScope m_tasks;
};

} // namespace vesko

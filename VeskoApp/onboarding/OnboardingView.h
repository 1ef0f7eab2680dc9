#pragma once

#include "VeskoApp/onboarding/PermissionRows.h"
#include "VeskoCore/analytics/UsageEvent.h"
#include "VeskoCore/shell/OnboardingFlow.h"

#include <QObject>

#include <functional>
#include <optional>
#include <string>

namespace vesko {

// What the window of the first run shows and does: where the user is among the steps, and where
// the buttons lead. Main thread; what it is given must outlive it.
class OnboardingView : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString step READ step NOTIFY stepChanged)
    Q_PROPERTY(int place READ place NOTIFY stepChanged) // from 0
    Q_PROPERTY(int stepCount READ stepCount CONSTANT)
    Q_PROPERTY(QString placeText READ placeText NOTIFY stepChanged)
    Q_PROPERTY(bool canGoBack READ canGoBack NOTIFY stepChanged)
    Q_PROPERTY(bool offersNotNow READ offersNotNow NOTIFY stepChanged)
    Q_PROPERTY(QString defaultTitle READ defaultTitle NOTIFY stepChanged)
    Q_PROPERTY(bool defaultEnabled READ defaultEnabled NOTIFY stepChanged)
    Q_PROPERTY(bool signedIn READ signedIn NOTIFY stepChanged)
    Q_PROPERTY(QString accountName READ accountName NOTIFY stepChanged)
    Q_PROPERTY(QString gestureKey READ gestureKey CONSTANT) // the name on the key; empty for none
    Q_PROPERTY(QObject* permissions READ permissions CONSTANT)
    Q_PROPERTY(QString notice READ notice NOTIFY noticeChanged) // empty for none

public:
    // What is known of the account now; its email is absent where that is hidden.
    struct Account {
        std::function<OnboardingFlow()> flow;
        std::function<std::optional<std::string>()> email;
    };

    // `track` hears of what may be counted; `finish` ends the first run.
    OnboardingView(PermissionRows& permissions, QString gestureKey, Account account,
        std::function<void(UsageEvent)> track, std::function<void()> finish);

    QString step() const;
    int place() const;
    int stepCount() const { return static_cast<int>(m_flow().steps().size()); }
    QString placeText() const;
    bool canGoBack() const { return place() > 0; }
    bool offersNotNow() const;
    QString defaultTitle() const;
    bool defaultEnabled() const;
    bool signedIn() const { return m_flow().signedIn; }
    QString accountName() const;
    const QString& gestureKey() const { return m_gestureKey; }
    QObject* permissions() { return &m_permissions; }
    const QString& notice() const { return m_notice; }

    // To the next step, if the user may go there.
    void advance();
    // Ends the first run; while it can't end, it goes on at the account.
    Q_INVOKABLE void complete();
    Q_INVOKABLE void goBack();
    // What the default button does.
    Q_INVOKABLE void goOn();
    Q_INVOKABLE void pressPermission(int row);
    // Somebody has signed in or out.
    void accountChanged();

Q_SIGNALS:
    void stepChanged();
    void noticeChanged();

private:
    bool onLastStep() const;
    void setStep(OnboardingStep step);

    PermissionRows& m_permissions;
    QString m_gestureKey;
    std::function<OnboardingFlow()> m_flow;
    std::function<std::optional<std::string>()> m_email;
    std::function<void(UsageEvent)> m_track;
    std::function<void()> m_finish;
    OnboardingStep m_step = OnboardingStep::welcome;
    bool m_signedIn;
    QString m_notice;
};

} // namespace vesko

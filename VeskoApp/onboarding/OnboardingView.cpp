#include "VeskoApp/onboarding/OnboardingView.h"

#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace vesko {

OnboardingView::OnboardingView(PermissionRows& permissions, QString gestureKey, Account account,
    std::function<void(UsageEvent)> track, std::function<void()> finish)
    : m_permissions(permissions)
    , m_gestureKey(std::move(gestureKey))
    , m_flow(std::move(account.flow))
    , m_email(std::move(account.email))
    , m_track(std::move(track))
    , m_finish(std::move(finish))
    , m_signedIn(m_flow().signedIn)
{
    m_track(UsageEvent::onboardingStarted);
    permissions.revise();
}

QString OnboardingView::step() const
{
    return QString::fromUtf8(text(m_step).data(), qsizetype(text(m_step).size()));
}

int OnboardingView::place() const
{
    const auto steps = m_flow().steps();
    return static_cast<int>(std::ranges::find(steps, m_step) - steps.begin());
}

QString OnboardingView::placeText() const
{
    return translated(L10N_KEY("Vesko", "Step %1 of %2")).arg(place() + 1).arg(stepCount());
}

bool OnboardingView::onLastStep() const
{
    return place() + 1 == stepCount();
}

bool OnboardingView::offersNotNow() const
{
    const auto flow = m_flow();
    return m_step == OnboardingStep::account && !flow.signedIn && !flow.accountRequired;
}

QString OnboardingView::defaultTitle() const
{
    if (onLastStep())
        return translated(L10N_KEY("Vesko", "Start using Vesko"));
    return m_step == OnboardingStep::welcome ? translated(L10N_KEY("Vesko", "Get started"))
                                             : translated(L10N_KEY("Vesko", "Continue"));
}

bool OnboardingView::defaultEnabled() const
{
    return !onLastStep() || m_flow().canFinish(m_step);
}

QString OnboardingView::accountName() const
{
    const auto email = m_email();
    return email ? QString::fromStdString(*email)
                 : translated(L10N_KEY("Vesko", "Apple ID with hidden email"));
}

void OnboardingView::advance()
{
    if (const auto next = m_flow().next(m_step))
        setStep(*next);
}

void OnboardingView::complete()
{
    if (!m_flow().canFinish(m_step)) {
        setStep(OnboardingStep::account);
        return;
    }
    m_track(UsageEvent::onboardingCompleted);
    m_finish();
}

void OnboardingView::goBack()
{
    if (canGoBack())
        setStep(m_flow().steps().at(static_cast<std::size_t>(place() - 1)));
}

void OnboardingView::goOn()
{
    if (!defaultEnabled())
        return;
    if (onLastStep())
        complete();
    else
        advance();
}

void OnboardingView::pressPermission(int row)
{
    m_permissions.press(row, [self = QPointer(this)](const QString& notice) {
        if (!self)
            return;
        self->m_notice = notice;
        Q_EMIT self->noticeChanged();
    });
}

void OnboardingView::accountChanged()
{
    const bool before = std::exchange(m_signedIn, m_flow().signedIn);
    if (m_signedIn && !before && m_step == OnboardingStep::account)
        advance();
    Q_EMIT stepChanged();
}

void OnboardingView::setStep(OnboardingStep step)
{
    m_step = step;
    Q_EMIT stepChanged();
    m_notice.clear(); // it was about what has gone out of sight
    Q_EMIT noticeChanged();
}

} // namespace vesko

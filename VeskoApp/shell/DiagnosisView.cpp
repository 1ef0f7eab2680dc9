#include "VeskoApp/shell/DiagnosisView.h"

#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <utility>

namespace vesko {

void DiagnosisView::look()
{
    if (std::exchange(m_looking, true))
        return;
    m_report.clear();
    Q_EMIT changed();
    m_tasks.spawn(lookOnce());
}

Task<> DiagnosisView::lookOnce()
{
    const auto report = co_await m_doctor.report();
    m_report = report ? QString::fromStdString(*report)
                      : translated(L10N_KEY("Vesko", "This computer could not be looked at."));
    while (m_report.endsWith(u'\n'))
        m_report.chop(1);
    m_looking = false;
    Q_EMIT changed();
}

} // namespace vesko

#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/platform/Doctor.h"

#include <QObject>
#include <QString>

namespace vesko {

// The machine's report, as a user reads it and puts it into another one. Main thread.
class DiagnosisView : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool looking READ looking NOTIFY changed)
    // The newest one, or why there is none; empty before the first.
    Q_PROPERTY(QString report READ report NOTIFY changed)

public:
    // It must outlive this.
    explicit DiagnosisView(Doctor& doctor)
        : m_doctor(doctor)
    {
    }

    bool looking() const { return m_looking; }
    const QString& report() const { return m_report; }

    // Anew, unless it is being done.
    Q_INVOKABLE void look();

Q_SIGNALS:
    void changed();

private:
    Task<> lookOnce();

    Doctor& m_doctor;
    bool m_looking = false;
    QString m_report;
    TaskScope m_tasks;
};

} // namespace vesko

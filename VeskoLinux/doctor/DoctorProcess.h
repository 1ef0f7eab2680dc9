#pragma once

#include "VeskoApp/platform/Doctor.h"

#include <filesystem>
#include <memory>

class QProcess;

namespace vesko {

// The command of the doctor, in a process of its own: what it asks may take seconds to answer, or
// hang. One that takes longer than half a minute is ended. Main thread.
class DoctorProcess final : public Doctor {
public:
    // The program that does it when it is told "--doctor".
    explicit DoctorProcess(std::filesystem::path program);
    ~DoctorProcess() override;

    Eventual<std::optional<std::string>> report() override;

private:
    std::filesystem::path m_program;
    std::unique_ptr<QProcess> m_process; // of the newest report
};

} // namespace vesko

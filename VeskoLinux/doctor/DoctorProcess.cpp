#include "VeskoLinux/doctor/DoctorProcess.h"

#include <QProcess>
#include <QTimer>

#include <chrono>
#include <utility>

namespace vesko {

namespace {

constexpr std::chrono::seconds patience{ 30 };

} // namespace

DoctorProcess::DoctorProcess(std::filesystem::path program)
    : m_program(std::move(program))
{
}

DoctorProcess::~DoctorProcess() = default;

Eventual<std::optional<std::string>> DoctorProcess::report()
{
    Eventual<std::optional<std::string>> answer;
    m_process = std::make_unique<QProcess>();
    auto* const process = m_process.get();
    process->setProcessChannelMode(QProcess::SeparateChannels);
    process->setStandardErrorFile(QProcess::nullDevice());
    QObject::connect(
        process, &QProcess::finished, process, [process, answer](int, QProcess::ExitStatus status) {
            // Its exit code only tells whether anything is wanting.
            const auto said = process->readAllStandardOutput().toStdString();
            const bool isWhole = status == QProcess::NormalExit && !said.empty();
            answer.set(isWhole ? std::optional(said) : std::nullopt);
        });
    QObject::connect(
        process, &QProcess::errorOccurred, process, [answer](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                answer.set(std::nullopt);
        });
    QTimer::singleShot(patience, process, [process] { process->kill(); });
    process->start(QString::fromStdString(m_program), { QStringLiteral("--doctor") });
    process->closeWriteChannel();
    return answer;
}

} // namespace vesko

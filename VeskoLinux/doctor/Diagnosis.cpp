#include "VeskoLinux/doctor/Diagnosis.h"

#include <algorithm>
#include <exception>

namespace vesko {

void diagnose(const std::vector<Check>& checks, const std::function<void(const Finding&)>& found)
{
    for (const auto& check : checks) {
        Finding finding;
        try {
            finding = check.look();
        } catch (const std::exception&) {
            // What it says may hold a path.
            finding = Finding::wanting("it could not be looked at", "Please report this.");
        }
        finding.subject = check.subject;
        found(finding);
    }
}

std::string described(const Finding& finding)
{
    const char* const mark = finding.state == Finding::State::fine ? "ok  "
        : finding.state == Finding::State::fact                    ? "    "
                                                                   : "!!  ";
    constexpr std::size_t column = 16;
    auto line = mark + finding.subject;
    line.resize(std::max(line.size() + 2, 4 + column), ' ');
    line += finding.seen + "\n";
    if (!finding.remedy.empty())
        line += std::string(4 + column, ' ') + finding.remedy + "\n";
    return line;
}

} // namespace vesko

#pragma once

#include "VeskoApp/platform/RemoteControl.h"

#include <memory>
#include <optional>
#include <vector>

namespace vesko {

// A test calls what a script would.
class FakeRemoteControl final : public RemoteControl {
public:
    // What becomes of the command, as soon as that is known.
    std::shared_ptr<std::optional<RemoteAnswer>> call(RemoteCommand command) const
    {
        auto outcome = std::make_shared<std::optional<RemoteAnswer>>();
        onCommand(command, [outcome](RemoteAnswer answer) { outcome->emplace(answer); });
        return outcome;
    }
    void changed(const RemoteStatus& status) override
    {
        told.push_back(status.state.toStdString());
    }

    std::vector<std::string> told;
};

} // namespace vesko

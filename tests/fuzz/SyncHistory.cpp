#include "tests/fuzz/SyncHistory.h"

#include <algorithm>
#include <array>
#include <random>

namespace vesko {

SyncHistory randomHistory(unsigned seed, std::size_t length)
{
    using Kind = SyncStep::Kind;
    using Trouble = SyncStep::Trouble;
    // As often as they stand here.
    static constexpr std::array kinds{ Kind::write, Kind::write, Kind::write, Kind::write,
        Kind::remove, Kind::send, Kind::send, Kind::send, Kind::send, Kind::deliver, Kind::deliver,
        Kind::deliver, Kind::deliver, Kind::deliver, Kind::lose, Kind::acknowledge,
        Kind::acknowledge, Kind::strangers, Kind::attack, Kind::attack, Kind::reopen };
    std::mt19937 random(seed);
    SyncHistory history;
    while (history.size() < length) {
        SyncStep step{ kinds[random() % kinds.size()], static_cast<unsigned>(random()) };
        if (random() % 8 == 0)
            step.trouble = random() % 2 == 0 ? Trouble::fault : Trouble::crash;
        history.push_back(step);
    }
    return history;
}

SyncHistory shortened(SyncHistory history, const std::function<bool(const SyncHistory&)>& fails)
{
    for (auto portion = std::max<std::size_t>(history.size() / 2, 1);;) {
        const auto before = history.size();
        for (std::size_t at = 0; at < history.size();) {
            const auto end = std::min(at + portion, history.size());
            auto rest = history;
            rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(at),
                rest.begin() + static_cast<std::ptrdiff_t>(end));
            if (fails(rest))
                history = std::move(rest);
            else
                at = end;
        }
        if (portion == 1 && history.size() == before)
            return history;
        portion = std::max<std::size_t>(portion / 2, 1);
    }
}

} // namespace vesko

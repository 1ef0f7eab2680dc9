#pragma once

#include "VeskoLinux/speech/engines/SpeechEngine.h"

#include <functional>
#include <mutex>
#include <vector>

namespace vesko {

// An engine without a process, which answers as a test tells it to and keeps what it is given.
class FakeEngine final : public SpeechEngine {
public:
    std::function<EngineAnswer(std::span<const std::int16_t>)> answers
        = [](auto) { return EngineAnswer{ .text = "word" }; };

    std::vector<std::vector<std::int16_t>> pieces() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_pieces;
    }
    std::vector<Wish> wishes() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_wishes;
    }

    std::string name() const override { return "fake"; }
    bool speaks(const std::string&) const override { return true; }
    int longestPiece() const override { return 12; }
    std::unique_ptr<Session> begin(const Wish& wish, std::stop_token) const override
    {
        struct Open final : Session {
            explicit Open(const FakeEngine& of)
                : engine(of)
            {
            }
            EngineAnswer heard(std::span<const std::int16_t> piece) override
            {
                {
                    const std::scoped_lock lock(engine.m_mutex);
                    engine.m_pieces.emplace_back(piece.begin(), piece.end());
                }
                return engine.answers(piece);
            }
            const FakeEngine& engine;
        };
        const std::scoped_lock lock(m_mutex);
        m_wishes.push_back(wish);
        return std::make_unique<Open>(*this);
    }

private:
    mutable std::mutex m_mutex;
    mutable std::vector<std::vector<std::int16_t>> m_pieces;
    mutable std::vector<Wish> m_wishes;
};

} // namespace vesko

#pragma once

#include "VeskoApp/async/Eventual.h"

#include <utility>
#include <variant>

namespace vesko {

// A point that a fake passes at once, or waits at until the test lets it go on. Main thread; one
// task waits at a time.
class Gate {
public:
    void close() { m_closed = true; }
    void open()
    {
        m_closed = false;
        m_waiting = false;
        std::exchange(m_passage, {}).set({});
    }
    // Whether someone stands before the closed gate.
    bool waiting() const { return m_waiting; }

    Eventual<std::monostate> pass()
    {
        if (!m_closed)
            return Eventual<std::monostate>::of({});
        m_waiting = true;
        return m_passage;
    }

private:
    bool m_closed = false;
    bool m_waiting = false;
    Eventual<std::monostate> m_passage;
};

} // namespace vesko

#pragma once

#include <QDeadlineTimer>

#include <memory>

namespace vesko {

// Questions that are asked of programs together: until when their answers are awaited, and whether
// one of them had none by then. What a program did not say in time may be any answer, which an
// error is not. Copies stand for the same questions. Main thread.
class AtspiInquiry {
public:
    explicit AtspiInquiry(int milliseconds)
        : AtspiInquiry(QDeadlineTimer(milliseconds))
    {
    }

    // Other questions, under the same deadline.
    AtspiInquiry next() const { return AtspiInquiry(m_deadline); }
    qint64 remainingTime() const { return m_deadline.remainingTime(); }
    bool hasExpired() const { return m_deadline.hasExpired(); }

    bool unanswered() const { return *m_unanswered; }
    void noteUnanswered() const { *m_unanswered = true; }

private:
    explicit AtspiInquiry(QDeadlineTimer deadline)
        : m_deadline(deadline)
    {
    }

    QDeadlineTimer m_deadline;
    std::shared_ptr<bool> m_unanswered = std::make_shared<bool>(false);
};

} // namespace vesko

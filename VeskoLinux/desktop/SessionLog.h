#pragma once

#include <QLoggingCategory>

namespace vesko {

// That the session was locked or unlocked, whoever told it: one line a change.
Q_DECLARE_LOGGING_CATEGORY(sessionLog)

} // namespace vesko

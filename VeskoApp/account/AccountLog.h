#pragma once

#include <QLoggingCategory>

namespace vesko {

// Fixed event lines only: never an address, a token or a code.
Q_DECLARE_LOGGING_CATEGORY(accountLog)

} // namespace vesko

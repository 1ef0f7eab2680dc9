#pragma once

#include <QLoggingCategory>

namespace vesko {

// Fixed event lines only: never a text of the user's, a key or a transcript.
Q_DECLARE_LOGGING_CATEGORY(captureLog)

} // namespace vesko

#pragma once

#include <QString>

namespace vesko {

// A path as the user writes it, made whole: below the home folder unless it says otherwise.
QString wholePath(const QString& written);
// The same path as a user would write it, with "~" for the home folder.
QString writtenPath(const QString& whole);
// Where a file of that name goes if the user has no better idea: the documents, or the home folder.
QString offeredFile(const QString& name);

} // namespace vesko

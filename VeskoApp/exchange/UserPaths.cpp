#include "VeskoApp/exchange/UserPaths.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace vesko {

QString wholePath(const QString& written)
{
    const auto path = written.trimmed();
    return QDir::home().absoluteFilePath(
        path.startsWith(QStringLiteral("~/")) ? path.mid(2) : path);
}

QString writtenPath(const QString& whole)
{
    const auto home = QDir::homePath();
    return whole.startsWith(home + u'/') ? u'~' + whole.mid(home.size()) : whole;
}

QString offeredFile(const QString& name)
{
    auto folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (!QFileInfo(folder).isDir())
        folder = QDir::homePath();
    return folder + u'/' + name;
}

} // namespace vesko

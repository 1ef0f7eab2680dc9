#include "VeskoLinux/desktop/DesktopBrowser.h"

#include <QDesktopServices>
#include <QUrl>

namespace vesko {

bool DesktopBrowser::open(const std::string& url)
{
    return QDesktopServices::openUrl(QUrl::fromEncoded(QByteArray::fromStdString(url)));
}

} // namespace vesko

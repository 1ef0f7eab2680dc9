#include "VeskoLinux/desktop/QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace vesko {

bool QtClipboard::setText(const std::string& text)
{
    QClipboard* const clipboard = QGuiApplication::clipboard();
    clipboard->setText(QString::fromStdString(text));
    return clipboard->ownsClipboard();
}

} // namespace vesko

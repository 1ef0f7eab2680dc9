#include "VeskoLinux/desktop/QtClipboard.h"

#include "VeskoLinux/desktop/X11ClipboardReader.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace vesko {

bool QtClipboard::setText(const std::string& text)
{
    // A compositor takes nothing from a program without the focus, which Qt does not tell.
    const bool byWayland = QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
    if (byWayland && !QGuiApplication::focusWindow())
        return false;
    QClipboard* const clipboard = QGuiApplication::clipboard();
    clipboard->setText(QString::fromStdString(text));
    return clipboard->ownsClipboard();
}

Task<ClipboardContent> QtClipboard::content()
{
    if (!qGuiApp->nativeInterface<QNativeInterface::QX11Application>())
        co_return ClipboardContent();
    co_return co_await m_worker.run(
        [] { return readX11Clipboard(largestContent, contentPatience); });
}

bool QtClipboard::giveBack(const ClipboardContent& content, const std::string& insteadOf)
{
    QClipboard* const clipboard = QGuiApplication::clipboard();
    if (content.empty() || !clipboard->ownsClipboard()
        || clipboard->text().toStdString() != insteadOf)
        return false;
    auto* const data = new QMimeData;
    for (const auto& [form, bytes] : content)
        data->setData(QString::fromStdString(form), QByteArray::fromStdString(bytes));
    clipboard->setMimeData(data);
    return clipboard->ownsClipboard();
}

} // namespace vesko

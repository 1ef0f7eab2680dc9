#pragma once

#include <QQuickImageProvider>

namespace vesko {

// The drawings in icons/ as "image://icon/NAME?COLOUR", as large as they are asked for.
class IconProvider final : public QQuickImageProvider {
public:
    IconProvider()
        : QQuickImageProvider(Image)
    {
    }
    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace vesko

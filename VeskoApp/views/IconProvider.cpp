#include "VeskoApp/views/IconProvider.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

namespace vesko {

QImage IconProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize)
{
    const auto name = id.section(u'?', 0, 0);
    const auto colour = id.section(u'?', 1);
    QFile file(QStringLiteral(":/qt/qml/Vesko/Views/icons/%1.svg").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    auto drawing = file.readAll().replace("currentColor", colour.toUtf8());
    QBuffer buffer(&drawing);
    QImageReader reader(&buffer, "svg");
    reader.setScaledSize(requestedSize);
    auto image = reader.read();
    *size = image.size();
    return image;
}

} // namespace vesko

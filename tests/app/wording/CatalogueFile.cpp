#include "tests/app/wording/CatalogueFile.h"

#include "tests/app/wording/SourceTexts.h"

#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace vesko {

std::vector<CatalogueMessage> catalogueMessages(const QString& name)
{
    std::vector<CatalogueMessage> found;
    QXmlStreamReader xml(contentOf(QStringLiteral("VeskoApp/wording/") + name));
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QStringLiteral("message")) {
            found.emplace_back();
            found.back().countsThings = xml.attributes().hasAttribute(QStringLiteral("numerus"));
        } else if (xml.name() == QStringLiteral("source")) {
            found.back().key = xml.readElementText();
        } else if (xml.name() == QStringLiteral("translation")) {
            found.back().finished = xml.attributes().isEmpty();
            if (!found.back().countsThings)
                found.back().translations << xml.readElementText();
        } else if (xml.name() == QStringLiteral("numerusform")) {
            found.back().translations << xml.readElementText();
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    EXPECT_FALSE(found.empty());
    return found;
}

} // namespace vesko

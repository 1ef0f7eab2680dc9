#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace vesko {

struct CatalogueMessage {
    QString key;
    QStringList translations; // one, or one for each form of a number
    bool countsThings = false;
    bool finished = true;
};

// The messages of a catalogue's source, such as "vesko_ru.ts".
std::vector<CatalogueMessage> catalogueMessages(const QString& name);

} // namespace vesko

#pragma once

#include "VeskoApp/wording/InterfaceLanguage.h"

#include <QRegularExpression>
#include <QTranslator>

#include <gtest/gtest.h>

namespace vesko {

// A language whose words are 40 % longer than English ones, as those of many languages are.
class LongWords final : public QTranslator {
public:
    LongWords() { EXPECT_TRUE(m_english.load(catalogueOf("en"))); }

    bool isEmpty() const override { return false; }
    QString translate(
        const char* context, const char* key, const char* disambiguation, int n) const override
    {
        auto text = m_english.translate(context, key, disambiguation, n);
        if (text.isEmpty())
            text = QString::fromUtf8(key);
        static const QRegularExpression word(QStringLiteral("(?<!%)\\b\\p{L}{2,}"));
        qsizetype grown = 0;
        const auto english = text;
        for (auto i = word.globalMatch(english); i.hasNext();) {
            const auto match = i.next();
            const auto more = match.captured().left((match.capturedLength() * 2 + 4) / 5);
            text.insert(match.capturedEnd() + grown, more);
            grown += more.size();
        }
        return text;
    }

private:
    QTranslator m_english;
};

} // namespace vesko

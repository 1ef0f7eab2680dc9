// What is searched for, in the text of a note.

#include "tests/fakes/EventLoop.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickTextDocument>
#include <QTextBlock>
#include <QTextLayout>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace vesko {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FoundTextTest : public testing::Test {
protected:
    FoundTextTest()
    {
        engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
        QQmlComponent component(&engine);
        component.setData(R"(
            import QtQuick
            import Vesko.Views

            TextEdit {
                property var found: FoundText { document: textDocument; colour: "red" }
                text: "Ferns\nlike shade, a fern 🌿 fern"
            })",
            QUrl());
        text.reset(component.create());
        EXPECT_NE(text, nullptr) << component.errorString().toStdString();
        found = text->property("found").value<QObject*>();
    }
    void search(const char* query)
    {
        found->setProperty("query", QString::fromUtf8(query));
        drainEvents(); // the first marks come with them
    }
    int count() const
    {
        int number = 0;
        QMetaObject::invokeMethod(found, "count", Q_RETURN_ARG(int, number));
        return number;
    }
    QList<int> ask(const char* method, int position) const
    {
        QList<int> span;
        QMetaObject::invokeMethod(
            found, method, Q_RETURN_ARG(QList<int>, span), Q_ARG(int, position));
        return span;
    }
    // The marked pieces of the text, each with where it begins in its line.
    std::vector<std::pair<int, std::string>> marks() const
    {
        std::vector<std::pair<int, std::string>> all;
        const auto* const document
            = text->property("textDocument").value<QQuickTextDocument*>()->textDocument();
        for (auto line = document->begin(); line.isValid(); line = line.next())
            for (const auto& format : line.layout()->formats())
                if (format.format.background().color() == QColor(Qt::red))
                    all.emplace_back(
                        format.start, line.text().mid(format.start, format.length).toStdString());
        return all;
    }

    QQmlEngine engine;
    std::unique_ptr<QObject> text;
    QObject* found = nullptr;
};

TEST_F(FoundTextTest, MarksWhatIsSearchedForAndNothingOnceItIsNot)
{
    EXPECT_THAT(marks(), IsEmpty());
    search("fern");
    EXPECT_THAT(
        marks(), ElementsAre(std::pair(0, "Fern"), std::pair(14, "fern"), std::pair(22, "fern")));
    search("");
    EXPECT_THAT(marks(), IsEmpty());
    EXPECT_EQ(count(), 0);
}

TEST_F(FoundTextTest, GoesFromMatchToMatchAndAroundTheEnds)
{
    search("fern");
    EXPECT_EQ(count(), 3);
    EXPECT_THAT(ask("next", 0), ElementsAre(0, 4, 1));
    EXPECT_THAT(ask("next", 4), ElementsAre(20, 24, 2));
    EXPECT_THAT(ask("next", 24), ElementsAre(28, 32, 3)); // behind an emoji
    EXPECT_THAT(ask("next", 32), ElementsAre(0, 4, 1));
    EXPECT_THAT(ask("previous", 28), ElementsAre(20, 24, 2));
    EXPECT_THAT(ask("previous", 0), ElementsAre(28, 32, 3));
    search("moss");
    EXPECT_THAT(ask("next", 0), IsEmpty());
    EXPECT_THAT(ask("previous", 0), IsEmpty());
}

} // namespace
} // namespace vesko

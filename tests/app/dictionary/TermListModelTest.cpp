#include "VeskoApp/dictionary/TermListModel.h"

#include <QAbstractItemModelTester>

#include <gtest/gtest.h>

#include <map>

namespace vesko {
namespace {

// Terms of one letter each; the same letter is always the same term.
std::vector<DictionaryEntry> terms(const std::string& letters, const std::string& off = {})
{
    static std::map<char, Uuid> known;
    std::vector<DictionaryEntry> made;
    for (const char letter : letters) {
        DictionaryEntry term;
        term.id = known.try_emplace(letter, Uuid::random()).first->second;
        term.original = letter;
        term.replacement = "x";
        term.enabled = !off.contains(letter);
        made.push_back(term);
    }
    return made;
}

std::string shown(const TermListModel& model)
{
    std::string letters;
    for (int row = 0; row < model.rowCount(); ++row)
        letters
            += model.data(model.index(row), TermListModel::originalRole).toString().toStdString();
    return letters;
}

TEST(TermListModel, tellsOfNoMoreRowsThanChange)
{
    const struct {
        const char* what;
        const char* before;
        const char* after;
        const char* off;
        std::string told; // +row, -row, ~row
    } rows[] = {
        { "nothing changes", "abc", "abc", "", "" },
        { "the first terms", "", "ab", "", "+0 +1 " },
        { "the last term goes", "a", "", "", "-0 " },
        { "a term is added", "ab", "abc", "", "+2 " },
        { "a term in the middle goes", "abc", "ac", "", "-1 " },
        { "a term is switched off", "abc", "abc", "b", "~1 " },
        { "a search finds some", "abcde", "bd", "", "-4 -2 -0 " },
        { "a search is cleared", "bd", "abcde", "", "+0 +2 +4 " },
        { "another search", "ab", "bc", "", "-0 +1 " },
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        TermListModel model;
        const QAbstractItemModelTester rules(
            &model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        model.setTerms(terms(row.before));
        std::string told;
        const auto tell = [&told](char what, int at) { told += what + std::to_string(at) + ' '; };
        QObject::connect(&model, &QAbstractItemModel::rowsInserted,
            [&](const QModelIndex&, int first, int) { tell('+', first); });
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved,
            [&](const QModelIndex&, int first, int) { tell('-', first); });
        QObject::connect(&model, &QAbstractItemModel::dataChanged,
            [&](const QModelIndex& first) { tell('~', first.row()); });
        QObject::connect(
            &model, &QAbstractItemModel::modelReset, [&] { ADD_FAILURE() << "all rows are new"; });
        model.setTerms(terms(row.after, row.off));
        EXPECT_EQ(told, row.told);
        EXPECT_EQ(shown(model), row.after);
    }
}

TEST(TermListModel, aRowSaysWhereItsTermCameFrom)
{
    using enum DictionaryEntry::Source;
    TermListModel model;
    auto three = terms("abc", "c");
    three[0].original = "tallki";
    three[0].replacement = "Vesko";
    three[1].source = learned;
    three[2].source = suggestion;
    model.setTerms(three);
    const auto of = [&](int row, int role) { return model.data(model.index(row), role); };
    EXPECT_EQ(of(0, TermListModel::originalRole), QStringLiteral("tallki"));
    EXPECT_EQ(of(0, TermListModel::replacementRole), QStringLiteral("Vesko"));
    EXPECT_EQ(of(0, TermListModel::sourceRole), QStringLiteral("Added by you"));
    EXPECT_EQ(of(0, TermListModel::enabledRole), true);
    EXPECT_EQ(of(1, TermListModel::sourceRole), QStringLiteral("Learned spelling"));
    EXPECT_EQ(
        of(2, TermListModel::sourceRole), QStringLiteral("Suggestion, review before enabling"));
    EXPECT_EQ(of(2, TermListModel::enabledRole), false);
    EXPECT_FALSE(model.data({}, TermListModel::originalRole).isValid());
}

} // namespace
} // namespace vesko

// What the dictionary window shows and does.

#include "VeskoApp/dictionary/DictionaryView.h"
#include "tests/app/dictionary/LearningTest.h"

namespace vesko {
namespace {

class DictionaryViewTest : public LearningTest {
protected:
    void open()
    {
        LearningTest::open();
        view = std::make_unique<DictionaryView>(
            model->terms(), model->library(), model->capture(), machine.clock);
    }
    void type(const char* original, const char* replacement)
    {
        view->setOriginal(QString::fromUtf8(original));
        view->setReplacement(QString::fromUtf8(replacement));
    }
    void add(const char* original, const char* replacement)
    {
        const auto before = terms().size();
        type(original, replacement);
        view->save();
        ASSERT_TRUE(eventually([&] { return terms().size() > before; }));
        drainEvents();
    }
    // A term as learning saves it.
    void put(DictionaryEntry entry)
    {
        const auto before = terms().size();
        model->terms().save(std::move(entry), {});
        ASSERT_TRUE(eventually([&] { return terms().size() > before; }));
        drainEvents();
    }
    // The outcome of the last save, as the form shows it.
    std::string outcome()
    {
        const auto known = model->terms().message();
        EXPECT_TRUE(eventually([&] { return model->terms().message() != known; }));
        return model->terms().message().toStdString();
    }
    const SharedArray<DictionaryEntry>& terms() const
    {
        return model->library().contents().dictionary;
    }
    QString idOf(std::size_t index) const
    {
        return QString::fromStdString(terms()[index].id.text());
    }
    QString emptyTitle() const
    {
        return view->emptyState().toMap()[QStringLiteral("title")].toString();
    }

    std::unique_ptr<DictionaryView> view; // ends before the model
};

TEST_F(DictionaryViewTest, aTermIsAddedAndTheFormIsEmptied)
{
    open();
    EXPECT_EQ(view->saveTitle(), QStringLiteral("Add term"));
    type(" tallki ", "Vesko ");
    machine.clock.turn(5);
    view->save();
    EXPECT_EQ(outcome(), "Dictionary saved");
    ASSERT_EQ(terms().size(), 1U);
    EXPECT_EQ(terms()[0].original, "tallki");
    EXPECT_EQ(terms()[0].replacement, "Vesko");
    EXPECT_TRUE(terms()[0].enabled);
    EXPECT_EQ(terms()[0].source, DictionaryEntry::Source::manual);
    EXPECT_EQ(terms()[0].createdAt, machine.clock.now());
    EXPECT_EQ(view->original(), QString());
    EXPECT_EQ(view->replacement(), QString());
    EXPECT_EQ(view->countText(), QStringLiteral("1 term"));
    EXPECT_EQ(model->status().errorMessage(), "");
}

TEST_F(DictionaryViewTest, onlyTwoDifferentTextsCanBeSaved)
{
    open();
    const struct {
        const char* what;
        const char* original;
        const char* replacement;
        bool can;
    } rows[] = {
        { "nothing", "", "", false },
        { "no replacement", "tallki", "", false },
        { "no original", "", "Vesko", false },
        { "blanks for the original", "  ", "Vesko", false },
        { "blanks for the replacement", "tallki", " \t", false },
        { "the same twice", "Vesko", "Vesko", false },
        { "the same but for the blanks around", " Vesko", "Vesko  ", false },
        { "the same letters composed otherwise", "caf\u00e9", "cafe\u0301", false },
        { "another case", "vesko", "Vesko", true },
        { "two words", "tallki", "Vesko", true },
    };
    for (const auto& row : rows) {
        type(row.original, row.replacement);
        EXPECT_EQ(view->canSave(), row.can) << row.what;
        if (!row.can)
            view->save();
    }
    drainEvents();
    EXPECT_TRUE(terms().empty());
    EXPECT_EQ(model->terms().message(), QString());
}

TEST_F(DictionaryViewTest, aSearchLooksAtBothSidesIgnoringCaseAndDiacritics)
{
    open();
    add("tallki", "Vesko");
    add("uber", "\u00dcber");
    EXPECT_EQ(view->countText(), QStringLiteral("2 terms"));
    view->setQuery(QStringLiteral("VESK"));
    EXPECT_EQ(view->countText(), QStringLiteral("1 term"));
    EXPECT_FALSE(view->emptyState().isValid());
    view->setQuery(QStringLiteral("tal"));
    EXPECT_EQ(view->countText(), QStringLiteral("1 term"));
    view->setQuery(QStringLiteral("u\u0308b"));
    EXPECT_EQ(view->countText(), QStringLiteral("1 term"));
    view->setQuery(QStringLiteral("zebra"));
    EXPECT_EQ(view->countText(), QStringLiteral("0 terms"));
    EXPECT_EQ(emptyTitle(), QStringLiteral("No matching terms"));
    view->setQuery({});
    EXPECT_EQ(view->countText(), QStringLiteral("2 terms"));
}

TEST_F(DictionaryViewTest, anEmptyDictionarySaysWhatBelongsThere)
{
    open();
    EXPECT_EQ(emptyTitle(), QStringLiteral("Your personal dictionary"));
    EXPECT_EQ(view->countText(), QStringLiteral("0 terms"));
}

TEST_F(DictionaryViewTest, anEditedTermKeepsItsIdentityAndBecomesTheUsersOwn)
{
    open();
    const DictionaryEntry learned{ .id = Uuid::random(),
        .original = "wurld",
        .replacement = "world",
        .enabled = false,
        .source = DictionaryEntry::Source::learned,
        .createdAt = machine.clock.now() };
    put(learned);
    view->edit(idOf(0));
    EXPECT_TRUE(view->editing());
    EXPECT_EQ(view->saveTitle(), QStringLiteral("Save term"));
    EXPECT_EQ(view->original(), QStringLiteral("wurld"));
    EXPECT_EQ(view->replacement(), QStringLiteral("world"));
    view->setReplacement(QStringLiteral("whirled"));
    view->save();
    ASSERT_TRUE(eventually([&] { return !view->editing(); }));
    ASSERT_EQ(terms().size(), 1U);
    EXPECT_EQ(terms()[0].id, learned.id);
    EXPECT_EQ(terms()[0].replacement, "whirled");
    EXPECT_EQ(terms()[0].source, DictionaryEntry::Source::manual);
    EXPECT_FALSE(terms()[0].enabled);
    EXPECT_EQ(terms()[0].createdAt, learned.createdAt);
}

TEST_F(DictionaryViewTest, anEditIsCancelled)
{
    open();
    add("tallki", "Vesko");
    view->edit(idOf(0));
    view->setReplacement(QStringLiteral("other"));
    view->cancel();
    EXPECT_FALSE(view->editing());
    EXPECT_EQ(view->original(), QString());
    EXPECT_EQ(view->replacement(), QString());
    EXPECT_EQ(terms()[0].replacement, "Vesko");
}

TEST_F(DictionaryViewTest, theSwitchChangesNothingElseOfATerm)
{
    open();
    put({ .id = Uuid::random(),
        .original = "wurld",
        .replacement = "world",
        .enabled = false,
        .source = DictionaryEntry::Source::suggestion,
        .createdAt = machine.clock.now() });
    type("half", "typed");
    view->setEnabled(idOf(0), true);
    ASSERT_TRUE(eventually([&] { return terms()[0].enabled; }));
    drainEvents();
    EXPECT_EQ(terms()[0].source, DictionaryEntry::Source::suggestion);
    EXPECT_EQ(terms()[0].original, "wurld");
    EXPECT_EQ(view->original(), QStringLiteral("half"));
    view->setEnabled(idOf(0), false);
    view->setEnabled(idOf(0), true);
    view->setEnabled(idOf(0), false);
    ASSERT_TRUE(eventually([&] { return !terms()[0].enabled; }));
}

TEST_F(DictionaryViewTest, aTermIsRemovedWithoutAWord)
{
    open();
    add("tallki", "Vesko");
    const auto said = model->terms().message();
    view->remove(idOf(0));
    ASSERT_TRUE(eventually([&] { return terms().empty(); }));
    drainEvents();
    EXPECT_EQ(model->terms().message(), said);
    EXPECT_EQ(view->countText(), QStringLiteral("0 terms"));
    view->remove(QStringLiteral("no such term"));
    view->edit(QStringLiteral("no such term"));
    view->setEnabled(QStringLiteral("no such term"), true);
    EXPECT_FALSE(view->editing());
}

TEST_F(DictionaryViewTest, aRemovedTermCanBeTakenBackForAWhile)
{
    open();
    add("tallki", "Vesko");
    const auto term = terms()[0];
    EXPECT_EQ(view->undoText(), QString());
    view->remove(idOf(0));
    ASSERT_TRUE(eventually([&] { return terms().empty(); }));
    EXPECT_EQ(view->undoText(), QStringLiteral("Removed “tallki”"));
    view->undo();
    ASSERT_TRUE(eventually([&] { return terms().size() == 1; }));
    EXPECT_EQ(terms()[0], term);
    EXPECT_EQ(view->undoText(), QString());

    view->remove(idOf(0));
    ASSERT_TRUE(eventually([&] { return terms().empty(); }));
    machine.clock.turn(10);
    EXPECT_EQ(view->undoText(), QString());
    view->undo();
    drainEvents();
    EXPECT_TRUE(terms().empty());
}

TEST_F(DictionaryViewTest, aTermThatCouldNotBeRemovedIsNotOfferedBack)
{
    open();
    add("tallki", "Vesko");
    breakStore();
    view->remove(idOf(0));
    ASSERT_TRUE(eventually([&] { return !model->status().errorMessage().empty(); }));
    EXPECT_EQ(view->undoText(), QString());
}

TEST_F(DictionaryViewTest, theTermBeingEditedIsRemovedAndSavedAgain)
{
    open();
    add("tallki", "Vesko");
    view->edit(idOf(0));
    view->remove(idOf(0));
    ASSERT_TRUE(eventually([&] { return terms().empty(); }));
    EXPECT_TRUE(view->editing());
    EXPECT_EQ(view->original(), QStringLiteral("tallki"));
    view->save();
    ASSERT_TRUE(eventually([&] { return terms().size() == 1; }));
}

TEST_F(DictionaryViewTest, whatTheDictionaryRefusesStaysInTheForm)
{
    open();
    add("tallki", "Vesko");
    type("Tallki", "Talky");
    view->save();
    const auto refused = outcome();
    EXPECT_EQ(refused, VeskoError(VeskoError::duplicateDictionary).errorDescription());
    EXPECT_EQ(model->status().errorMessage(), refused);
    EXPECT_EQ(view->original(), QStringLiteral("Tallki"));
    EXPECT_EQ(view->replacement(), QStringLiteral("Talky"));
    EXPECT_EQ(terms().size(), 1U);
}

TEST_F(DictionaryViewTest, aFailingDiskKeepsWhatWasTypedAndWhatWasThere)
{
    open();
    add("tallki", "Vesko");
    breakStore();
    type("wurld", "world");
    view->save();
    EXPECT_EQ(outcome(), VeskoError(VeskoError::storage).errorDescription());
    EXPECT_EQ(view->original(), QStringLiteral("wurld"));
    EXPECT_EQ(view->replacement(), QStringLiteral("world"));
    model->status().dismissError();
    view->remove(idOf(0));
    ASSERT_TRUE(eventually([&] { return !model->status().errorMessage().empty(); }));
    EXPECT_EQ(terms().size(), 1U);
    repairStore();
    view->save();
    ASSERT_TRUE(eventually([&] { return terms().size() == 2; }));
}

TEST_F(DictionaryViewTest, aSwitchThatCouldNotBeSavedStaysAsItWas)
{
    open();
    add("tallki", "Vesko");
    breakStore();
    view->setEnabled(idOf(0), false);
    ASSERT_TRUE(eventually([&] { return !model->status().errorMessage().empty(); }));
    drainEvents();
    EXPECT_TRUE(terms()[0].enabled);
    EXPECT_EQ(view->termList().data(view->termList().index(0), TermListModel::enabledRole), true);
    repairStore();
}

TEST_F(DictionaryViewTest, correctionsThatWaitAreCounted)
{
    open();
    EXPECT_EQ(view->pendingText(), QString());
    dictateAndEdit();
    leave();
    EXPECT_EQ(view->pendingText(), QStringLiteral("Last edited paste: 1 word corrections"));
    model->terms().learnPendingCorrections();
    EXPECT_EQ(view->pendingText(), QString());
    ASSERT_TRUE(eventually([&] { return view->countText() == QStringLiteral("1 term"); }));
}

TEST_F(DictionaryViewTest, nothingIsSavedBeforeTheLibraryIsOpen)
{
    start();
    view = std::make_unique<DictionaryView>(
        model->terms(), model->library(), model->capture(), machine.clock);
    type("tallki", "Vesko");
    view->save();
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
    drainEvents();
    EXPECT_TRUE(terms().empty());
    EXPECT_EQ(view->original(), QStringLiteral("tallki"));
}

TEST_F(DictionaryViewTest, aLibraryThatIsLongInOpeningHasNoCountOfTerms)
{
    slowDisk();
    start();
    view = std::make_unique<DictionaryView>(
        model->terms(), model->library(), model->capture(), machine.clock);
    EXPECT_EQ(view->countText(), QString());
    EXPECT_FALSE(view->emptyState().isValid());
    machine.clock.turn(0.2);
    EXPECT_EQ(view->countText(), QStringLiteral("Opening library…"));
    type("tallki", "Vesko");
    EXPECT_FALSE(view->canSave());
    QString count;
    bool canSave = false;
    QObject::connect(view.get(), &DictionaryView::termsChanged, [&] { count = view->countText(); });
    QObject::connect(view.get(), &DictionaryView::formChanged, [&] { canSave = view->canSave(); });
    hurryDisk();
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
    drainEvents();
    EXPECT_EQ(count, QStringLiteral("0 terms"));
    EXPECT_TRUE(canSave);
}

TEST_F(DictionaryViewTest, aWindowThatIsGoneIsNotTold)
{
    open();
    type("tallki", "Vesko");
    view->save();
    view.reset();
    ASSERT_TRUE(eventually([&] { return terms().size() == 1; }));
}

} // namespace
} // namespace vesko

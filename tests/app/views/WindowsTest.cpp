// Every window, as it really is, over a machine in memory: in each language its texts have room.
// With VESKO_PICTURES set to a folder, what was looked at is there to be looked at; it is dark with
// VESKO_LOOK set to "dark".

#include "VeskoApp/views/Windows.h"
#include "VeskoApp/onboarding/OnboardingView.h"
#include "VeskoApp/settings/PreferencesView.h"
#include "VeskoApp/shell/AppDelegate.h"
#include "tests/app/AppModelTest.h"
#include "tests/app/views/Layout.h"
#include "tests/app/views/LongWords.h"

#include <QDir>
#include <QQmlEngine>
#include <QQmlListReference>
#include <QQmlProperty>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtQml/QQmlExtensionPlugin>

Q_IMPORT_QML_PLUGIN(Vesko_ViewsPlugin)

namespace vesko {
namespace {

class WindowsTest : public AppModelTest, public testing::WithParamInterface<const char*> {
protected:
    WindowsTest()
    {
        machine.appearance.prefersDark = qEnvironmentVariable("VESKO_LOOK") == u"dark";
        machine.appearance.prefersStillness = true;
        accounts = { .baseURL = "http://127.0.0.1:1/",
            .googleClientID = "id",
            .required = false,
            .google = {} };
        if (language() == "long") {
            m_translator = std::make_unique<LongWords>();
        } else {
            machine.all.preferredLanguages = { language() };
            m_translator = std::make_unique<QTranslator>();
            EXPECT_TRUE(m_translator->load(catalogueOf(language())));
        }
        QCoreApplication::installTranslator(m_translator.get());
    }
    ~WindowsTest() override { QCoreApplication::removeTranslator(m_translator.get()); }

    static std::string language() { return GetParam(); }

    void open()
    {
        writeLibrary();
        AppModelTest::open();
        prepareViews(engine);
        delegate = std::make_unique<AppDelegate>(machine.all, *model);
        delegate->makeCapturePanel = [this] {
            auto window = makeCapturePanel(engine, machine.all, *model, *delegate);
            m_panel = qobject_cast<QQuickWindow*>(window.get());
            return window;
        };
        delegate->windows().make = [this](AppWindow kind) {
            auto window = makeWindow(engine, kind, machine.all, *model, *delegate);
            shown = qobject_cast<QQuickWindow*>(window.get());
            designed = shown->size();
            smallest = shown->minimumSize();
            return window;
        };
        delegate->launch(true);
    }
    // The floating control.
    QQuickWindow& panel() const { return *m_panel; }

    void look(QQuickWindow& window, const std::string& name) const
    {
        SCOPED_TRACE(name);
        drainEvents();
        const auto picture = window.grabWindow(); // and so laid out
        EXPECT_THAT(flawsOf(window), testing::IsEmpty());
        if (const auto folder = qEnvironmentVariable("VESKO_PICTURES"); !folder.isEmpty()) {
            QDir().mkpath(folder);
            picture.save(folder + u'/' + QString::fromStdString(name + "-" + language())
                + QStringLiteral(".png"));
        }
    }
    void look(const std::string& name) const { look(*shown, name); }

    // The one that can be seen and has such a property: with "maximumLength" a line that is edited,
    // with "textDocument" more than a line.
    QQuickItem& itemWith(const char* property) const
    {
        std::vector<QQuickItem*> all{ shown->contentItem() };
        for (std::size_t i = 0; i < all.size(); ++i) {
            if (all[i]->isVisible() && all[i]->property("text").toString().startsWith(u"word0")
                && all[i]->property(property).isValid())
                return *all[i];
            for (auto* child : all[i]->childItems())
                all.push_back(child);
        }
        throw std::runtime_error(property);
    }

    // Each sheet, menu and list of choices that the window has, one after the other; how many.
    int lookAtPopups(const std::string& name) const
    {
        int number = 0;
        std::vector<QObject*> popups;
        collectPopups(*shown->contentItem(), popups);
        collectPopups(*shown, popups);
        for (auto* popup : popups) {
            EXPECT_TRUE(QMetaObject::invokeMethod(popup, "open"));
            look(name + "-popup-" + std::to_string(++number));
            EXPECT_TRUE(QMetaObject::invokeMethod(popup, "close"));
            drainEvents();
        }
        return number;
    }

    // Those of an object and, if it is an item, of all items in it.
    static void collectPopups(QObject& object, std::vector<QObject*>& popups)
    {
        if (std::string_view(object.metaObject()->className()).starts_with("OnDemand_"))
            ASSERT_TRUE(QMetaObject::invokeMethod(&object, "get"));
        for (auto* child : object.children()) {
            const std::string_view type = child->metaObject()->className();
            if (type.starts_with("Sheet_") || type.starts_with("PopupMenu_"))
                popups.push_back(child);
            else if (!qobject_cast<QQuickItem*>(child))
                collectPopups(*child, popups);
        }
        if (const auto* const item = qobject_cast<QQuickItem*>(&object))
            for (auto* child : item->childItems())
                collectPopups(*child, popups);
    }

    QQmlEngine engine;
    QQuickWindow* shown = nullptr; // the last one that was opened
    QSize designed, smallest; // whatever the screen here has room for
    std::unique_ptr<AppDelegate> delegate; // ends before the model

private:
    void writeLibrary() const
    {
        LibraryStore store(root(), machine.clock);
        const auto project = store.createProject("Garden");
        for (const auto kind : { NoteKind::text, NoteKind::voice, NoteKind::dictation })
            for (int number = 0; number < 2; ++number) {
                const auto note = store.createNote(kind, project.id);
                store.editNote(note.id, "Boxes", "They are deep.", std::nullopt);
                if (kind == NoteKind::text)
                    continue;
                const auto recording = store.beginRecording(note.id);
                store.finishRecording(recording.id, 47.3);
                const auto attempt
                    = store.beginAttempt(recording.id, "OpenRouter", "model", "other");
                if (number == 0)
                    store.completeAttempt(recording.id, attempt.id,
                        { .rawText = "they are deep",
                            .text = "They are deep",
                            .cost = 0.000412,
                            .requestID = {},
                            .warning = {} });
                else
                    store.failAttempt(recording.id, attempt.id,
                        "The provider timed out. Your recording is saved. A retry may incur "
                        "another provider charge.");
            }
        store.trashNotes({ store.createNote(NoteKind::voice, std::nullopt).id });
        int number = 0;
        for (const auto source : { DictionaryEntry::Source::manual,
                 DictionaryEntry::Source::learned, DictionaryEntry::Source::suggestion })
            store.saveDictionaryEntry({ .id = Uuid::random(),
                .original = "seeder" + std::to_string(++number),
                .replacement = "cedar",
                .enabled = true,
                .source = source,
                .createdAt = machine.clock.now() });
    }

    QQuickWindow* m_panel = nullptr;
    std::unique_ptr<QTranslator> m_translator;
};

INSTANTIATE_TEST_SUITE_P(Languages, WindowsTest,
    testing::Values("de", "en", "es", "fr", "ru", "long"),
    [](const auto& language) { return std::string(language.param); });

TEST_P(WindowsTest, libraryHasRoom)
{
    open();
    delegate->showLibrary();
    shown->resize(designed);
    look("library-nothing-selected");
    for (std::size_t note = 0; note < model->selection().visibleNotes().size(); ++note) {
        model->selection().setSelectedNoteID(model->selection().visibleNotes()[note].id);
        look("library-note-" + std::to_string(note));
    }
    EXPECT_GT(lookAtPopups("library"), 0);
    model->selection().selectAll();
    look("library-several");
    EXPECT_GT(lookAtPopups("library-several"), 0);
    model->selection().setQuery("nothing like it");
    model->selection().setSelectedNoteID({});
    ASSERT_TRUE(eventually([&] { return model->selection().visibleNotes().size() == 0; }));
    look("library-no-match");
    model->selection().setQuery({});
    model->selection().setShowingTrash(true);
    model->selection().setSelectedNoteID(model->selection().visibleNotes()[0].id);
    look("library-trash");
    EXPECT_GT(lookAtPopups("library-trash"), 0);
    model->status().report(std::make_exception_ptr(VeskoError(VeskoError::storage)));
    look("library-error");
    shown->resize(smallest);
    look("library-small");
}

TEST_P(WindowsTest, aLongNoteIsReadFromItsBeginningInLinesThatTheEyeFinds)
{
    std::string words;
    for (int number = 0; number < 100; ++number)
        words += "word" + std::to_string(number) + ' ';
    const auto note = [&] {
        LibraryStore store(root(), machine.clock);
        const auto made = store.createNote(NoteKind::text, std::nullopt);
        store.editNote(made.id, words, words, std::nullopt);
        return made.id;
    }();
    open();
    delegate->showLibrary();
    shown->resize(2400, 1200);
    model->selection().setSelectedNoteID(note);
    look("library-wide");
    auto& title = itemWith("maximumLength");
    QRectF first;
    ASSERT_TRUE(QMetaObject::invokeMethod(
        &title, "positionToRectangle", Q_RETURN_ARG(QRectF, first), Q_ARG(int, 0)));
    EXPECT_GE(first.x(), 0);
    EXPECT_GT(title.property("contentWidth").toDouble(), title.width());
    const auto& text = itemWith("textDocument");
    EXPECT_LT(text.width(), 750);
    EXPECT_GT(text.mapToScene({}).x(), 900);
    const auto* const page = text.parentItem()->parentItem();
    EXPECT_LE(page->property("contentHeight").toDouble(), page->height());
}

TEST_P(WindowsTest, dictionaryHasRoom)
{
    open();
    delegate->openDictionary();
    shown->resize(designed);
    look("dictionary");
    shown->resize(smallest);
    look("dictionary-small");
}

TEST_P(WindowsTest, settingsHaveRoom)
{
    machine.speechEngines.found.insert(machine.speechEngines.found.begin(),
        { .id = "whisper.cpp/base",
            .name = "whisper.cpp",
            .model = "base",
            .licence = "MIT",
            .languages = { "en", "de", "fr", "es", "ru", "uk" },
            .detectsLanguage = true });
    open();
    delegate->showSettings();
    model->preferences().keySource.set("personal");
    for (const auto* provider : { "apple", "openrouter" }) {
        model->preferences().provider.set(provider);
        for (const auto* size : { "", "-small" }) {
            shown->resize(*size ? smallest : designed);
            // All of the form at once.
            shown->resize(shown->width(), 4200);
            look(std::string("settings-") + provider + size);
        }
    }
    int popups = 0;
    const QQmlListReference pages(shown, "pages");
    for (qsizetype page = 1; page < pages.count(); ++page)
        for (const auto& size : { designed, smallest }) {
            ASSERT_TRUE(QQmlProperty(shown, QStringLiteral("current"))
                    .write(QVariant::fromValue(pages.at(page))));
            shown->resize(size);
            look("settings-page" + std::to_string(page) + (size == smallest ? "-small" : ""));
            popups += lookAtPopups("settings-page" + std::to_string(page));
        }
    ASSERT_TRUE(
        QQmlProperty(shown, QStringLiteral("current")).write(QVariant::fromValue(pages.at(0))));
    shown->resize(smallest.width(), 4200);
    model->preferences().provider.set("apple");
    for (const auto* engine : { "command", "server", "whisper.cpp/gone" }) {
        model->preferences().engine.set(engine);
        look(std::string("settings-") + (*engine == 'w' ? "without-engine" : engine));
    }
    shown->resize(smallest);
    EXPECT_GT(popups + lookAtPopups("settings"), 0);
}

TEST_P(WindowsTest, onboardingHasRoom)
{
    machine.permissions.hasMicrophone = false;
    open();
    delegate->showOnboarding();
    auto* const onboarding = shown->findChild<OnboardingView*>();
    ASSERT_NE(onboarding, nullptr);
    for (int page = 0; page < onboarding->stepCount(); ++page) {
        look("onboarding-" + onboarding->step().toStdString());
        onboarding->advance();
    }
}

TEST_P(WindowsTest, floatingControlHasRoom)
{
    machine.all.preferredLanguages.insert(machine.all.preferredLanguages.end(), { "pt", "uk" });
    machine.textLanguage.finding = { "de", 1 };
    machine.recognizer.installed = { "en-US", "de-DE", "pt-BR", "uk-UA" };
    machine.recognizer.hears = "Der Zug hatte schon wieder Verspätung";
    open();
    look(panel(), "panel");
    panel().setProperty("menuOpen", true);
    look(panel(), "panel-menu");
    panel().setProperty("menuOpen", false);
    dictate();
    look(panel(), "panel-recording");
    finish();
    ASSERT_TRUE(model->language().question());
    look(panel(), "panel-question");
    model->language().keepAutomatic();
    model->status().report(std::make_exception_ptr(VeskoError(VeskoError::corruptLibrary)));
    look(panel(), "panel-error");
}

} // namespace
} // namespace vesko

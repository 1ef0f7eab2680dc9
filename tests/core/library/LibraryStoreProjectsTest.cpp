#include "VeskoCore/base/Text.h"
#include "tests/core/Repeated.h"
#include "tests/core/library/LibraryFixture.h"

namespace vesko {
namespace {

using namespace std::chrono_literals;

class LibraryStoreProjectsTest : public LibraryFixture {
protected:
    LibraryStoreProjectsTest()
        : store(root, clock)
    {
    }
    const SharedArray<Project>& projects() const { return store.snapshot().projects; }

    LibraryStore store;
};

TEST_F(LibraryStoreProjectsTest, CreateProjectAppendsOneWithATrimmedName)
{
    store.createProject("first");
    clock.turn(1min);
    const auto project = store.createProject(" \n\tSecond one\u00a0\r\n");
    EXPECT_EQ(project.name, "Second one");
    EXPECT_EQ(project.createdAt, clock.now());
    ASSERT_EQ(projects().size(), 2U);
    EXPECT_EQ(projects()[1], project);
    EXPECT_NE(projects()[0].id, project.id);
    EXPECT_EQ(saved(), onDisk(store.snapshot()));
}

TEST_F(LibraryStoreProjectsTest, ANameHasOneToEightyCharacters)
{
    const auto project = store.createProject("x");
    struct Case {
        const char* name;
        std::string text;
        bool fits;
    };
    for (const auto& [name, text, fits] : {
             Case{ "empty", "", false },
             Case{ "white space alone", " \n\u2003", false },
             Case{ "80", repeated("a", 80), true },
             Case{ "80 and blanks around", "  " + repeated("b", 80) + "\n", true },
             Case{ "81", repeated("a", 81), false },
             Case{ "80 of several code points", repeated("👩‍👩‍👧", 80), true },
             Case{ "81 of several code points", repeated("e\u0301", 81), false },
         }) {
        SCOPED_TRACE(name);
        if (fits) {
            EXPECT_NO_THROW(store.renameProject(project.id, text));
            EXPECT_NO_THROW(store.renameProject(project.id, "x"));
            EXPECT_NO_THROW(store.createProject(text));
            continue;
        }
        expectRefused(store, VeskoError::invalidProject, [&] { store.createProject(text); });
        expectRefused(
            store, VeskoError::invalidProject, [&] { store.renameProject(project.id, text); });
    }
}

TEST_F(LibraryStoreProjectsTest, ANameIsTakenIgnoringCaseAndEncoding)
{
    store.createProject("Work");
    store.createProject("Straße");
    store.createProject("Café");
    const auto project = store.createProject("other");
    for (const auto* name : { "Work", " work ", "STRASSE", "CAFE\u0301" }) {
        SCOPED_TRACE(name);
        expectRefused(store, VeskoError::duplicateProject, [&] { store.createProject(name); });
        expectRefused(
            store, VeskoError::duplicateProject, [&] { store.renameProject(project.id, name); });
    }
    EXPECT_NO_THROW(store.createProject("Cafe")) << "accents count";
}

TEST_F(LibraryStoreProjectsTest, RenameProjectChangesTheNameAlone)
{
    auto project = store.createProject("Work");
    const auto other = store.createProject("other");
    clock.turn(1min);
    for (const auto* name : { "WORK", "WORK", "  Leisure " }) {
        store.renameProject(project.id, name);
        project.name = trimmed(name);
        EXPECT_EQ(projects()[0], project);
        EXPECT_EQ(projects()[1], other);
        EXPECT_EQ(saved(), onDisk(store.snapshot()));
    }
}

TEST_F(LibraryStoreProjectsTest, TheNameIsLookedAtBeforeTheProject)
{
    expectRefused(
        store, VeskoError::notFound, [&] { store.renameProject(Uuid::random(), "name"); });
    expectRefused(
        store, VeskoError::invalidProject, [&] { store.renameProject(Uuid::random(), " "); });
    store.createProject("Work");
    expectRefused(
        store, VeskoError::notFound, [&] { store.renameProject(Uuid::random(), "Work"); });
}

} // namespace
} // namespace vesko

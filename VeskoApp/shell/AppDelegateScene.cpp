// What the program shows when it is run to be photographed.

#include "VeskoApp/shell/AppDelegate.h"

#include "VeskoApp/async/Sleep.h"

#include <string_view>

namespace vesko {

namespace {

constexpr int mostLooks = 50;
constexpr double betweenLooks = 0.1; // seconds

} // namespace

AppDelegate::Demo AppDelegate::Demo::from(
    const char* dataRoot, const char* scene, const char* appearance)
{
    Demo demo;
    // A relative root is none: the library that is open then is the user's own.
    if (!dataRoot || *dataRoot != '/' || !scene)
        return demo;
    demo.scene = DemoScene::fromText(scene);
    const std::string_view look = appearance ? appearance : "";
    if (look == "dark" || look == "light")
        demo.dark = look == "dark";
    return demo;
}

Task<> AppDelegate::showScene(DemoScene scene)
{
    for (int looks = 0; !m_model.library().ready() && looks < mostLooks; ++looks)
        co_await sleepFor(m_platform.clock, betweenLooks);
    if (!m_model.library().ready())
        co_return;
    switch (scene.kind) {
    case DemoScene::note:
        showLibrary();
        selectNote(scene.noteIndex);
        break;
    case DemoScene::project:
        showLibrary();
        if (const auto& projects = m_model.library().contents().projects;
            scene.projectIndex < projects.size())
            m_model.selection().setSelectedProjectID(projects[scene.projectIndex].id);
        selectNote(scene.noteIndex);
        break;
    case DemoScene::dictionary:
        openDictionary();
        break;
    case DemoScene::settings:
        showSettings();
        break;
    }
}

void AppDelegate::selectNote(std::size_t index)
{
    const auto& notes = m_model.selection().visibleNotes();
    if (index < notes.size())
        m_model.selection().setSelectedNoteID(notes[index].id);
}

} // namespace vesko

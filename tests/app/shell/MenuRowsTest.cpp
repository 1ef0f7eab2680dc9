#include "VeskoApp/shell/MenuRows.h"

#include "VeskoApp/shell/AppDelegate.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

namespace vesko {
namespace {

TEST(MenuRows, HoldEveryItemWithItsKeys)
{
    const struct {
        std::string_view title;
        std::string_view keys;
        std::string_view action;
    } items[] = {
        { "About Vesko", "", "about" },
        { "Diagnose…", "", "diagnose" },
        { "Welcome Tour…", "", "openTour" },
        { "Settings…", "Ctrl+,", "openSettings" },
        { "Quit Vesko", "Ctrl+Q", "quit" },
        { "Open Vesko", "Ctrl+1", "openLibrary" },
        { "New note", "Ctrl+N", "newNote" },
        { "Dictionary…", "", "openDictionary" },
        { "Export library…", "", "exportLibrary" },
        { "Import library…", "", "importLibrary" },
        { "Undo", "Ctrl+Z", "undo" },
        { "Redo", "Ctrl+Shift+Z", "redo" },
        { "Cut", "Ctrl+X", "cut" },
        { "Copy", "Ctrl+C", "copy" },
        { "Paste", "Ctrl+V", "paste" },
        { "Select All", "Ctrl+A", "selectAll" },
    };
    std::size_t found = 0;
    for (const auto& item : items) {
        const auto row = std::ranges::find(menuRows(), item.title, &MenuRow::title);
        ASSERT_NE(row, menuRows().end()) << item.title;
        EXPECT_EQ(row->keys, item.keys) << item.title;
        EXPECT_EQ(row->action, item.action) << item.title;
        ++found;
    }
    EXPECT_EQ(std::ranges::count_if(
                  menuRows(), [](const MenuRow& row) { return std::string_view(row.title) != ""; }),
        static_cast<std::ptrdiff_t>(found));
}

TEST(MenuRows, NameOnlyActionsThatTheDelegateHas)
{
    const auto& delegate = AppDelegate::staticMetaObject;
    for (const auto& row : menuRows()) {
        const std::string_view action = row.action;
        const bool isOfTheWindow = action == "about" || action == "diagnose";
        if (std::string_view(row.menu) != "Edit" && action != "" && !isOfTheWindow)
            EXPECT_GE(delegate.indexOfMethod((std::string(action) + "()").c_str()), 0) << action;
    }
}

} // namespace
} // namespace vesko

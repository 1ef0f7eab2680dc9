#pragma once

#include <span>

namespace vesko {

// An item of the program's menu. On this desktop all of it stands in one menu of each window.
struct MenuRow {
    const char* menu; // the group that it belongs to
    const char* title; // a key of the catalogues; empty for a line
    const char* keys; // as Qt names them; empty for none
    const char*
        action; // of AppDelegate, of the window ("about", "diagnose") or of the text with the focus
};

std::span<const MenuRow> menuRows();

} // namespace vesko

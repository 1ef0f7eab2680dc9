#include "VeskoApp/shell/MenuRows.h"

#include "VeskoApp/shell/AppDelegate.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <QKeySequence>

#include <array>

namespace vesko {

namespace {

constexpr std::array rows{
    MenuRow{ "File", L10N_KEY("Vesko", "Open Vesko"), "Ctrl+1", "openLibrary" },
    MenuRow{ "File", L10N_KEY("Vesko", "New note"), "Ctrl+N", "newNote" },
    MenuRow{ "File", L10N_KEY("Vesko", "Dictionary…"), "", "openDictionary" },
    MenuRow{ "File", "", "", "" },
    MenuRow{ "File", L10N_KEY("Vesko", "Export library…"), "", "exportLibrary" },
    MenuRow{ "File", L10N_KEY("Vesko", "Import library…"), "", "importLibrary" },
    MenuRow{ "File", "", "", "" },
    MenuRow{ "Edit", L10N_KEY("Vesko", "Undo"), "Ctrl+Z", "undo" },
    MenuRow{ "Edit", L10N_KEY("Vesko", "Redo"), "Ctrl+Shift+Z", "redo" },
    MenuRow{ "Edit", "", "", "" },
    MenuRow{ "Edit", L10N_KEY("Vesko", "Cut"), "Ctrl+X", "cut" },
    MenuRow{ "Edit", L10N_KEY("Vesko", "Copy"), "Ctrl+C", "copy" },
    MenuRow{ "Edit", L10N_KEY("Vesko", "Paste"), "Ctrl+V", "paste" },
    MenuRow{ "Edit", L10N_KEY("Vesko", "Select All"), "Ctrl+A", "selectAll" },
    MenuRow{ "Edit", "", "", "" },
    MenuRow{ "Vesko", L10N_KEY("Vesko", "Welcome Tour…"), "", "openTour" },
    MenuRow{ "Vesko", L10N_KEY("Vesko", "Settings…"), "Ctrl+,", "openSettings" },
    MenuRow{ "Vesko", L10N_KEY("Vesko", "Diagnose…"), "", "diagnose" },
    MenuRow{ "Vesko", L10N_KEY("Vesko", "About Vesko"), "", "about" },
    MenuRow{ "Vesko", "", "", "" },
    MenuRow{ "Vesko", L10N_KEY("Vesko", "Quit Vesko"), "Ctrl+Q", "quit" },
};

} // namespace

std::span<const MenuRow> menuRows()
{
    return rows;
}

QVariantList AppDelegate::menu() const
{
    QVariantList shown;
    for (const auto& row : rows) {
        const auto keys = QString::fromLatin1(row.keys);
        shown << QVariantMap{
            { QStringLiteral("title"), translated(row.title) },
            { QStringLiteral("keys"), QKeySequence(keys).toString(QKeySequence::NativeText) },
            { QStringLiteral("sequence"), keys },
            { QStringLiteral("action"), QString::fromLatin1(row.action) },
            { QStringLiteral("ofText"), qstrcmp(row.menu, "Edit") == 0 },
        };
    }
    return shown;
}

QString AppDelegate::about() const
{
    const auto& build = m_model.analytics().bundle();
    return translated(L10N_KEY("Vesko", "Version %1, build %2"))
               .arg(QString::fromStdString(build.version), QString::fromStdString(build.build))
        + u'\n' + translated(L10N_KEY("Vesko", "MIT License"))
        + QStringLiteral("\n© 2026 The Vesko developers");
}

} // namespace vesko

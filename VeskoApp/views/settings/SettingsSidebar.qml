pragma ComponentBehavior: Bound

import QtQuick

// The pages of the settings, or the rows of all of them that have the words of a search. Only icons
// where there is little room.
Rectangle {
    id: sidebar

    required property var pages
    required property SettingsPage current
    required property string search
    property bool narrow: false
    readonly property bool searching: search.trim().length > 0
    property var found: []

    signal pageChosen(SettingsPage page)
    signal rowChosen(SettingsPage page, Item row)

    // With all of the words, in any order.
    function rowsWith(text) {
        const words = text.trim().toLocaleLowerCase().split(/\s+/);
        let rows = [];
        for (let i = 0; i < pages.length; ++i)
            if (pages[i].offered)
                rows = rows.concat(pages[i].rows());
        return rows.filter(row => {
            const said = row.words.join("\n").toLocaleLowerCase();
            return words.every(word => said.includes(word));
        });
    }
    // Its page may have made it anew since it was found.
    function choose(row) {
        const now = row.page.rows().find(one => one.name === row.name);
        if (now)
            rowChosen(now.page, now.item);
    }
    function chooseFirst() {
        if (found.length > 0)
            choose(found[0]);
    }
    // The keyboard goes so many rows down, to the first or the last one at most; of the pages, the
    // one it comes to is shown.
    function move(by) {
        const shown = Array.from(rows.children).filter(child => child instanceof ListRow && child.visible);
        const at = shown.findIndex(row => row.activeFocus);
        const row = shown[Math.max(0, Math.min(shown.length - 1, at + by))];
        row?.forceActiveFocus(Qt.TabFocusReason);
        if (row && !searching)
            pageChosen(row.modelData);
    }

    onSearchChanged: found = searching ? rowsWith(search) : []
    implicitWidth: narrow && !searching ? 56 : 250
    color: Theme.sidebar

    Rectangle {
        anchors.right: parent.right
        width: 1
        height: parent.height
        color: Theme.hairline
    }
    ScrollPage {
        anchors.fill: parent
        anchors.margins: 8
        contentHeight: rows.height
        Accessible.role: Accessible.List
        Accessible.name: qsTranslate("Vesko", "Settings")

        Column {
            id: rows

            width: parent.width
            spacing: 2
            Keys.onPressed: event => event.accepted = ListKeys.move(event, 8, by => sidebar.move(by))

            Repeater {
                model: sidebar.searching ? [] : Array.from(sidebar.pages).filter(page => page.offered)

                ListRow {
                    id: row

                    required property SettingsPage modelData

                    width: rows.width
                    implicitHeight: Math.max(Theme.control, implicitContentHeight + 14)
                    lines: 2
                    chosen: modelData === sidebar.current
                    iconName: modelData.iconName
                    name: modelData.name
                    text: sidebar.narrow ? "" : name
                    onClicked: sidebar.pageChosen(modelData)

                    Hint {
                        text: row.name
                        shown: sidebar.narrow && row.hovered
                    }
                }
            }
            Repeater {
                model: sidebar.found

                ListRow {
                    id: result

                    required property var modelData

                    width: rows.width
                    implicitHeight: implicitContentHeight + topPadding + bottomPadding
                    topPadding: 6
                    bottomPadding: 6
                    name: modelData.name
                    detail: modelData.page.name
                    onClicked: sidebar.choose(modelData)

                    contentItem: Column {
                        Words {
                            width: parent.width
                            text: result.name
                            wrapMode: Text.Wrap
                            Accessible.ignored: true
                        }
                        Words {
                            width: parent.width
                            text: result.detail
                            color: Theme.quiet
                            font.pixelSize: Theme.small
                            wrapMode: Text.Wrap
                            Accessible.ignored: true
                        }
                    }
                }
            }
        }
    }
    SettingNote {
        id: nothing

        x: 8
        y: 8
        width: parent.width - 16
        visible: sidebar.searching && sidebar.found.length === 0
        text: qsTranslate("Vesko", "No setting has these words")
        Accessible.role: Accessible.StatusBar
    }
    Announcement {
        text: nothing.visible ? nothing.text : ""
    }
}

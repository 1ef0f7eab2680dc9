import QtQuick

// A page of the settings. Made when it is first shown or searched; while another page is shown it is
// in no window, where what it shows by its own choice can still be told from what it hides.
OnDemand {
    id: page

    property string name
    property string iconName
    property bool offered: true

    // What can be set here, in its order: what it is called, all words it can be found by, and where.
    function rows() {
        const found = [];
        collect(get(), name, 0, found);
        return found;
    }
    // A note belongs to the row before it, unless that is of another section.
    function collect(item, heading, first, found) {
        if (!item.visible)
            return;
        if (item instanceof SettingNote) {
            if (found.length > first)
                found[found.length - 1].words.push(item.text);
            return;
        }
        const isRow = item instanceof SettingLine || item instanceof Toggle || item instanceof PushButton
            || item instanceof TextBox || item.Accessible.role === Accessible.ListItem;
        if (isRow) {
            const row = item instanceof SettingLine ? item.name : item.Accessible.name;
            found.push({ name: row, words: [row, item.Accessible.description, name, heading], page: page, item: item });
            return;
        }
        const begins = item instanceof Section;
        for (const child of Array.from(item.children))
            collect(child, begins ? item.title : heading, begins ? found.length : first, found);
    }
}

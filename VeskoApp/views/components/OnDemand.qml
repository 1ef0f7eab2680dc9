import QtQuick

// A menu, a sheet, a hint: what is in a window and mostly never shown. Made when it is first asked
// for, and kept.
Item {
    id: owner

    default property Component made
    property QtObject instance: null

    function get() {
        if (!instance)
            instance = made.createObject(owner);
        return instance;
    }
}

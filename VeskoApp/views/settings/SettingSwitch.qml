import QtQuick

// A setting that is on or off. Shows what is in force, whatever the user did to the switch.
Toggle {
    id: control

    property bool value
    signal switched(bool on)

    checked: value
    onToggled: {
        switched(checked);
        checked = Qt.binding(() => value);
    }
}

pragma Singleton

import QtQuick

// The look of every window, in one place; light or dark with the desktop.
QtObject {
    readonly property SystemPalette desktop: SystemPalette { }
    readonly property bool dark: desktop.window.hslLightness < 0.5

    readonly property color accent: dark ? Qt.rgba(0.46, 0.88, 0.94, 1) : Qt.rgba(0, 0.46, 0.6, 1)
    readonly property color surface: dark ? "#1f2427" : "#ffffff"
    readonly property color outline: dark ? "#3a4247" : "#d5dadd"
    readonly property color text: dark ? "#eef2f3" : "#182023"
    readonly property color quiet: dark ? "#a9b4b8" : "#566268"
    readonly property color alarm: dark ? "#ffb4a6" : "#a32a14"

    readonly property string family: "Inter"
    readonly property int body: 14
    readonly property int small: 12

    readonly property int space: 8
    readonly property int radius: 14
}

pragma Singleton

import QtQuick

// The look of every window, in one place; light or dark with the desktop. Texts on any of the
// surfaces have a contrast of at least 4.5 to 1.
QtObject {
    readonly property SystemPalette desktop: SystemPalette { }
    readonly property bool dark: desktop.window.hslLightness < 0.5
    // Set by the program as the desktop has it.
    property bool reduceMotion: false

    // The status icon's own blue is the one accent.
    readonly property color accent: dark ? Qt.rgba(0.46, 0.88, 0.94, 1) : Qt.rgba(0, 0.46, 0.6, 1)
    readonly property color accentInk: dark ? "#052a31" : "#ffffff"
    readonly property color captureInk: accent

    readonly property color window: dark ? "#171b1d" : "#ffffff"
    readonly property color sidebar: dark ? "#1e2326" : "#f4f6f7"
    readonly property color surface: dark ? "#23292c" : "#ffffff" // what floats above a window
    readonly property color field: dark ? "#262d30" : "#eef1f2"
    readonly property color outline: dark ? "#3a4247" : "#d5dadd"
    readonly property color hairline: dark ? "#2b3235" : "#e6eaec"
    readonly property color hover: dark ? Qt.rgba(1, 1, 1, 0.06) : Qt.rgba(0, 0.1, 0.15, 0.05)
    readonly property color press: dark ? Qt.rgba(1, 1, 1, 0.11) : Qt.rgba(0, 0.1, 0.15, 0.1)
    readonly property color chosen: Qt.rgba(accent.r, accent.g, accent.b, dark ? 0.17 : 0.11)
    readonly property color shade: dark ? Qt.rgba(0, 0, 0, 0.55) : Qt.rgba(0.06, 0.1, 0.12, 0.35)

    readonly property color text: dark ? "#eef2f3" : "#182023"
    readonly property color quiet: dark ? "#a9b4b8" : "#566268"
    readonly property color alarm: dark ? "#ffb4a6" : "#a32a14"
    readonly property color alarmSurface: dark ? "#3a2521" : "#fdf0ed"
    readonly property color notice: dark ? "#1f3337" : "#e8f3f6"

    readonly property string family: "Inter"
    readonly property int title: 26
    readonly property int heading: 17
    readonly property int body: 14
    readonly property int small: 12
    readonly property real lineHeight: 1.4 // of running text

    readonly property int space: 8
    readonly property int radius: 14 // of what floats
    readonly property int corner: 8 // of a control
    readonly property int control: 34 // height

    readonly property int swift: reduceMotion ? 0 : 110 // milliseconds
    readonly property int calm: reduceMotion ? 0 : 190
}

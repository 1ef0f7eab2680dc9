pragma Singleton

import QtQuick

// The look of every window, in one place; light or dark with the desktop, and with more contrast
// for who asked the desktop for it. Texts have a contrast of at least 4.5 to 1 to what they stand
// on; what a control is known by, and where the keyboard is, 3 to 1.
QtObject {
    readonly property SystemPalette desktop: SystemPalette { }
    readonly property bool dark: desktop.window.hslLightness < 0.5
    // Set by the program as the desktop has it.
    property bool reduceMotion: false
    property bool highContrast: false

    // The status icon's own blue is the one accent.
    readonly property string accentName: dark ? highContrast ? "#a8f2fb" : "#75e0ef"
                                              : highContrast ? "#003c50" : "#00708f"
    readonly property color accent: accentName
    readonly property color accentInk: dark ? highContrast ? "#000000" : "#052a31" : "#ffffff"
    readonly property color captureInk: accent

    readonly property color window: dark ? highContrast ? "#000000" : "#171b1d" : "#ffffff"
    readonly property color sidebar: dark ? highContrast ? "#000000" : "#1e2326"
                                          : highContrast ? "#ffffff" : "#f4f6f7"
    // What floats above a window.
    readonly property color surface: dark ? highContrast ? "#000000" : "#23292c" : "#ffffff"
    readonly property color field: dark ? highContrast ? "#000000" : "#262d30"
                                        : highContrast ? "#ffffff" : "#eef1f2"
    readonly property color edge: dark ? highContrast ? "#ffffff" : "#7c888e"
                                       : highContrast ? "#000000" : "#747f84" // of a control
    readonly property color outline: highContrast ? edge : dark ? "#3a4247" : "#d5dadd"
    readonly property color hairline: highContrast ? edge : dark ? "#2b3235" : "#e6eaec"
    readonly property color hover: dark ? Qt.rgba(1, 1, 1, 0.06) : Qt.rgba(0, 0.1, 0.15, 0.05)
    readonly property color press: dark ? Qt.rgba(1, 1, 1, 0.11) : Qt.rgba(0, 0.1, 0.15, 0.1)
    readonly property color chosen: Qt.rgba(accent.r, accent.g, accent.b, dark ? 0.15 : 0.1)
    readonly property color found: Qt.rgba(accent.r, accent.g, accent.b, dark ? 0.35 : 0.22) // in a text
    readonly property color shade: dark ? Qt.rgba(0, 0, 0, 0.55) : Qt.rgba(0.06, 0.1, 0.12, 0.35)

    readonly property color text: dark ? highContrast ? "#ffffff" : "#eef2f3"
                                       : highContrast ? "#000000" : "#182023"
    readonly property color quiet: dark ? highContrast ? "#ffffff" : "#b4bec2"
                                        : highContrast ? "#000000" : "#566268"
    readonly property color alarm: dark ? highContrast ? "#ffd2c9" : "#ffb4a6"
                                        : highContrast ? "#7a1200" : "#a32a14"
    readonly property color alarmInk: dark ? highContrast ? "#000000" : "#3d0f06" : "#ffffff"
    readonly property color alarmSurface: dark ? highContrast ? "#000000" : "#3a2521"
                                               : highContrast ? "#ffffff" : "#fdf0ed"
    readonly property color notice: dark ? highContrast ? "#000000" : "#1f3337"
                                         : highContrast ? "#ffffff" : "#e8f3f6"

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

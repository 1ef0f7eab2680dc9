pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts

// A message that stays until it is dealt with, with the buttons that deal with it. An alarm says
// that something went wrong, a notice that something could be better.
Rectangle {
    id: banner

    property string text
    property bool alarm: true
    property string news: alarm ? "" : text // said once; what went wrong, the floating control says
    default property alias actions: actions.data

    implicitHeight: row.implicitHeight + 2 * Theme.space
    radius: Theme.corner
    color: alarm ? Theme.alarmSurface : Theme.notice
    Accessible.role: alarm ? Accessible.AlertMessage : Accessible.StatusBar
    Accessible.name: text

    Announcement {
        parent: banner.Window.contentItem // while the banner can't be seen, nothing in it can be said
        text: banner.news
    }
    RowLayout {
        id: row

        anchors.fill: parent
        anchors.leftMargin: 12
        anchors.rightMargin: 6
        spacing: 10

        Icon {
            name: banner.alarm ? "alert" : "info"
            color: banner.alarm ? Theme.alarm : Theme.accent
        }
        Words {
            Layout.fillWidth: true
            text: banner.text
            color: banner.alarm ? Theme.alarm : Theme.text
            wrapMode: Text.Wrap
        }
        Row {
            id: actions

            spacing: 4
        }
    }
}

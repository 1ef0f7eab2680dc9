import QtQuick

// One sentence, for who would else be left without a word. Nothing of the program stands behind it.
Window {
    id: window

    required property string text

    title: "Vesko"
    color: Theme.window
    width: 420
    height: Math.ceil(words.implicitHeight) + close.height + 72
    minimumWidth: width
    maximumWidth: width
    minimumHeight: height
    maximumHeight: height

    Shortcut {
        sequence: "Ctrl+W"
        onActivated: window.close()
    }
    Words {
        id: words

        x: 24
        y: 24
        width: parent.width - 2 * x
        text: window.text
        lineHeight: Theme.lineHeight
        wrapMode: Text.Wrap
    }
    PushButton {
        id: close

        anchors.right: words.right
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 24
        text: qsTranslate("Vesko", "Close")
        prominent: true
        focus: true
        onClicked: window.close()
        Keys.onEscapePressed: window.close()
    }
}

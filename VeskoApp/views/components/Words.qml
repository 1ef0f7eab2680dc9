import QtQuick

// A text of the program or the user's, never read as markup.
Text {
    color: Theme.text
    font.family: Theme.family
    font.pixelSize: Theme.body
    textFormat: Text.PlainText
    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.ignored: text.length === 0
}

import QtQuick

// What a setting means, below it. A paragraph, since a screen reader that comes to a section reads all
// of its labels.
Words {
    font.pixelSize: Theme.small
    color: Theme.quiet
    lineHeight: Theme.lineHeight
    wrapMode: Text.Wrap
    visible: text.length > 0
    Accessible.role: Accessible.Paragraph
}

import QtQuick

// What a setting means, below it.
Words {
    font.pixelSize: Theme.small
    color: Theme.quiet
    lineHeight: Theme.lineHeight
    wrapMode: Text.Wrap
    visible: text.length > 0
}

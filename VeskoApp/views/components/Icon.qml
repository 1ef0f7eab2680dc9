import QtQuick
import Vesko.Views

// One of the drawings in icons/, in any colour. Says nothing to a screen reader: whoever shows it
// does.
Image {
    property alias name: drawing.name
    property alias color: drawing.color
    property int size: 18

    source: drawing.url
    sourceSize.width: size
    sourceSize.height: size
    width: size
    height: size
    opacity: enabled ? 1 : 0.45
    Accessible.ignored: true

    IconSource {
        id: drawing

        color: Theme.quiet
    }
}

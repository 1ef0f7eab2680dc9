import QtQuick

// One of the drawings in icons/, in any colour. Says nothing to a screen reader: whoever shows it
// does.
Image {
    property string name
    property color color: Theme.quiet
    property int size: 18

    source: name ? `image://icon/${name}?${color}` : ""
    sourceSize.width: size
    sourceSize.height: size
    width: size
    height: size
    opacity: enabled ? 1 : 0.45
    Accessible.ignored: true
}

import QtQuick

// A setting that is a text.
SettingLine {
    id: line

    property string value
    signal edited(string value)

    TextBox {
        width: 250
        name: line.name
        onTextEdited: line.edited(text)

        Binding on text {
            value: line.value
        }
    }
}

import QtQuick

// A setting that is one of several choices, rows with "tag" and "name".
SettingLine {
    id: line

    property var choices: []
    property string value
    signal chosen(string tag)

    Picker {
        width: 250
        name: line.name
        textRole: "name"
        choices: line.choices
        currentIndex: line.choices.findIndex(choice => choice.tag === line.value)
        onActivated: index => line.chosen(line.choices[index].tag)
    }
}

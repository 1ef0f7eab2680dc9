import QtQuick

// A setting that is one of several choices, rows with "tag" and "name".
SettingLine {
    id: line

    property var choices: []
    property string value
    signal chosen(string tag)

    // A list that says the same keeps the picker as it is.
    function fit() {
        if (JSON.stringify(choices) !== JSON.stringify(picker.model ?? null))
            picker.model = choices;
        picker.currentIndex = choices.findIndex(choice => choice.tag === value);
    }

    onChoicesChanged: fit()
    onValueChanged: fit()
    Component.onCompleted: fit()

    Picker {
        id: picker

        width: 250
        name: line.name
        textRole: "name"
        onActivated: index => line.chosen(line.choices[index].tag)
    }
}

#!/usr/bin/python3
"""A window of Qt 5 with a line and a box that can be written in."""

from PyQt5.QtWidgets import QApplication, QComboBox, QLineEdit, QVBoxLayout, QWidget

application = QApplication([])
window = QWidget(windowTitle="Fields")
fields = QVBoxLayout(window)
box = QComboBox(editable=True)
box.lineEdit().setAccessibleName("box")
fields.addWidget(QLineEdit(accessibleName="line"))
fields.addWidget(box)
window.resize(400, 200)
window.show()
application.exec()

#!/usr/bin/python3
"""A window of a toolkit that tells nothing of itself, with a line in it."""

import tkinter

window = tkinter.Tk()
line = tkinter.Entry(window, width=40)
line.pack(padx=40, pady=40)
line.focus_force()
window.mainloop()

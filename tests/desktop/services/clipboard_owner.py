#!/usr/bin/python3
"""A program of GTK that has copied a picture, which it offers in every form that GTK knows."""

import gi

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, GdkPixbuf, Gtk  # noqa: E402

picture = GdkPixbuf.Pixbuf.new(GdkPixbuf.Colorspace.RGB, False, 8, 640, 480)
picture.fill(0x336699FF)
Gtk.Clipboard.get(Gdk.SELECTION_CLIPBOARD).set_image(picture)
Gtk.main()

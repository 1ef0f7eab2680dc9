"""The windows of a sway session, by its own account."""

import json
import os
import subprocess


def here():
    return "SWAYSOCK" in os.environ


def ask(*command):
    told = subprocess.run(["swaymsg", "--raw", *command], stdout=subprocess.PIPE, check=True)
    return json.loads(told.stdout)


def _views(node):
    if node.get("pid"):
        yield node
    for child in node.get("nodes", []) + node.get("floating_nodes", []):
        yield from _views(child)


def views():
    """The windows, each with "pid", "focused" and "rect"."""
    return list(_views(ask("--type", "get_tree")))


def active_pid():
    return next((view["pid"] for view in views() if view["focused"]), 0)


def place(pid):
    """x and y of the process's window on the screen."""
    rect = next(view["rect"] for view in views() if view["pid"] == pid)
    return rect["x"], rect["y"]


def raise_window(pid):
    ask(f"[pid={pid}] focus")


def bind(keys, command, *options):
    """The lines that a user would put into the configuration."""
    ask(" ".join(["bindsym", *options, keys, "exec", command]))


def screenshot(path):
    subprocess.run(["grim", path], check=True)

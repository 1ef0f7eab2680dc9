"""The settings file, written without the program's help."""

import os
import struct


def path():
    return os.path.join(os.environ["XDG_CONFIG_HOME"], "vesko", "settings.cbor")


def _head(kind, size):
    if size < 24:
        return bytes([kind << 5 | size])
    if size < 256:
        return bytes([kind << 5 | 24, size])
    return bytes([kind << 5 | 25]) + size.to_bytes(2, "big")


def _encoded(value):
    if isinstance(value, bool):
        return b"\xf5" if value else b"\xf4"
    if isinstance(value, float):
        return b"\xfb" + struct.pack(">d", value)
    if isinstance(value, list):
        return _head(4, len(value)) + b"".join(map(_encoded, value))
    if isinstance(value, bytes):
        return _head(2, len(value)) + value
    text = value.encode()
    return _head(3, len(text)) + text


def write(**values):
    """Replaces all settings by these texts, bytes, booleans, and lists of numbers."""
    os.makedirs(os.path.dirname(path()), mode=0o700, exist_ok=True)
    with open(path(), "wb") as file:
        file.write(_head(5, len(values)) + b"".join(
            _encoded(name) + _encoded(value) for name, value in sorted(values.items())))


def remove():
    if os.path.exists(path()):
        os.remove(path())


def _decoded(data, at):
    """A value of those that the program writes, and where the next one begins."""
    kind, size, at = data[at] >> 5, data[at] & 31, at + 1
    if kind == 7 and size in (20, 21):
        return size == 21, at
    if kind == 7:
        return struct.unpack(">d", data[at:at + 8])[0], at + 8
    if size >= 24:
        width = 1 << size - 24
        size, at = int.from_bytes(data[at:at + width], "big"), at + width
    if kind in (2, 3):
        content = data[at:at + size]
        return content.decode() if kind == 3 else content, at + size
    values = []
    for _ in range(size * (2 if kind == 5 else 1)):
        value, at = _decoded(data, at)
        values.append(value)
    return (dict(zip(values[::2], values[1::2])) if kind == 5 else values), at


def read():
    """All settings, as the program has written them."""
    with open(path(), "rb") as file:
        return _decoded(file.read(), 0)[0]

"""The settings file, written without the program's help."""

import os


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
    if isinstance(value, bytes):
        return _head(2, len(value)) + value
    text = value.encode()
    return _head(3, len(text)) + text


def write(**values):
    """Replaces all settings by these texts, bytes and booleans."""
    os.makedirs(os.path.dirname(path()), mode=0o700, exist_ok=True)
    with open(path(), "wb") as file:
        file.write(_head(5, len(values)) + b"".join(
            _encoded(name) + _encoded(value) for name, value in sorted(values.items())))


def remove():
    if os.path.exists(path()):
        os.remove(path())

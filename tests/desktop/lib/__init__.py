"""What the desktop tests share: hands, eyes, ears and a voice in a private desktop session."""

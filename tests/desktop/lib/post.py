"""A post office that a mail program asks for letters, and which lets no one in."""

import socket
import threading


class PostOffice:
    def __init__(self):
        self._listening = socket.create_server(("127.0.0.1", 0))
        self.port = self._listening.getsockname()[1]
        self._open = threading.Event()
        threading.Thread(target=self._serve, daemon=True).start()

    def greet(self):
        """Who has called is spoken to from now on."""
        self._open.set()

    def close(self):
        self._open.set()
        self._listening.shutdown(socket.SHUT_RDWR)
        self._listening.close()

    def _serve(self):
        try:
            while True:
                caller = self._listening.accept()[0]
                threading.Thread(target=self._talk, args=(caller,), daemon=True).start()
        except OSError:
            pass  # it is closed

    def _talk(self, caller):
        self._open.wait()
        answers = {b"CAPA": b"+OK\r\nUSER\r\n.\r\n", b"USER": b"+OK\r\n"}
        try:
            with caller, caller.makefile("rb") as said:
                caller.sendall(b"+OK\r\n")
                for line in said:
                    caller.sendall(answers.get(line[:4], b"-ERR\r\n"))
        except OSError:
            pass  # the caller has gone

"""A speech service on loopback that stands in for OpenRouter: it answers what a test tells it to,
when the test lets it."""

import http.server
import json
import threading


class OpenRouter:
    def __init__(self):
        self._text = ""
        self._requests = []
        self._unanswered = 0
        self._open = threading.Event()
        self._open.set()
        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), self._handler())
        self._server.daemon_threads = True
        threading.Thread(target=self._server.serve_forever, daemon=True).start()

    @property
    def url(self):
        return f"http://127.0.0.1:{self._server.server_port}/api/v1/"

    def answer(self, text):
        """From now on this is what was said."""
        self._text = text
        self._open.set()

    def hold(self):
        """Keeps answers back until release()."""
        self._open.clear()

    def release(self):
        self._open.set()

    def waiting(self):
        """Whether somebody has asked and not been answered."""
        return self._unanswered > 0

    def requests(self):
        """Each request: method, path, headers (lower-case names) and the decoded body."""
        return list(self._requests)

    def stop(self):
        self._open.set()
        self._server.shutdown()
        self._server.server_close()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.stop()

    def _handler(service):
        class Handler(http.server.BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"

            def do_POST(self):
                body = self.rfile.read(int(self.headers["Content-Length"]))
                service._requests.append({
                    "method": self.command, "path": self.path, "body": json.loads(body),
                    "headers": {name.lower(): value for name, value in self.headers.items()}})
                service._unanswered += 1
                service._open.wait(timeout=60)
                service._unanswered -= 1
                answer = json.dumps({"text": service._text, "usage": {"cost": 0.0004}}).encode()
                self.send_response(200)
                self.send_header("Content-Type", "application/json")
                self.send_header("Content-Length", str(len(answer)))
                self.send_header("X-Generation-Id", f"gen-{len(service._requests)}")
                self.end_headers()
                self.wfile.write(answer)

            def log_message(self, *_):
                pass

        return Handler

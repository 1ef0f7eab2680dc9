#!/usr/bin/python3
"""The account service, and what of Google a sign-in needs, on 127.0.0.1.

    account.py [--port PORT] [--client ID] [--show-codes]

It prints its port and a line end, then serves until it is ended. The base URL for Vesko is
http://127.0.0.1:PORT/, Google's two addresses are .../google/auth and .../google/token. With
--show-codes each code that would go out by email is printed, for who signs in by hand.

The service proper, as Vesko knows it:

POST /v1/auth/email/start, POST /v1/auth/email/verify, POST /v1/auth/google, POST /v1/auth/apple,
POST /v1/auth/logout, GET /v1/account, DELETE /v1/account
    A code works for 10 minutes and five attempts; an address gets three codes in that time. A
    session lasts 30 days. A refusal is {"error": CODE}.

Google:

GET /google/auth     A page with one link, "Continue", which leads back with a code; ?error leads
                     back without. The link is followed by itself if `follows` is set.
POST /google/token   Changes a code into an identity token, once, if the proof fits the challenge.

For tests:

POST /control   JSON; sets any of the following, and answers with all of them:
      now      seconds by which the clock of the service is ahead      0
      refuse   {"/v1/PATH": [STATUS, BODY], ...}: answers instead      {}
      follows  Google's page leads back by itself                      true
      says     what Google's page says of the user                     "code"
               ("code", "error", "foreign" for a code with a foreign state)
GET /codes      {ADDRESS: CODE}: the latest email
GET /requests   {"requests": [{"method", "path", "status", "authorized"}, ...]}
GET /state      {"sessions": N, "accounts": [ADDRESS, ...]}
"""

import argparse
import base64
import datetime
import hashlib
import html
import json
import secrets
import threading
import time
import urllib.parse
import uuid
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer

CODE_LIFE, CODE_ATTEMPTS, CODES_AT_ONCE = 600, 5, 3
SESSION_LIFE = 30 * 24 * 3600


class Refusal(Exception):
    def __init__(self, status, code):
        super().__init__(code)
        self.status, self.code = status, code


def need(body, *keys):
    """The texts of the body under these keys; it may hold no others."""
    if not isinstance(body, dict) or set(body) != set(keys) \
            or not all(isinstance(body[key], str) for key in keys):
        raise Refusal(400, "bad_request")
    return [body[key] for key in keys]


def challenge(verifier):
    digest = hashlib.sha256(verifier.encode()).digest()
    return base64.urlsafe_b64encode(digest).rstrip(b"=").decode()


class Accounts:
    """All that the service remembers; one request at a time changes it."""

    def __init__(self, client, show_codes):
        self.client = client
        self.show_codes = show_codes
        self.lock = threading.RLock()
        self.settings = {"now": 0, "refuse": {}, "follows": True, "says": "code"}
        self.codes = {}  # address -> [code, expiry, attempts left]
        self.mails = {}  # address -> times of the last emails
        self.accounts = {}  # address -> account
        self.sessions = {}  # token -> (address, expiry)
        self.google_codes = {}  # code -> what it was given for
        self.id_tokens = {}  # token -> (address, nonce)
        self.requests = []

    def now(self):
        return time.time() + self.settings["now"]

    @staticmethod
    def text(seconds):
        moment = datetime.datetime.fromtimestamp(seconds, datetime.timezone.utc)
        return moment.isoformat(timespec="milliseconds").replace("+00:00", "Z")

    def start_email(self, body):
        (address,) = need(body, "email")
        if "@" not in address or address != address.strip().lower():
            raise Refusal(400, "invalid_email")
        recent = [at for at in self.mails.get(address, []) if at > self.now() - CODE_LIFE]
        if len(recent) >= CODES_AT_ONCE:
            raise Refusal(429, "rate_limited")
        self.mails[address] = recent + [self.now()]
        code = f"{secrets.randbelow(1_000_000):06}"
        self.codes[address] = [code, self.now() + CODE_LIFE, CODE_ATTEMPTS]
        if self.show_codes:
            print(f"email to {address}: your code is {code}", flush=True)
        return {}

    def verify_email(self, body):
        address, code = need(body, "email", "code")
        known = self.codes.get(address)
        if not known or known[1] <= self.now():
            self.codes.pop(address, None)
            raise Refusal(400, "code_expired")
        if known[2] == 0:
            raise Refusal(429, "too_many_attempts")
        known[2] -= 1
        if not secrets.compare_digest(known[0], code):
            raise Refusal(401, "invalid_code")
        del self.codes[address]
        return self.session(address, "email")

    def google_page(self, query):
        asked = dict(urllib.parse.parse_qsl(query, strict_parsing=True))
        scheme = ".".join(reversed(self.client.split(".")))
        expected = {"client_id": self.client, "redirect_uri": f"{scheme}:/oauth2redirect",
                    "response_type": "code", "scope": "openid email",
                    "code_challenge_method": "S256", "prompt": "select_account"}
        if any(asked.get(key) != value for key, value in expected.items()) \
                or not all(asked.get(key) for key in ("nonce", "state", "code_challenge")):
            raise Refusal(400, "bad_request")
        answer = {"state": asked["state"]}
        if self.settings["says"] == "error":
            answer["error"] = "access_denied"
        else:
            code = "4/" + secrets.token_urlsafe(24)
            self.google_codes[code] = asked
            answer["code"] = code
        if self.settings["says"] == "foreign":
            answer["state"] = secrets.token_urlsafe(32)
        back = asked["redirect_uri"] + "?" + urllib.parse.urlencode(answer)
        return back, self.settings["follows"]

    def google_token(self, body):
        given = dict(urllib.parse.parse_qsl(body.decode(), strict_parsing=True))
        asked = self.google_codes.pop(given.get("code"), None)
        if not asked or given.get("grant_type") != "authorization_code" \
                or given.get("client_id") != asked["client_id"] \
                or given.get("redirect_uri") != asked["redirect_uri"] \
                or challenge(given.get("code_verifier", "")) != asked["code_challenge"] \
                or set(given) != {"code", "client_id", "code_verifier", "redirect_uri",
                                  "grant_type"}:
            raise Refusal(400, "invalid_grant")
        token = "id." + secrets.token_urlsafe(24)
        self.id_tokens[token] = ("user@gmail.example", asked["nonce"])
        return {"id_token": token, "access_token": "unused", "expires_in": 3599}

    def sign_in_with_google(self, body):
        token, nonce = need(body, "idToken", "nonce")
        address, expected = self.id_tokens.pop(token, (None, None))
        if not address or nonce != expected:
            raise Refusal(401, "unauthorized")
        return self.session(address, "google")

    def sign_in_with_apple(self, body):
        need(body, "identityToken", "nonce")
        raise Refusal(401, "unauthorized")

    def session(self, address, provider):
        account = self.accounts.setdefault(
            address, {"id": str(uuid.uuid4()), "email": address, "providers": [],
                      "createdAt": self.text(self.now())})
        if provider not in account["providers"]:
            account["providers"].append(provider)
        token = "session." + secrets.token_urlsafe(24)
        self.sessions[token] = (address, self.now() + SESSION_LIFE)
        return {"session": {"token": token, "expiresAt": self.text(self.now() + SESSION_LIFE)},
                "account": account}

    def address_of(self, token):
        address, expiry = self.sessions.get(token, (None, 0))
        if expiry <= self.now():
            raise Refusal(401, "unauthorized")
        return address

    def account(self, token):
        return {"account": self.accounts[self.address_of(token)]}

    def log_out(self, token):
        self.address_of(token)
        del self.sessions[token]
        return {}

    def delete_account(self, token):
        address = self.address_of(token)
        del self.accounts[address]
        self.sessions = {kept: value for kept, value in self.sessions.items()
                         if value[0] != address}
        return {}


class Handler(BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    accounts = None  # set before the service starts

    def do_GET(self):
        self.serve()

    def do_POST(self):
        self.serve()

    def do_DELETE(self):
        self.serve()

    def serve(self):
        body = self.rfile.read(int(self.headers.get("Content-Length", "0")))
        path, _, query = self.path.partition("?")
        with self.accounts.lock:
            if not path.startswith(("/v1/", "/google/")):
                self.send_json(*self.for_tests(path, body))
                return
            try:
                if path == "/google/auth":
                    status, back = 200, self.accounts.google_page(query)
                else:
                    status, answer = self.answer(path, body)
            except Refusal as refusal:
                status, answer = refusal.status, {"error": refusal.code}
            except (ValueError, UnicodeDecodeError):
                status, answer = 400, {"error": "bad_request"}
            self.accounts.requests.append({
                "method": self.command, "path": path, "status": status,
                "authorized": "Authorization" in self.headers})
        if path == "/google/auth" and status == 200:
            self.send_page(*back)
        else:
            self.send_json(status, answer)

    def answer(self, path, body):
        accounts = self.accounts
        if path in accounts.settings["refuse"]:
            return accounts.settings["refuse"][path]
        token = self.headers.get("Authorization", "").removeprefix("Bearer ")
        with_token = {("GET", "/v1/account"): accounts.account,
                      ("DELETE", "/v1/account"): accounts.delete_account,
                      ("POST", "/v1/auth/logout"): accounts.log_out}
        with_body = {"/v1/auth/email/start": accounts.start_email,
                     "/v1/auth/email/verify": accounts.verify_email,
                     "/v1/auth/google": accounts.sign_in_with_google,
                     "/v1/auth/apple": accounts.sign_in_with_apple}
        if (self.command, path) in with_token:
            return 200, with_token[self.command, path](token)
        if self.command == "POST" and path == "/google/token":
            return 200, accounts.google_token(body)
        if self.command == "POST" and path in with_body:
            if self.headers.get("Content-Type") != "application/json":
                raise Refusal(400, "bad_request")
            return 200, with_body[path](json.loads(body))
        return 404, {"error": "no_such_path"}

    def for_tests(self, path, body):
        accounts = self.accounts
        if path == "/control":
            changes = json.loads(body)
            if set(changes) - set(accounts.settings):
                return 400, {"error": "unknown key"}
            accounts.settings.update(changes)
            return 200, accounts.settings
        answers = {
            "/codes": {address: code[0] for address, code in accounts.codes.items()},
            "/requests": {"requests": accounts.requests},
            "/state": {"sessions": len(accounts.sessions), "accounts": sorted(accounts.accounts)}}
        return (200, answers[path]) if path in answers else (404, {"error": "no such path"})

    def send_page(self, back, follows):
        script = "<script>document.querySelector('a').click()</script>" if follows else ""
        self.send(200, "text/html; charset=utf-8",
                  f"<!doctype html><title>Google</title><a href=\"{html.escape(back)}\">"
                  f"Continue</a>{script}".encode())

    def send_json(self, status, document):
        raw = document if isinstance(document, str) else json.dumps(document)
        self.send(status, "application/json", raw.encode())

    def send(self, status, kind, data):
        try:
            self.send_response(status)
            self.send_header("Content-Type", kind)
            self.send_header("Content-Length", str(len(data)))
            self.end_headers()
            self.wfile.write(data)
        except (BrokenPipeError, ConnectionResetError):
            self.close_connection = True  # the client gave up waiting, as clients do

    def log_message(self, *_):
        pass


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--port", type=int, default=0)
    parser.add_argument("--client", default="1234-test.apps.googleusercontent.com")
    parser.add_argument("--show-codes", action="store_true")
    options = parser.parse_args()
    Handler.accounts = Accounts(options.client, options.show_codes)
    server = ThreadingHTTPServer(("127.0.0.1", options.port), Handler)
    print(server.server_address[1], flush=True)
    server.serve_forever()


if __name__ == "__main__":
    main()

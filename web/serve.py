#!/usr/bin/env python3
"""Serves a folder of static files on the loopback address, until it is interrupted.

serve.py FOLDER [PORT]     without a port 8080, or when that is taken any free one
"""
import functools
import http.server
import os
import sys


class Handler(http.server.SimpleHTTPRequestHandler):
    extensions_map = {**http.server.SimpleHTTPRequestHandler.extensions_map, ".wasm": "application/wasm",
                      ".js": "text/javascript", ".htm": "text/html; charset=utf-8"}
    encodings = {"br": ".br", "gzip": ".gz"}  # the best first, with the ending of the files that have it
    encoding = None

    def translate_path(self, path):
        file = super().translate_path(path)
        file = os.path.join(file, "index.html") if file.endswith("/") else file
        accepted = [word.split(";")[0].strip() for word in self.headers.get("Accept-Encoding", "").split(",")]
        packed = (name for name, ending in self.encodings.items() if name in accepted and os.path.isfile(file + ending))
        self.encoding = next(packed, None)
        return file + self.encodings.get(self.encoding, "")

    def guess_type(self, path):
        return super().guess_type(path.removesuffix(self.encodings.get(self.encoding, "")))

    def end_headers(self):
        if self.encoding:
            self.send_header("Content-Encoding", self.encoding)
        self.send_header("Vary", "Accept-Encoding")
        self.send_header("Cache-Control", "no-cache")  # the browser asks whether a file is still the same
        super().end_headers()

    def handle(self):
        try:
            super().handle()
        except ConnectionError:
            pass  # the browser has gone elsewhere

    def log_message(self, *_):
        pass


def listen(folder, ports):
    handler = functools.partial(Handler, directory=folder)
    for port in ports:
        try:
            return http.server.ThreadingHTTPServer(("127.0.0.1", port), handler)
        except OSError as error:
            problem = f"port {port}: {error.strerror}"
    sys.exit(problem)


def main():
    if len(sys.argv) not in (2, 3) or not all(port.isdecimal() and int(port) < 65536 for port in sys.argv[2:]):
        sys.exit("usage: serve.py FOLDER [PORT]")
    server = listen(sys.argv[1], [int(port) for port in sys.argv[2:]] or [8080, 0])
    print(f"http://127.0.0.1:{server.server_port}/", flush=True)
    try:
        server.serve_forever()
    except KeyboardInterrupt:
        pass


main()

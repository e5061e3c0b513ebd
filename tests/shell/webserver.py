#!/usr/bin/env python3
"""A web server on the loopback address with the bad manners of the real ones. It tells its two
ports, of http and of https, and ends when its input does."""
import gzip
import http.server
import pathlib
import ssl
import sys
import threading
import time


class Page(http.server.BaseHTTPRequestHandler):
    def answer(self, body, status=200, length=None, **headers):
        self.send_response(status)
        self.send_header("Content-Length", len(body) if length is None else length)
        for name, value in headers.items():
            self.send_header(name.replace("_", "-"), value)
        self.end_headers()
        self.wfile.write(body)

    def do_GET(self):
        name = self.path.split("?")[0].strip("/")
        try:
            getattr(self, "page_" + name)()
        except (BrokenPipeError, ConnectionResetError):
            pass

    def page_plain(self):
        self.answer(b"\xc2\xa3 and \x80\r\n")

    def page_asked(self):
        told = [self.path] + [f"{name}: {value}" for name, value in self.headers.items()]
        self.answer("\n".join(told).encode(), Set_Cookie="seen=yes")

    def page_error(self):
        self.answer(b"<html>gone</html>", status=404)

    def page_slow(self):
        self.send_response(200)
        self.send_header("Content-Length", "100000")
        self.end_headers()
        while True:
            self.wfile.write(b".")
            time.sleep(0.02)

    def page_silent(self):
        time.sleep(60)

    def page_cut(self):
        self.answer(b"half", length=8)

    def page_huge(self):
        """Says nothing of its length, and never ends."""
        self.send_response(200)
        self.end_headers()
        while True:
            self.wfile.write(bytes(65536))

    def page_bomb(self):
        self.answer(gzip.compress(bytes(1 << 22)), Content_Encoding="gzip")

    def page_loop(self):
        self.answer(b"", status=302, Location="/loop")

    def page_moved(self):
        self.answer(b"", status=301, Location="/plain")

    def page_file(self):
        self.answer(b"", status=302, Location="file:///etc/hostname")

    def log_message(self, *_):
        pass


def serve(secure):
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Page)
    server.daemon_threads = True
    if secure:
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(pathlib.Path(__file__).with_suffix(".pem"))
        server.socket = context.wrap_socket(server.socket, server_side=True)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    return server.server_address[1]


print(serve(False), serve(True), flush=True)
sys.stdin.read()

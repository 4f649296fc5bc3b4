#!/usr/bin/env python3
"""HTTP server for the downloader's tests, on a free port of 127.0.0.1.

    http_server.py COMMAND...    runs COMMAND with the argument --http=ADDRESS added, and ends with its exit code
    http_server.py               prints its port and serves until its input ends
"""
import collections
import gzip
import itertools
import socket
import struct
import subprocess
import sys
import threading
import zlib
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer

PLAIN = b"[DRMSchedule]\nplain\n"
COUNTER = itertools.count(1)
REQUESTS = collections.Counter()  # by path, since the last question for that path
ENDING = threading.Event()


def schedule(line_end):
    lines = ["[DRMSchedule]"]
    for number in range(300):
        lines += [
            "StartStopTimeUTC=0600-0700",
            "Days=1111111",
            f"Frequency={5000 + number * 5}",
            "Target=Western Europe",
            "Power=100",
            f"Programme=Radio {number}",
            "Language=English",
            "Site=Test",
            "Country=Nowhere",
        ]
    return "".join(line + line_end for line in lines).encode("ascii")


class Handler(BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def log_message(self, *_):
        pass

    def answer(self, body, status=200, length=None, **headers):
        self.send_response(status)
        self.send_header("Content-Length", str(len(body) if length is None else length))
        for name, value in headers.items():
            self.send_header(name.replace("_", "-"), value)
        self.end_headers()
        self.wfile.write(body)

    def redirect(self, target):
        self.answer(b"", 302, Location=target)

    def start_chunks(self):
        self.send_response(200)
        self.send_header("Transfer-Encoding", "chunked")
        self.end_headers()

    def chunk(self, data):
        self.wfile.write(b"%x\r\n%s\r\n" % (len(data), data))

    def hang_up(self):
        self.wfile.flush()
        self.close_connection = True

    def big_body(self, size):
        self.send_response(200)
        self.send_header("Content-Length", str(size))
        self.end_headers()
        block = b"x" * 65536
        while size > 0:
            self.wfile.write(block[:size])
            size -= len(block)

    def do_GET(self):
        REQUESTS[self.path] += 1
        try:
            self.serve(self.path)
        except (BrokenPipeError, ConnectionResetError):
            self.close_connection = True

    def serve(self, path):
        if path == "/schedule-lf":
            self.answer(schedule("\n"))
        elif path == "/schedule-crlf":
            self.answer(schedule("\r\n"))
        elif path == "/plain":
            self.answer(PLAIN)
        elif path == "/empty":
            self.answer(b"")
        elif path == "/count":
            self.answer(str(next(COUNTER)).encode(), Cache_Control="max-age=3600")
        elif path.startswith("/status/"):
            self.answer(PLAIN, int(path.rsplit("/", 1)[1]))
        elif path == "/digest":
            self.answer(PLAIN, 401, WWW_Authenticate=f'Digest realm="r", nonce="{next(COUNTER)}", qop="auth", stale=true')
        elif path == "/proxy-digest":
            self.answer(PLAIN, 407, Proxy_Authenticate=f'Digest realm="r", nonce="{next(COUNTER)}"')
        elif path.startswith("/requests-of/"):
            self.answer(str(REQUESTS.pop(path.removeprefix("/requests-of"), 0)).encode())
        elif path == "/404":
            self.answer(b"[DRMSchedule]\nnot here\n", 404)
        elif path == "/500":
            self.answer(b"[DRMSchedule]\nnot well\n", 500)
        elif path == "/redirect":
            self.redirect("/plain")
        elif path == "/redirect-to-file":
            self.redirect("file:///etc/hostname")
        elif path == "/redirect-loop":
            self.redirect("/redirect-loop")
        elif path == "/no-length":
            self.protocol_version = "HTTP/1.0"
            self.send_response(200)
            self.end_headers()
            self.wfile.write(PLAIN)
            self.hang_up()
        elif path == "/chunked":
            self.start_chunks()
            for part in (PLAIN[:5], PLAIN[5:], b""):
                self.chunk(part)
        elif path == "/gzip":
            self.answer(gzip.compress(PLAIN), Content_Encoding="gzip")
        elif path == "/gzip-cut":
            self.answer(gzip.compress(PLAIN)[:-8], Content_Encoding="gzip")
        elif path == "/gzip-checksum":
            self.answer(gzip.compress(PLAIN)[:-8] + bytes(4) + gzip.compress(PLAIN)[-4:], Content_Encoding="gzip")
        elif path == "/deflate":
            self.answer(zlib.compress(PLAIN), Content_Encoding="deflate")
        elif path == "/unknown-encoding":
            self.answer(PLAIN, Content_Encoding="x-unknown")
        elif path == "/headers-first":
            self.send_response(200)
            self.send_header("Content-Length", str(len(PLAIN)))
            self.end_headers()
            self.wfile.flush()
            self.wfile.write(PLAIN)
        elif path == "/chunked-cut":
            self.start_chunks()
            self.chunk(PLAIN)
            self.hang_up()
        elif path == "/chunked-cut-in-chunk":
            self.start_chunks()
            self.wfile.write(b"100\r\n" + PLAIN)
            self.hang_up()
        elif path == "/reset":
            self.send_response(200)
            self.send_header("Connection", "close")
            self.end_headers()
            self.wfile.write(PLAIN)
            # Closing with a linger time of zero resets the connection.
            self.connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
            self.connection.close()
            self.close_connection = True
        elif path.startswith("/interim/"):
            for _ in range(int(path.rsplit("/", 1)[1])):
                self.wfile.write(b"HTTP/1.1 100 Continue\r\n\r\n")
            self.answer(PLAIN)
        elif path.startswith("/headers/"):
            self.answer(PLAIN, **{f"X_{i}": "x" * 1000 for i in range(int(path.rsplit("/", 1)[1]))})
        elif path == "/cut-short":
            self.answer(PLAIN, length=len(PLAIN) + 100)
            self.hang_up()
        elif path == "/stall":
            ENDING.wait()
        elif path == "/stall-in-body":
            self.answer(PLAIN[:5], length=len(PLAIN))
            self.wfile.flush()
            ENDING.wait()
        elif path.startswith("/bytes/"):
            self.big_body(int(path.rsplit("/", 1)[1]))
        else:
            self.answer(b"", 404)


class Server(ThreadingHTTPServer):
    daemon_threads = True

    def handle_error(self, request, client_address):
        if not isinstance(sys.exc_info()[1], ConnectionError):  # some tests disconnect early on purpose
            super().handle_error(request, client_address)


def main():
    server = Server(("127.0.0.1", 0), Handler)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    port = server.server_address[1]
    try:
        if len(sys.argv) > 1:
            return subprocess.call(sys.argv[1:] + [f"--http=http://127.0.0.1:{port}"])
        print(port, flush=True)
        sys.stdin.read()
        return 0
    finally:
        ENDING.set()


if __name__ == "__main__":
    sys.exit(main())

"""A web server with one answer for every address."""
import http.server
import threading


class WebServer:
    """`address` is one of its addresses; `requests` are the paths asked for so far.

    It answers once the event `when` is set, and sends the second half of the content once `rest` is."""

    def __init__(self, content, status=200, when=None, rest=None):
        self.requests = requests = []

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                requests.append(self.path)
                if when is not None:
                    when.wait()
                self.send_response(status)
                self.send_header("Content-Length", str(len(content)))
                self.end_headers()
                first = len(content) if rest is None else len(content) // 2
                self.wfile.write(content[:first])
                if rest is not None:
                    rest.wait()
                    self.wfile.write(content[first:])

            def log_message(self, *_):
                pass

        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        self.address = f"http://127.0.0.1:{self.server.server_port}/schedule"

    def stop(self):
        self.server.shutdown()
        self.server.server_close()

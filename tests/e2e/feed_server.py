#!/usr/bin/env python3
"""A small feed server for the end-to-end and speed tests, on the loopback only.

Serves /rss.xml (RSS 2.0, 40 items), /rdf.xml (RSS 1.0), /atom.xml (Atom), /feed/<n>.xml (numbered RSS
feeds for the speed test), a 404 for anything else (the favicon too), and /hang, which accepts the
request and never answers. Every answer waits the latency given with --latency (milliseconds) first.
The port is written to the file given with --port-file once the server listens.
"""
import argparse
import http.server
import socketserver
import threading
import time

ITEMS = 40


def rss(title, n):
    items = "".join(
        f"<item><title>{title} story {k}</title><link>http://127.0.0.1/{title}/{k}</link>"
        f"<description>&lt;p&gt;Text of {title} story {k} about volcanoes.&lt;/p&gt;</description></item>"
        for k in range(1, n + 1))
    return (f'<?xml version="1.0"?><rss version="2.0"><channel><title>{title} channel</title>'
            f"<link>http://127.0.0.1/</link><description>{title}</description>{items}</channel></rss>")


RDF = ('<?xml version="1.0"?><rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#" '
       'xmlns="http://purl.org/rss/1.0/"><channel rdf:about="http://127.0.0.1/"><title>RDF channel</title>'
       "<link>http://127.0.0.1/</link><description>rdf</description></channel>"
       + "".join(f'<item rdf:about="http://127.0.0.1/rdf/{k}"><title>RDF story {k}</title>'
                 f"<link>http://127.0.0.1/rdf/{k}</link><description>RDF text {k}</description></item>"
                 for k in range(1, 6))
       + "</rdf:RDF>")

ATOM = ('<?xml version="1.0"?><feed xmlns="http://www.w3.org/2005/Atom"><title>Atom channel</title>'
        '<subtitle>atom</subtitle><link href="http://127.0.0.1/"/>'
        + "".join(f'<entry><title>Atom story {k}</title><link rel="alternate" href="http://127.0.0.1/atom/{k}"/>'
                  f"<summary>Atom text {k}</summary></entry>" for k in range(1, 6))
        + "</feed>")


class Handler(http.server.BaseHTTPRequestHandler):
    latency = 0.0
    stop = threading.Event()

    def log_message(self, *args):
        pass

    def do_GET(self):
        if self.path == "/hang":
            # Accepts and never answers, until the server ends.
            Handler.stop.wait()
            return
        time.sleep(Handler.latency)
        body = None
        if self.path == "/rss.xml":
            body = rss("RSS", ITEMS)
        elif self.path == "/rdf.xml":
            body = RDF
        elif self.path == "/atom.xml":
            body = ATOM
        elif self.path.startswith("/feed/") and self.path.endswith(".xml"):
            body = rss("Feed" + self.path[6:-4], 20)
        if body is None:
            self.send_response(404)
            self.send_header("Content-Length", "0")
            self.end_headers()
            return
        data = body.encode("utf-8")
        self.send_response(200)
        self.send_header("Content-Type", "application/xml")
        self.send_header("Content-Length", str(len(data)))
        self.end_headers()
        self.wfile.write(data)


class Server(socketserver.ThreadingMixIn, http.server.HTTPServer):
    daemon_threads = True
    request_queue_size = 128


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--port-file", required=True)
    ap.add_argument("--latency", type=float, default=0)
    args = ap.parse_args()
    Handler.latency = args.latency / 1000.0
    server = Server(("127.0.0.1", 0), Handler)
    with open(args.port_file + ".tmp", "w") as f:
        f.write(str(server.server_address[1]))
    import os
    os.replace(args.port_file + ".tmp", args.port_file)
    try:
        server.serve_forever()
    finally:
        Handler.stop.set()


if __name__ == "__main__":
    main()

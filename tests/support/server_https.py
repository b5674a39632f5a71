"""An HTTPS server on the loopback address for the tests of transfers, with a certificate authority of its own.

    server_https.py FOLDER

makes its certificates in FOLDER with openssl, opens one port per certificate, writes their numbers to
FOLDER/porte once all answer, and serves until its standard input ends.
"""

import http.server
import os
import ssl
import subprocess
import sys
import threading
import time

cartella = sys.argv[1]
RIGA = b"2001/06/16\tBA\t1\t2\t3\t4\t5\n"


def openssl(*argomenti, ingresso=None):
    subprocess.run(("openssl",) + argomenti, cwd=cartella, check=True, capture_output=True, input=ingresso)


def autorita(nome):
    openssl("req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256", "-nodes", "-days", "2",
            "-subj", "/CN=" + nome, "-keyout", nome + ".key", "-out", nome + ".pem")


def certificato(nome, chi, ospite, giorni):
    """Signed by `chi` for `ospite`; a negative number of days is one that has run out."""
    openssl("req", "-new", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256", "-nodes", "-subj",
            "/CN=" + nome, "-addext", "subjectAltName=" + ospite, "-keyout", nome + ".key", "-out", nome + ".csr")
    with open(os.path.join(cartella, nome + ".ext"), "w", encoding="ascii") as estensioni:
        estensioni.write("subjectAltName=" + ospite + "\n")
    openssl("x509", "-req", "-in", nome + ".csr", "-CA", chi + ".pem", "-CAkey", chi + ".key", "-CAcreateserial",
            "-days", str(giorni), "-extfile", nome + ".ext", "-out", nome + ".pem")


class Risposta(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def log_message(self, *_):
        pass

    def intestazione(self, codice, *coppie):
        self.send_response(codice)
        for nome, valore in coppie:
            self.send_header(nome, valore)
        self.send_header("Connection", "close")
        self.end_headers()
        self.close_connection = True

    def do_GET(self):
        try:
            getattr(self, "do" + self.path.replace("/", "_"), self.do_manca)()
        except OSError:
            pass  # the client went away, as it should

    def do_lotto(self):
        self.intestazione(200, ("Content-Length", str(len(RIGA))))
        self.wfile.write(RIGA)

    def do_manca(self):
        self.intestazione(404, ("Content-Length", "0"))

    def do_rinvio(self):
        self.intestazione(302, ("Location", "/lotto"), ("Content-Length", "0"))

    def do_giostra(self):
        self.intestazione(302, ("Location", "/giostra"), ("Content-Length", "0"))

    def do_in_chiaro(self):
        self.intestazione(302, ("Location", "http://localhost:%d/lotto" % in_chiaro), ("Content-Length", "0"))

    def do_al_disco(self):
        self.intestazione(302, ("Location", "file:///etc/hostname"), ("Content-Length", "0"))

    def do_tagliato(self):
        self.intestazione(200, ("Content-Length", str(10 * len(RIGA))))
        self.wfile.write(RIGA)

    def do_enorme(self):
        self.intestazione(200, ("Content-Length", str(1 << 40)))
        self.wfile.write(RIGA)

    def do_senza_fine(self):
        self.intestazione(200)
        while True:
            self.wfile.write(RIGA * 1000)

    def do_lento(self):
        self.intestazione(200, ("Content-Length", str(len(RIGA) * 1000)))
        for _ in range(1000):
            self.wfile.write(RIGA)
            self.wfile.flush()
            time.sleep(0.05)

    def do_muto(self):
        time.sleep(600)


class Server(http.server.ThreadingHTTPServer):
    daemon_threads = True

    def handle_error(self, request, client_address):
        pass  # a client that did not like our certificate


def apri(nome=None):
    server = Server(("127.0.0.1", 0), Risposta)
    if nome:
        contesto = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        contesto.load_cert_chain(os.path.join(cartella, nome + ".pem"), os.path.join(cartella, nome + ".key"))
        server.socket = contesto.wrap_socket(server.socket, server_side=True, do_handshake_on_connect=False)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    return server.server_address[1]


autorita("nostra")
autorita("altra")
certificato("giusto", "nostra", "DNS:localhost", 2)
certificato("altrui", "altra", "DNS:localhost", 2)
certificato("nome", "nostra", "DNS:sortimetra.invalid", 2)
certificato("scaduto", "nostra", "DNS:localhost", -1)
in_chiaro = apri()
porte = {nome: apri(nome) for nome in ("giusto", "altrui", "nome", "scaduto")}
with open(os.path.join(cartella, "porte.nuove"), "w", encoding="ascii") as file:
    for nome, porta in porte.items():
        file.write("%s %d\n" % (nome, porta))
os.rename(os.path.join(cartella, "porte.nuove"), os.path.join(cartella, "porte"))
sys.stdin.read()

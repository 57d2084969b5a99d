"""tampering_proxy.py PORT OLD NEW: passes one connection on to the example server and changes OLD to NEW in
what comes back. Both have the same length, so the heads stay right. Ends with the connection."""
import socket
import sys
import threading

port, old, new = int(sys.argv[1]), sys.argv[2].encode(), sys.argv[3].encode()
assert len(old) == len(new) and old != new


def pass_on(source, target):
    while data := source.recv(65536):
        target.sendall(data)
    target.shutdown(socket.SHUT_WR)


def tamper(source, target):
    kept = b""  # what could be the beginning of OLD
    while data := source.recv(65536):
        data = (kept + data).replace(old, new)
        size = next((n for n in range(len(old) - 1, 0, -1) if data.endswith(old[:n])), 0)
        kept = data[len(data) - size:]
        target.sendall(data[:len(data) - size])
    target.sendall(kept)
    target.shutdown(socket.SHUT_WR)


with socket.create_server(("127.0.0.1", 0)) as listener:
    print("listening on 127.0.0.1:%d" % listener.getsockname()[1], flush=True)
    client, _ = listener.accept()
server = socket.create_connection(("127.0.0.1", port))
back = threading.Thread(target=tamper, args=(server, client), daemon=True)
back.start()
try:
    pass_on(client, server)
    back.join(60)
except OSError:
    pass  # one of the two is gone

"""tampering_proxy.py PORT OLD NEW: passes connections on to the example server and changes OLD to NEW in what
comes back. Both have the same length, so the heads stay right. Ends with the first connection."""
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


def serve(client):
    server = socket.create_connection(("127.0.0.1", port))
    for one in (client, server):
        one.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)  # or small chunks wait for each other
    back = threading.Thread(target=tamper, args=(server, client), daemon=True)
    back.start()
    try:
        pass_on(client, server)
        back.join(60)
    except OSError:
        pass  # one of the two is gone


def serve_others(listener):
    while True:
        client, _ = listener.accept()
        threading.Thread(target=serve, args=(client,), daemon=True).start()


listener = socket.create_server(("127.0.0.1", 0))
print("listening on 127.0.0.1:%d" % listener.getsockname()[1], flush=True)
first, _ = listener.accept()
threading.Thread(target=serve_others, args=(listener,), daemon=True).start()
serve(first)

"""event_peer.py PORT KIND: a peer of the example server that subscribes to events and knows nothing of the
library. KIND is what becomes of it: "silent" reads and says nothing any more, "deaf" speaks and does not read,
"hangs-up" goes while events come, "logged-out" loses its session by a logout on another connection. Prints what
came of it in one line."""
import base64
import re
import socket
import sys
import time

port, kind = int(sys.argv[1]), sys.argv[2]
seqnum = 0


def message(name, token=None, head=""):
    global seqnum
    seqnum += 1
    body = '<servercommandservice><seqnum>%d</seqnum><version>1.0.0</version>%s<request name="%s" />' \
        '</servercommandservice>' % (seqnum, "<Token>%s</Token>" % token if token else "", name)
    return ("POST /servercommandservice HTTP/1.1\r\n%sContent-Length: %d\r\n\r\n%s" % (head, len(body), body)).encode()


def connect(buffer=None):
    peer = socket.socket()
    if buffer:
        peer.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, buffer)
    peer.settimeout(60)
    peer.connect(("127.0.0.1", port))
    return peer


def read_until(peer, text, already=b""):
    while text not in already:
        data = peer.recv(65536)
        assert data, "the server has ended the connection before %r" % text
        already += data
    return already


def logged_in(peer):
    credentials = base64.b64encode(b"operator:correct horse").decode()
    peer.sendall(message("Login", head="Authorization: Basic %s\r\n" % credentials))
    return re.search(b"<Token>(.*)</Token>", read_until(peer, b"</servercommandservice>\n")).group(1).decode()


event = b'<response name="NotificationContent">'
peer = connect(4096 if kind == "deaf" else None)
token = logged_in(peer)
peer.sendall(message("Notification", token))
seen = read_until(peer, event)
assert seen.index(b'<response name="Notification">') < seen.index(event), "an event before the subscription"

if kind == "silent":
    start = time.monotonic()
    try:
        while data := peer.recv(65536):
            seen += data
    except ConnectionResetError:
        pass  # what the server had not sent yet
    assert time.monotonic() - start < 50, "the server is very patient"
    assert seen.count(event) > 3, "hardly any events"
    print("the silent peer has lost its connection")
elif kind == "deaf":
    try:
        for _ in range(600):
            peer.sendall(message("Heartbeat"))
            time.sleep(0.1)
    except (ConnectionResetError, BrokenPipeError):
        print("the deaf peer has lost its connection")
elif kind == "hangs-up":
    peer.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, b"\1\0\0\0\0\0\0\0")  # not even a goodbye
    peer.close()
    print("the peer has hung up")
elif kind == "logged-out":
    with connect() as other:
        other.sendall(message("Logout", token))
        read_until(other, b"<Result>0</Result>")
    time.sleep(0.5)
    peer.settimeout(1)
    try:
        while peer.recv(1 << 20):  # events from before the logout
            peer.settimeout(0.7)
        sys.exit("the connection has ended")
    except socket.timeout:
        pass
    peer.settimeout(60)
    peer.sendall(message("Heartbeat"))
    rest = read_until(peer, b"</servercommandservice>\n")
    assert event not in rest and b'"Heartbeat"' in rest, rest
    print("no events after the logout")

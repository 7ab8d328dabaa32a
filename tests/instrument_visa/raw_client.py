"""A client on a bare socket, for what VISA does not do: vanish, send rubbish, read to the end."""

import socket
import struct

TIMEOUT_SECONDS = 60


class RawClient:
    """A connection to the instrument."""

    def __init__(self, port):
        self._socket = socket.create_connection(("127.0.0.1", port), TIMEOUT_SECONDS)
        self._stream = self._socket.makefile("rb")

    def send(self, data):
        self._socket.sendall(data)

    def read_line(self):
        """The next answer, without its line feed; empty at the end."""
        return self._stream.readline().removesuffix(b"\n").decode("ascii")

    def ask(self, message):
        self.send(message.encode("ascii") + b"\n")
        return self.read_line()

    def end_sending(self):
        """Tells the instrument that no more comes."""
        self._socket.shutdown(socket.SHUT_WR)

    def read_to_end(self):
        """All that comes until the instrument closes."""
        return self._stream.read()

    def reset(self):
        """Vanishes without a word, as a host that is switched off and on."""
        self._socket.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        self.close()

    def close(self):
        self._stream.close()
        self._socket.close()

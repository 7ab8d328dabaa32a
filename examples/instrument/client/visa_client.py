"""A connection to the instrument through VISA."""

import pyvisa

TIMEOUT_MS = 60_000


def open_instrument(port):
    """Opens the instrument that listens on a port of this host."""
    return pyvisa.ResourceManager("@py").open_resource(
        f"TCPIP::127.0.0.1::{port}::SOCKET",
        read_termination="\n", write_termination="\n", timeout=TIMEOUT_MS)


def query_doubles(resource, command):
    """Asks for a block of little-endian doubles."""
    return resource.query_binary_values(command, datatype="d", is_big_endian=False)


def query_block(resource, command):
    """Asks for a block of bytes."""
    return resource.query_binary_values(command, datatype="B", container=bytes)

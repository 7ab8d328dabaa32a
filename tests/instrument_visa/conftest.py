"""What the tests of the instrument share: the program under test, and clients."""

import os
import shlex

import pytest

import visa_client
from instrument_process import InstrumentProcess
from raw_client import RawClient

# The words that start the program, quoted as for a shell.
COMMAND = shlex.split(os.environ["INSTRUMENT_COMMAND"])


@pytest.fixture
def start():
    """Starts programs, which must not have been stopped by a fault before their test is over."""
    started = []

    def start_instrument(**options):
        started.append(InstrumentProcess(COMMAND, **options))
        return started[-1]

    yield start_instrument
    try:
        for process in started:
            if process.status is None:
                assert process.stop() == 0, process.traces()
    finally:
        for process in started:
            process.close()


@pytest.fixture
def instrument(start):
    """The program with the configuration that comes with it."""
    return start()


@pytest.fixture
def connect(instrument):
    """Connects VISA clients."""
    clients = []

    def open_client(port=None):
        clients.append(visa_client.open_instrument(port or instrument.port))
        return clients[-1]

    yield open_client
    for client in clients:
        client.close()


@pytest.fixture
def client(connect):
    """A VISA client."""
    return connect()


@pytest.fixture
def connect_raw(instrument):
    """Connects clients that do what VISA does not."""
    clients = []

    def open_client(port=None):
        clients.append(RawClient(port or instrument.port))
        return clients[-1]

    yield open_client
    for raw_client in clients:
        raw_client.close()

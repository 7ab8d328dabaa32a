"""The end of the program.

- SIGTERM and SIGINT end it in order, with and without clients
- what has been received by then is executed and answered
- the port can be had again at once
- a second signal ends it, whatever clients do
"""

import re
import signal
import socket
import threading

NUM_BUSY_CLIENTS = 6


def test_sigterm_ends_the_program_in_order(instrument):
    assert instrument.stop() == 0


def test_sigint_ends_the_program_in_order(instrument, client):
    assert client.query("*TST?") == "0"
    instrument.signal(signal.SIGINT)
    assert instrument.wait() == 0


def test_acquisitions_that_were_asked_for_are_answered(instrument, connect_raw):
    patient = connect_raw()
    # In one piece, so that the first answer tells that all of it has arrived.
    patient.send(b"SYST:VERS?\nINST SLOW;:ACQ:POIN 2;:MEAS:VOLT?\n")
    assert patient.read_line() == "1999.0"
    assert instrument.stop() == 0
    assert re.fullmatch(rb"-?\d\.\d{9}E[+-]\d\d\n", patient.read_to_end())


class BusyClient(threading.Thread):
    """Sends numbered queries until the connection ends, and collects the answers.

    It is always some queries ahead of the answers, but not so many that the program, which takes 5
    seconds at most to finish, could not answer them.
    """

    NUM_AHEAD = 50

    def __init__(self, raw_client):
        super().__init__()
        self._client = raw_client
        self._sender = threading.Thread(target=self._send)
        self._may_send = threading.Semaphore(self.NUM_AHEAD)
        self._has_ended = False
        self.is_busy = threading.Event()
        self.answers = []

    def _send(self):
        number = 0
        while not self._has_ended:
            number += 1
            try:
                self._client.send(f"ACQ:POIN {number};POIN?\n".encode("ascii"))
            except OSError:
                return  # the instrument has closed
            self._may_send.acquire()

    def run(self):
        self._sender.start()
        try:
            while line := self._client.read_line():
                self.answers.append(line)
                if len(self.answers) == 2 * self.NUM_AHEAD:
                    self.is_busy.set()
                self._may_send.release()
        except ConnectionResetError:
            pass  # something was sent after the end
        self._has_ended = True
        self._may_send.release()
        self._sender.join()


def test_stop_under_load_answers_all_that_was_executed(instrument, client, connect_raw):
    instrument.set_flag("instrument::m_traceSteps", 2)
    client.query("SYST:FLAG:REL;*OPC?")
    busy_clients = [BusyClient(connect_raw()) for _ in range(NUM_BUSY_CLIENTS)]
    for busy in busy_clients:
        busy.start()
    for busy in busy_clients:
        busy.is_busy.wait()
    status = instrument.stop()
    for busy in busy_clients:
        busy.join()
    assert status == 0
    executed = sum("Executing message 'ACQ:POIN" in trace for trace in instrument.traces())
    assert executed == sum(len(busy.answers) for busy in busy_clients)
    for busy in busy_clients:
        assert busy.answers == [str(number) for number in range(1, len(busy.answers) + 1)]


def test_port_can_be_had_again_at_once(start, connect):
    first = start()
    client = connect(first.port)
    assert client.query("OUTP ON;:OUTP?") == "1"
    assert first.stop() == 0
    second = start(port=first.port)
    assert second.port == first.port
    assert connect(second.port).query("OUTP?") == "0"


def wait_until_refused(port):
    """Waits until nobody listens any more: by then the program has noticed the first signal."""
    while True:
        try:
            socket.create_connection(("127.0.0.1", port)).close()
        except ConnectionError:
            return


def test_second_signal_ends_the_program_whatever_clients_do(instrument, connect_raw):
    lazy = connect_raw()
    lazy.send(b"SYST:VERS?\nACQ:POIN MAX;:INIT;:FETC:WAV?\n")
    assert lazy.read_line() == "1999.0"
    instrument.signal()
    wait_until_refused(instrument.port)
    instrument.signal()
    assert instrument.wait() == -signal.SIGTERM

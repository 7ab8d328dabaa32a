"""Clients that misbehave harm nobody but themselves.

- they vanish in the middle of a line, of an answer, of an acquisition
- they do not read their answers
- they send rubbish, lines without end, blocks that claim too much
"""

import random

NO_ERROR = '0,"No error"'
MAX_MESSAGE = 65536


def test_line_without_its_end_is_not_executed(client, connect_raw):
    vanishing = connect_raw()
    vanishing.send(b'OUTP ON\nINT:STAT "cover_open",1')
    vanishing.end_sending()
    assert vanishing.read_to_end() == b""
    assert client.query('OUTP?;:INT:STAT? "cover_open"') == "1;0"


def test_client_may_vanish_in_an_acquisition(client, connect_raw):
    vanishing = connect_raw()
    vanishing.ask("INST SLOW;:INIT;:SYST:VERS?")
    vanishing.reset()
    assert client.query("INST REF;:MEAS:VOLT?") == "2.500000000E+00"


def test_client_may_vanish_before_its_answers(client, connect_raw):
    for _ in range(20):
        vanishing = connect_raw()
        vanishing.send(b"ACQ:POIN 100000;:INIT;:FETC:WAV?\n" * 10)
        vanishing.reset()
    assert client.query("INST REF;:MEAS:VOLT?") == "2.500000000E+00"
    assert client.query("SYST:ERR?") == NO_ERROR


def test_client_that_does_not_read_waits_for_itself(client, connect_raw):
    lazy = connect_raw()
    lazy.send(b"ACQ:POIN 300000;:INIT;:FETC:WAV?;WAV?;WAV?\n" * 3)
    for _ in range(10):
        assert client.query("INST REF;:MEAS:VOLT?") == "2.500000000E+00"
    lazy.reset()
    assert client.query("*TST?") == "0"


def test_too_long_lines_leave_the_client_its_connection(client, connect_raw):
    wordy = connect_raw()
    for _ in range(5):
        wordy.send(b"x" * (20 * MAX_MESSAGE) + b"\n")
        assert wordy.ask("SYST:ERR?") == '-363,"Input buffer overrun"'
    assert client.query("SYST:ERR?") == NO_ERROR


def test_line_without_end_holds_up_nobody(client, connect_raw):
    endless = connect_raw()
    for _ in range(20):
        endless.send(b"x" * MAX_MESSAGE)
        assert client.query("SYST:VERS?") == "1999.0"


def test_rubbish_leaves_the_client_its_connection(client, connect_raw):
    noise = random.Random(4711)
    rubbish = connect_raw()
    for _ in range(20):
        rubbish.send(noise.randbytes(5000).replace(b"?", b"!") + b"\n")
        # The rubbish may end within a string or a block: then this line belongs to it.
        rubbish.send(b"*CLS\n" * 3)
    rubbish.send(b"\n*CLS;SYST:VERS?\n")
    assert rubbish.read_line() == "1999.0"
    assert client.query("SYST:ERR?") == NO_ERROR


def test_block_that_claims_too_much_is_an_error(client, connect_raw):
    boasting = connect_raw()
    boasting.send(b"ACQ:POIN #9999999999\n")
    assert boasting.ask("SYST:ERR?") == '-363,"Input buffer overrun"'
    assert client.query("SYST:ERR?") == NO_ERROR

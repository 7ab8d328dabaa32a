"""Several clients at once.

- each has its own acquisition, settings and errors
- ranges, output and states are shared
- further clients than 32 are turned away, until another one leaves
"""

import threading

MAX_CLIENTS = 32


def test_clients_measure_at_the_same_time(connect):
    num_clients = 8
    results = {}

    def measure(number, client):
        points = 100 + number
        client.write(f"INST CH1;:ACQ:POIN {points};:FORM ASC")
        results[number] = [client.query_ascii_values("INIT;:FETC:WAV?") for _ in range(5)]

    threads = [threading.Thread(target=measure, args=(number, connect()))
               for number in range(num_clients)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    longest = results[num_clients - 1][0]
    for number in range(num_clients):
        assert results[number] == [longest[:100 + number]] * 5


def test_slow_acquisition_holds_up_nobody_else(connect):
    slow, quick = connect(), connect()
    slow.write("INST SLOW;:INIT;*WAI;*OPC?")
    assert quick.query("*TST?") == "0"
    assert slow.read() == "1"


def test_errors_are_the_client_s_own(connect):
    careless, careful = connect(), connect()
    careless.write("NONSENSE")
    assert careless.query("SYST:ERR:COUN?") == "1"
    assert careful.query("SYST:ERR:COUN?") == "0"


def test_selected_channel_and_format_are_the_client_s_own(connect):
    first, second = connect(), connect()
    assert first.query("INST REF;:FORM REAL;:ACQ:POIN 7;*OPC?") == "1"
    assert second.query("INST?;:FORM?;:ACQ:POIN?") == "CH1;ASC;1000"


def test_acquisition_is_the_client_s_own(connect):
    first, second = connect(), connect()
    first.write("INST SLOW;:INIT")
    assert first.query("SYST:ERR:COUN?") == "0"
    assert second.query("ABOR;:INIT;*OPC?;:SYST:ERR:COUN?") == "1;0"
    assert len(first.query_ascii_values("FETC:STAT?")) == 4


def test_output_and_ranges_are_shared(connect):
    first, second = connect(), connect()
    assert first.query("OUTP ON;:VOLT:RANG 10;*OPC?") == "1"
    assert second.query("OUTP?;:VOLT:RANG?") == "1;1.000000000E+01"
    assert second.query('INT:STAT "cover_open",1;*OPC?') == "1"
    assert first.query("OUTP?") == "0"


def test_further_clients_are_turned_away(connect_raw):
    clients = [connect_raw() for _ in range(MAX_CLIENTS)]
    assert all(client.ask("SYST:VERS?") == "1999.0" for client in clients)
    assert connect_raw().read_to_end() == b""
    clients[0].end_sending()
    assert clients[0].read_to_end() == b""  # it has left
    assert connect_raw().ask("SYST:VERS?") == "1999.0"

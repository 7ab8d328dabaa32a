"""INITiate, waiting for it, ABORt, and results.

- INITiate does not wait; *OPC, *OPC?, *WAI and FETCh do
- results are those of the signal, the same each time; ABORt drops them
"""

import math

OPERATION_COMPLETE = 1
INIT_IGNORED = '-213,"Init ignored"'
STALE = '-230,"Data corrupt or stale"'


def test_initiate_does_not_wait(client):
    # SLOW takes 300 ms, so that the second one finds the first running.
    client.write("INST SLOW;:INIT;:INIT")
    assert client.query("SYST:ERR?") == INIT_IGNORED


def test_opc_query_waits_for_the_acquisition(client):
    client.write("INST SLOW;:INIT;*OPC?;:INIT")
    assert client.read() == "1"
    assert client.query("SYST:ERR?") == '0,"No error"'


def test_wai_holds_what_follows(client):
    client.write("INST SLOW;:INIT;*WAI;:INIT")
    assert client.query("SYST:ERR?") == '0,"No error"'


def test_opc_sets_its_bit_when_the_acquisition_has_ended(client):
    client.write("*CLS;:INST SLOW;:INIT;*OPC")
    assert client.query("*ESR?") == "0"
    assert client.query("*OPC?;*ESR?") == f"1;{OPERATION_COMPLETE}"


def test_fetch_waits_for_the_acquisition(client):
    client.write("INST SLOW;:ACQ:POIN 3;:INIT")
    assert len(client.query_ascii_values("FETC:WAV?")) == 3


def test_abort_drops_the_acquisition(client):
    client.write("INST SLOW;:INIT;:ABOR;:FETC:STAT?")
    assert client.query("SYST:ERR?") == STALE


def test_acquisition_may_follow_an_abort_at_once(client):
    client.write("INST SLOW;:INIT;:ABOR;:INST REF;:ACQ:POIN 4;:INIT")
    assert client.query_ascii_values("FETC:WAV?") == [2.5] * 4


def test_measure_answers_the_mean(client):
    client.write("INST REF")
    assert float(client.query("MEASure:VOLTage?")) == 2.5


def test_statistics_are_those_of_the_samples(client):
    client.write("INST CH2;:ACQ:POIN 500;:INIT")
    minimum, maximum, mean, rms = client.query_ascii_values("FETC:STAT?")
    volts = client.query_ascii_values("FETC:WAV?")
    assert len(volts) == 500
    assert (minimum, maximum) == (min(volts), max(volts))
    assert math.isclose(mean, sum(volts) / 500, rel_tol=1e-6, abs_tol=1e-9)
    assert math.isclose(rms, math.sqrt(sum(v * v for v in volts) / 500), rel_tol=1e-6)


def test_same_settings_give_the_same_samples(client):
    first = client.query_ascii_values("INIT;:FETC:WAV?")
    second = client.query_ascii_values("INIT;:FETC:WAV?")
    assert first == second
    assert len(set(first)) > 900  # of 1000: there is noise


def test_results_stay_until_the_next_acquisition(client):
    client.write("INST REF;:INIT;*WAI;:INST CH1")
    assert client.query("FETC:STAT?") == client.query("FETC:STAT?")
    assert client.query_ascii_values("FETC:STAT?")[2] == 2.5

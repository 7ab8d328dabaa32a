"""SYSTem:FLAGs.

- traces go on and off with the file of flags, when a client asks for it
- a file that is missing
"""


def set_traces(instrument, client, level):
    instrument.set_flag("instrument::m_traceSteps", level)
    client.write("SYST:FLAG:REL")


def test_file_is_that_of_the_command_line(instrument, client):
    assert client.query("SYST:FLAG:FILE?") == f'"{instrument.flags_file}"'


def test_nothing_is_traced_by_default(instrument, client):
    client.query("*IDN?")
    client.query("*OPC?")
    assert instrument.traces() == []


def test_traces_go_on_and_off_with_the_file(instrument, client):
    set_traces(instrument, client, 2)
    client.query("*IDN?")
    set_traces(instrument, client, 0)
    client.query("*TST?")
    words = [trace.split(": ", 1)[1] for trace in instrument.traces()]
    assert words == ["Executing message '*IDN?'.", "Executing message 'SYST:FLAG:REL'."]


def test_changed_file_does_nothing_until_it_is_asked_for(instrument, client):
    instrument.set_flag("instrument::m_traceSteps", 2)
    client.query("*IDN?")
    client.query("*OPC?")
    assert instrument.traces() == []


def test_traces_of_the_library_follow_the_same_file(instrument, client):
    instrument.set_flag("utils::command::m_traceSteps", 1)
    client.write("SYST:FLAG:REL")
    client.query("MEAS:VOLT?")
    traces = "\n".join(instrument.traces())
    assert "Executing command 'TakeSamples'." in traces


def test_missing_file_is_256_and_changes_nothing(instrument, client):
    set_traces(instrument, client, 2)
    client.query("*OPC?")  # the file has been read
    instrument.flags_file.unlink()
    client.write("SYST:FLAG:REL")
    assert client.query("SYST:ERR?") == '-256,"File name not found"'
    assert any("SYST:ERR?" in trace for trace in instrument.traces())

"""OUTPut and INTerlock.

- the output follows its commands, unless an interlock forbids it
- states, and the interlocks that they trip
"""


def test_output_is_off_at_the_start_and_can_be_switched(client):
    assert client.query("OUTP?") == "0"
    client.write("OUTPut:STATe ON")
    assert client.query("OUTP?") == "1"
    client.write("OUTP 0")
    assert client.query("OUTP:STAT?") == "0"


def test_catalog_lists_the_states(client):
    assert client.query("INT:CAT?") == '"cover_open","fan_running","overheated"'


def test_states_can_be_set_and_read(client):
    assert client.query('INT:STAT? "fan_running"') == "1"
    client.write('INTerlock:STATe "fan_running",OFF')
    assert client.query("INT:STAT? 'fan_running'") == "0"


def test_tripped_interlocks_are_listed(client):
    assert client.query("INT:TRIP?") == '""'
    client.write('INT:STAT "cover_open",1;STAT "fan_running",0')
    assert client.query("INT:TRIP?") == '"cover","heat"'


def test_interlock_switches_the_output_off_for_good(client):
    client.write('OUTP ON;:INT:STAT "cover_open",1')
    assert client.query("OUTP?") == "0"
    client.write('INT:STAT "cover_open",0')
    assert client.query("OUTP?") == "0"
    client.write("OUTP ON")
    assert client.query("OUTP?") == "1"


def test_interlock_keeps_the_output_off(client):
    client.write('INT:STAT "cover_open",1;:OUTP ON')
    assert client.query("OUTP?") == "0"

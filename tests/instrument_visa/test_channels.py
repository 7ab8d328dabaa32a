"""INSTrument, VOLTage:RANGe, ACQuire:POINts.

- the catalog, and selecting a channel
- a range with room is taken; MIN, MAX and DEF; *RST
- the number of points and its limits
"""


def test_catalog_lists_the_channels(client):
    assert client.query("INSTrument:CATalog?") == '"CH1","CH2","REF","SLOW"'


def test_first_channel_is_selected_at_the_start(client):
    assert client.query("INST?") == "CH1"


def test_channel_is_selected_by_word_or_string(client):
    client.write("INST ref")
    assert client.query("INST?") == "REF"
    client.write('INSTrument:SELect "Ch2"')
    assert client.query("INST:SEL?") == "CH2"


def test_smallest_range_with_room_is_taken(client):
    client.write("SENSe:VOLTage:RANGe 0.5")
    assert float(client.query("VOLT:RANG?")) == 1
    client.write("VOLT:RANG 1.1")
    assert float(client.query("SENS:VOLT:RANG?")) == 10


def test_range_has_a_minimum_a_maximum_and_a_default(client):
    answers = client.query("VOLT:RANG? MIN;RANG? MAX;RANG? DEF").split(";")
    assert [float(answer) for answer in answers] == [0.1, 10, 1]
    client.write("VOLT:RANG MAX")
    assert float(client.query("VOLT:RANG?")) == 10
    client.write("VOLT:RANG DEF")
    assert float(client.query("VOLT:RANG?")) == 1


def test_each_channel_has_a_range_of_its_own(client):
    client.write("INST CH1;:VOLT:RANG MIN;:INST CH2;:VOLT:RANG MAX")
    assert float(client.query("INST CH1;:VOLT:RANG?")) == 0.1
    assert float(client.query("INST CH2;:VOLT:RANG?")) == 100


def test_samples_are_cut_at_the_range(client):
    client.write("INST CH1;:VOLT:RANG 0.1;:ACQ:POIN 1000;:INIT")
    minimum, maximum, _, _ = client.query_ascii_values("FETC:STAT?")
    assert (minimum, maximum) == (-0.1, 0.1)


def test_number_of_points_is_a_number_or_a_limit(client):
    client.write("ACQuire:POINts 250")
    assert client.query("ACQ:POIN?") == "250"
    assert client.query("ACQ:POIN? MIN;POIN? MAX;POIN? DEF") == "1;1000000;1000"


def test_reset_takes_the_settings_of_the_start(client):
    client.write("INST CH2;:ACQ:POIN 5;:FORM REAL;:INST CH1;:VOLT:RANG 10;:INST CH2")
    client.write("*RST")
    assert client.query("INST?;:ACQ:POIN?;:FORM?") == "CH1;1000;ASC"
    assert float(client.query("VOLT:RANG?")) == 1

"""FORMat, and blocks of definite length.

- REAL carries the values of ASCii, whatever their bytes are and how many there are
- the hex dump shows the bytes of the block
"""

import struct

import visa_client

LINE_FEEDS = struct.unpack("<d", b"\n\n;\n\r\n\xf4\x3f")[0]  # a number of about 1.25
CONFIGURATION = f"""
<instrument>
  <channel name="LF"><wave form="dc" offset="{LINE_FEEDS!r}"/><range volts="2"/></channel>
</instrument>
"""


def test_format_is_ascii_until_another_is_asked_for(client):
    assert client.query("FORMat:DATA?") == "ASC"
    client.write("FORM REAL")
    assert client.query("FORM?") == "REAL"
    client.write("FORM:DATA ASCii")
    assert client.query("FORM?") == "ASC"


def test_block_carries_the_values_of_the_text(client):
    client.write("INST CH1;:ACQ:POIN 1000;:INIT")
    as_text = client.query_ascii_values("FETC:WAV?")
    client.write("FORM REAL")
    as_block = visa_client.query_doubles(client, "FETC:WAV?")
    assert len(as_block) == 1000
    assert [float(f"{value:.9E}") for value in as_block] == as_text


def test_block_may_contain_line_feeds(start, connect, tmp_path):
    configuration = tmp_path / "configuration.xml"
    configuration.write_text(CONFIGURATION)
    client = connect(start(configuration=configuration).port)
    client.write("ACQ:POIN 3;:FORM REAL;:INIT")
    assert visa_client.query_doubles(client, "FETC:WAV?") == [LINE_FEEDS] * 3
    assert client.query("SYST:VERS?") == "1999.0"


def test_block_may_be_large(client):
    client.write("INST REF;:ACQ:POIN 200000;:FORM REAL;:INIT")
    assert visa_client.query_doubles(client, "FETC:WAV?") == [2.5] * 200_000


def test_block_may_follow_another_answer(client):
    client.write("INST REF;:ACQ:POIN 2;:FORM REAL;:INIT")
    client.write("SYST:VERS?;:FETC:WAV?")
    answer = client.read_bytes(len("1999.0;#216") + 16 + len("\n"))
    assert answer == b"1999.0;#216" + struct.pack("<dd", 2.5, 2.5) + b"\n"


def test_hex_dump_shows_the_bytes_of_the_block(client):
    client.write("INST CH1;:ACQ:POIN 100;:FORM REAL;:INIT")
    block = struct.pack("<100d", *visa_client.query_doubles(client, "FETC:WAV?"))
    dump = visa_client.query_block(client, "FETC:DUMP?").decode("ascii")
    lines = dump.splitlines()
    assert len(lines) == 16
    shown = b"".join(bytes.fromhex(line[len("0000-000f: "):][:47]) for line in lines)
    assert shown == block[:256]


def test_hex_dump_of_one_sample_is_one_short_row(client):
    client.write("INST REF;:ACQ:POIN 1;:INIT")
    dump = visa_client.query_block(client, "FETC:DUMP?")
    # The NUL ends the digits of every row.
    assert dump == b"0000-0007: 00 00 00 00 00 00 04 40 \0" + 23 * b" " + b".......@\n"

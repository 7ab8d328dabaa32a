"""What the instrument says of itself, and the forms of messages.

- identity, version of SCPI, self-test
- long and short headers, several queries in a message, carriage returns
"""

import re


def test_identity_names_maker_model_serial_number_and_version(client):
    assert re.fullmatch(r"generic_utils,Virtual Instrument,0,\d+\.\d+\.\d+", client.query("*IDN?"))


def test_version_is_that_of_scpi_1999(client):
    assert client.query("SYSTem:VERSion?") == "1999.0"


def test_self_test_passes(client):
    assert client.query("*TST?") == "0"


def test_headers_may_be_long_or_short_in_any_case(client):
    for header in ("SYSTem:VERSion?", "syst:version?", "SYSTEM:VERSION?", ":SYST:VERSion?"):
        assert client.query(header) == "1999.0", header


def test_queries_of_one_message_are_answered_in_one_line(client):
    assert client.query("SYST:VERS?;ERR:COUN?;:INST?") == "1999.0;0;CH1"


def test_carriage_return_before_the_line_feed_does_not_matter(client):
    client.write_termination = "\r\n"
    assert client.query("SYST:VERS?") == "1999.0"


def test_message_without_queries_is_not_answered(client):
    client.write("*CLS")
    client.write("*RST")
    assert client.query("SYST:VERS?") == "1999.0"

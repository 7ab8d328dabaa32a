"""SYSTem:ERRor?, and what brings each error about.

- errors come in order, once each; the queue overflows with -350
- each number with its text
- after an error the rest of the message, and the next one, are executed
"""

NO_ERROR = '0,"No error"'
UNDEFINED_HEADER = '-113,"Undefined header"'
MAX_ERRORS = 32
MAX_MESSAGE = 65536


def error_of(client, message):
    """The error that a message brings about, when it is the only one."""
    client.write("*CLS")
    client.write(message)
    error = client.query("SYST:ERR?")
    assert client.query("SYST:ERR?") == NO_ERROR
    return error


def test_there_is_no_error_at_the_start(client):
    assert client.query("SYST:ERR?;ERR:COUN?") == f"{NO_ERROR};0"


def test_errors_come_in_their_order(client):
    client.write("NONSENSE")
    client.write("VOLT:RANG")
    assert client.query("SYST:ERR:COUN?") == "2"
    assert client.query("SYST:ERR:NEXT?") == UNDEFINED_HEADER
    assert client.query("SYST:ERR?") == '-109,"Missing parameter"'
    assert client.query("SYST:ERR?") == NO_ERROR


def test_queue_overflows_with_350(client):
    client.write(";".join(["NONSENSE"] * (MAX_ERRORS + 8)))
    assert client.query("SYST:ERR:COUN?") == str(MAX_ERRORS)
    errors = [client.query("SYST:ERR?") for _ in range(MAX_ERRORS + 1)]
    assert errors == [UNDEFINED_HEADER] * (MAX_ERRORS - 1) + ['-350,"Queue overflow"', NO_ERROR]


def test_invalid_character_is_101(client):
    assert error_of(client, "SYST\x01") == '-101,"Invalid character"'


def test_syntax_error_is_102(client):
    assert error_of(client, "SYST::ERR?") == '-102,"Syntax error"'


def test_wrong_type_is_104(client):
    assert error_of(client, 'ACQ:POIN "5"') == '-104,"Data type error"'


def test_too_many_parameters_are_108(client):
    assert error_of(client, "VOLT:RANG 1,2") == '-108,"Parameter not allowed"'


def test_missing_parameter_is_109(client):
    assert error_of(client, "VOLT:RANG") == '-109,"Missing parameter"'


def test_unknown_header_is_113(client):
    assert error_of(client, "MEAS:CURR?") == UNDEFINED_HEADER


def test_query_of_a_mere_command_is_113(client):
    assert error_of(client, "INIT?") == UNDEFINED_HEADER


def test_malformed_number_is_121(client):
    assert error_of(client, "ACQ:POIN 1.2.3") == '-121,"Invalid character in number"'


def test_unit_is_138(client):
    assert error_of(client, "VOLT:RANG 1 V") == '-138,"Suffix not allowed"'


def test_string_without_its_end_is_151(client):
    assert error_of(client, 'INT:STAT? "cover_open') == '-151,"Invalid string data"'


def test_malformed_block_is_161(client):
    assert error_of(client, "ACQ:POIN #") == '-161,"Invalid block data"'


def test_init_during_an_acquisition_is_213(client):
    assert error_of(client, "INST SLOW;:INIT;:INIT") == '-213,"Init ignored"'


def test_output_against_an_interlock_is_221(client):
    assert error_of(client, 'INT:STAT "overheated",1;:OUTP ON') == '-221,"Settings conflict"'


def test_number_out_of_range_is_222(client):
    assert error_of(client, "ACQ:POIN 1000001") == '-222,"Data out of range"'
    assert error_of(client, "VOLT:RANG -1") == '-222,"Data out of range"'
    assert error_of(client, "*ESE 256") == '-222,"Data out of range"'


def test_unknown_word_is_224(client):
    assert error_of(client, "INST NOBODY") == '-224,"Illegal parameter value"'
    assert error_of(client, "FORM HEX") == '-224,"Illegal parameter value"'


def test_fetch_without_an_acquisition_is_230(client):
    assert error_of(client, "FETC:WAV?") == '-230,"Data corrupt or stale"'


def test_too_long_line_is_363(client):
    assert error_of(client, "*CLS;" * (MAX_MESSAGE // 5 + 1)) == '-363,"Input buffer overrun"'


def test_longest_line_is_executed(client):
    assert client.query("SYST:VERS?".ljust(MAX_MESSAGE)) == "1999.0"


def test_rest_of_a_message_is_executed_after_an_error(client):
    assert client.query("NONSENSE;:SYST:VERS?") == "1999.0"


def test_message_after_an_error_is_executed(client):
    client.write("NONSENSE")
    assert client.query("SYST:VERS?") == "1999.0"

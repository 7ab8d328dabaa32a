"""The registers of IEEE 488.2.

- *ESR? and the bits that set it; *ESE, *SRE and *STB?
- *CLS
"""

OPERATION_COMPLETE = 1
EXECUTION_ERROR = 16
COMMAND_ERROR = 32
POWER_ON = 128

ERROR_AVAILABLE = 4
MESSAGE_AVAILABLE = 16
EVENT = 32
MASTER = 64


def test_new_client_finds_the_power_on_bit_once(client):
    assert client.query("*ESR?") == str(POWER_ON)
    assert client.query("*ESR?") == "0"


def test_errors_set_the_bit_of_their_class(client):
    client.write("*CLS;NONSENSE")
    assert client.query("*ESR?") == str(COMMAND_ERROR)
    client.write("ACQ:POIN 0")
    assert client.query("*ESR?") == str(EXECUTION_ERROR)


def test_opc_sets_its_bit_at_once_when_nothing_runs(client):
    client.write("*CLS;*OPC")
    assert client.query("*ESR?") == str(OPERATION_COMPLETE)


def test_enable_registers_can_be_read_back(client):
    client.write("*ESE 60;*SRE 36")
    assert client.query("*ESE?;*SRE?") == "60;36"


def test_status_byte_sums_up(client):
    client.write("*CLS")
    assert client.query("*STB?") == "0"
    client.write("*ESE 32;*SRE 32;NONSENSE")
    assert client.query("*STB?") == str(ERROR_AVAILABLE + EVENT + MASTER)
    client.write("*SRE 0")
    assert client.query("*STB?") == str(ERROR_AVAILABLE + EVENT)
    assert client.query("SYST:VERS?;*STB?") == f"1999.0;{ERROR_AVAILABLE + EVENT + MESSAGE_AVAILABLE}"


def test_clear_empties_events_and_errors_but_not_what_is_enabled(client):
    client.write("*ESE 60;NONSENSE;*CLS")
    assert client.query("*ESR?;*ESE?;:SYST:ERR?") == '0;60;0,"No error"'

#!/usr/bin/python3
"""A session with the virtual instrument through VISA, printed as it goes.

usage: demo.py PROGRAM SVG_FILE

PROGRAM is the instrument; the acquired wave form is written to SVG_FILE. The exit status is 0 when
all went as it should.
"""

import math
import pathlib
import sys

import plot
import visa_client
from instrument_process import InstrumentProcess
from transcript import Transcript

SAMPLE_RATE = 10_000  # of channel CH1, in samples a second
NUM_POINTS = 400
NUM_TRACES = 8


class Demo:
    """The session, and what went wrong in it."""

    def __init__(self, instrument, svg_file):
        self._instrument = instrument
        self._svg_file = pathlib.Path(svg_file)
        self._client = Transcript(visa_client.open_instrument(instrument.port))
        self.problems = []
        self.num_checks = 0

    def run(self):
        self.identify()
        self.acquire()
        self.trip_an_interlock()
        self.make_a_mistake()
        self.show_traces()

    def check(self, holds, statement):
        self.num_checks += 1
        if not holds:
            print(f"  ! not so: {statement}")
            self.problems.append(statement)

    def identify(self):
        self._client.title("Who is there?")
        identity = self._client.query("*IDN?")
        self.check(identity.startswith("generic_utils,Virtual Instrument,"), "it is the instrument")
        self._client.query("INSTrument:CATalog?")
        self._client.query("SYSTem:VERSion?")

    def acquire(self):
        self._client.title("Acquire a wave form: 400 samples of a sine of 50 Hz with noise.")
        self._client.write("*RST;*CLS")
        self._client.write("INSTrument CH1;:SENSe:VOLTage:RANGe 1")
        self._client.write(f"ACQuire:POINts {NUM_POINTS}")
        self._client.write("INITiate")
        self.check(self._client.query("*OPC?") == "1", "the acquisition ends")
        statistics = [float(field) for field in self._client.query("FETCh:STATistics?").split(",")]
        self._client.write("FORMat REAL")
        volts = self._client.query_doubles("FETCh:WAVeform?")
        self._client.query_text_block("FETCh:DUMP?")
        self.compare(volts, statistics)
        self.plot(volts)

    def compare(self, volts, statistics):
        minimum, maximum, mean, rms = statistics
        own_rms = math.sqrt(sum(value * value for value in volts) / len(volts))
        self.check(len(volts) == NUM_POINTS, "all samples have come")
        self.check(math.isclose(min(volts), minimum, rel_tol=1e-8), "the minimum is the samples'")
        self.check(math.isclose(max(volts), maximum, rel_tol=1e-8), "the maximum is the samples'")
        self.check(math.isclose(sum(volts) / len(volts), mean, rel_tol=1e-6),
                   "the mean is the samples'")
        self.check(math.isclose(own_rms, rms, rel_tol=1e-6), "the rms is the samples'")

    def plot(self, volts):
        print()
        print(plot.plot(volts, SAMPLE_RATE, self._svg_file))
        print(f"  The same as a picture: {self._svg_file}")
        self.check(self._svg_file.stat().st_size > 0, "there is a picture")

    def trip_an_interlock(self):
        self._client.title("Switch the output on, and open the cover.")
        self._client.write("OUTPut ON")
        self.check(self._client.query("OUTPut?") == "1", "the output is on")
        self._client.write('INTerlock:STATe "cover_open",1')
        self.check(self._client.query("INTerlock:TRIPped?") == '"cover"', "the cover trips")
        self.check(self._client.query("OUTPut?") == "0", "the output is off")
        self._client.write("OUTPut ON")
        self.check(self._client.query("SYSTem:ERRor?") == '-221,"Settings conflict"',
                   "the output stays off")
        self._client.write('INTerlock:STATe "cover_open",0')

    def make_a_mistake(self):
        self._client.title("Make mistakes.")
        self._client.write("VOLTage:RANGe")
        self._client.write("MEASure:CURRent?")
        self.check(self._client.query("SYSTem:ERRor?") == '-109,"Missing parameter"',
                   "the first error is kept")
        self.check(self._client.query("SYSTem:ERRor?") == '-113,"Undefined header"',
                   "the second error is kept")
        self.check(self._client.query("SYSTem:ERRor?") == '0,"No error"', "there are no more")

    def show_traces(self):
        self._client.title("Have the program and the library tell more, by their file of flags.")
        self.set_trace_levels(program=2, commands=1)
        self._client.query("MEASure:VOLTage?")
        self.set_trace_levels(program=0, commands=0)
        self._client.query("*OPC?")
        traces = self._instrument.traces()
        for trace in traces[:NUM_TRACES]:
            print(f"  | {trace}")
        self.check(any("MEASure:VOLTage?" in trace for trace in traces), "messages are traced")

    def set_trace_levels(self, program, commands):
        self._instrument.set_flag("instrument::m_traceSteps", program)
        self._instrument.set_flag("utils::command::m_traceSteps", commands)
        self._client.write("SYSTem:FLAGs:RELoad")


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    with InstrumentProcess([sys.argv[1]]) as instrument:
        print(f"The instrument listens on port {instrument.port} of this host.")
        demo = Demo(instrument, sys.argv[2])
        demo.run()
        status = instrument.stop()
        print(f"\nStopped by SIGTERM: exit status {status}.")
        demo.check(status == 0, "the program ends in order")
    verdict = "all as it should be" if not demo.problems else f"{len(demo.problems)} NOT SO"
    print(f"instrument demo: {demo.num_checks} checks, {verdict}")
    return 0 if not demo.problems else 1


if __name__ == "__main__":
    sys.exit(main())

"""Starts the instrument's program, and stops it in order."""

import pathlib
import re
import shutil
import signal
import subprocess
import tempfile

DATA_FOLDER = pathlib.Path(__file__).resolve().parent.parent
FLAGS_NAME = "generic_flags.txt"

# For programs that run under sanitizers or an emulator, on a busy machine.
STOP_SECONDS = 60


class InstrumentProcess:
    """The instrument, serving clients on this host, with a copy of its flags' file.

        with InstrumentProcess(["build/release/examples/instrument/instrument"]) as instrument:
            connect(instrument.port)

    Leaving the block stops the program, when it still runs, and removes its folder.
    """

    def __init__(self, command, port=0, configuration=None):
        """Starts the program.

        command: the words that start it, without options; port 0: a free one; configuration: a
        file, else the example's.
        """
        self._folder = tempfile.TemporaryDirectory(prefix="instrument-")
        folder = pathlib.Path(self._folder.name)
        self.flags_file = folder / FLAGS_NAME
        shutil.copyfile(DATA_FOLDER / FLAGS_NAME, self.flags_file)
        self._trace_file = folder / "traces.txt"
        with self._trace_file.open("wb") as traces:
            self._process = subprocess.Popen(
                [*command, "--port", str(port), "--flags", str(self.flags_file),
                 "--config", str(configuration or DATA_FOLDER / "instrument.xml")],
                stdout=subprocess.PIPE, stderr=traces, text=True)
        self.port = self._read_port()

    def _read_port(self):
        line = self._process.stdout.readline()
        found = re.fullmatch(r"instrument: listening on 127\.0\.0\.1:(\d+)\n", line)
        if not found:
            problem = f"unexpected start: {line!r} {self.traces()!r}"
            self.close()
            raise RuntimeError(problem)
        return int(found[1])

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def set_flag(self, name, value):
        """Changes the flags' file, which the program reads on SYSTem:FLAGs:RELoad."""
        text = self.flags_file.read_text()
        changed, count = re.subn(rf"(?m)^({re.escape(name)}\n).*$", rf"\g<1>{value}", text)
        if count != 1:
            raise KeyError(name)
        self.flags_file.write_text(changed)

    def traces(self):
        """What the program has written to its log stream so far, as lines."""
        return self._trace_file.read_text(errors="replace").splitlines()

    def signal(self, number=signal.SIGTERM):
        self._process.send_signal(number)

    @property
    def status(self):
        """The exit status, -N after signal N; None while the program runs."""
        return self._process.poll()

    def wait(self):
        """Waits for the end of the program, and returns its exit status."""
        return self._process.wait(STOP_SECONDS)

    def stop(self):
        """Has the program end in order, and returns its exit status."""
        self.signal()
        return self.wait()

    def close(self):
        """Ends the program at once, when it still runs, and removes its folder."""
        if self._process.poll() is None:
            self._process.kill()
            self._process.wait()
        self._process.stdout.close()
        self._folder.cleanup()

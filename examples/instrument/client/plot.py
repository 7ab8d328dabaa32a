"""Plots of wave forms, by gnuplot."""

import subprocess

TERMINALS = """
set xlabel "time / ms"
set ylabel "voltage / V"
unset key
set grid
set terminal svg size 800,400 background rgb "white"
set output "{svg_file}"
plot $waveform with lines linewidth 1.5
unset grid
set terminal dumb size 78,20
set output
plot $waveform with lines
"""


def plot(volts, sample_rate, svg_file):
    """Writes an SVG file, and returns the same as text."""
    points = "\n".join(f"{1000 * i / sample_rate} {value}" for i, value in enumerate(volts))
    script = f"$waveform << END\n{points}\nEND\n" + TERMINALS.format(svg_file=svg_file)
    plotted = subprocess.run(["gnuplot"], input=script, stdout=subprocess.PIPE, text=True,
                             check=True)
    return plotted.stdout.strip("\f\n")

#!/usr/bin/python3
"""Compares the dynamic symbols of a shared library with the reviewed list of them.

    abi/symbols.py check  LIBRARY LIST    fails when a symbol appeared, vanished or changed its kind
    abi/symbols.py update LIBRARY LIST    rewrites the list, to be reviewed like any other change

The library may be one for another machine: a line whose first word is "x86_64:" or "aarch64:"
holds for that machine alone, all others for every machine.
"""

import argparse
import difflib
import re
import subprocess
import sys
from collections import Counter
from pathlib import Path

from elftools.elf.elffile import ELFFile

HEADER = """\
# The dynamic symbols of {name}: the binary interface, as far as names go.
# First the name that programs ask the loader for, and the versions that symbols have. Then each
# line: what it is, for data its size in bytes, its name as written in C++. A number in brackets
# counts symbols of one name: the variants of a constructor or destructor.
#
# A line that vanishes breaks programs that were built before; docs/abi.md says what
# then follows. Made by: abi/symbols.py update LIBRARY abi/{file}
"""

MACHINES = {"EM_X86_64": "x86_64", "EM_AARCH64": "aarch64"}
KINDS = {"STB_GLOBAL": "", "STB_WEAK": "weak ", "STB_LOOS": "unique "}
# What the standard library's names are in the sources.
SHORTER = [
    (r"std::__cxx11::", "std::"),
    (r"std::basic_string<char, std::char_traits<char>, std::allocator<char> >", "std::string"),
    (r"std::basic_string_view<char, std::char_traits<char> >", "std::string_view"),
    (r"std::basic_([io]?)stream<char, std::char_traits<char> >", r"std::\1stream"),
    (r", std::less<[^<>]*>, std::allocator<std::pair<[^<>]*> > >", ">"),
    (r", std::allocator<[^<>]*> >", ">"),
    (r" >", ">"),
]


def demangle(names):
    filtered = subprocess.run(["c++filt"], input="\n".join(names), capture_output=True, text=True,
                              check=True)
    return filtered.stdout.splitlines()


def shorten(name):
    for long, short in SHORTER:
        name = re.sub(long, short, name)
    return name


def describe(symbol):
    binding = KINDS[symbol["st_info"]["bind"]]
    if symbol["st_info"]["type"] in ("STT_OBJECT", "STT_LOOS"):
        return f"{binding}data {symbol['st_size']}"
    return f"{binding}function"


def is_exported(symbol):
    return symbol["st_shndx"] not in ("SHN_UNDEF", "SHN_ABS") and symbol.name != ""


def soname(elf):
    return next(tag.soname for tag in elf.get_section_by_name(".dynamic").iter_tags("DT_SONAME"))


def versions(elf):
    """The versions of what is exported, by name; none in a library without versions."""
    defined = elf.get_section_by_name(".gnu.version_d")
    if defined is None:
        return []
    indices = elf.get_section_by_name(".gnu.version")
    used = {indices.get_symbol(number)["ndx"]
            for number, symbol in enumerate(elf.get_section_by_name(".dynsym").iter_symbols())
            if is_exported(symbol)}
    return sorted(next(names).name for version, names in defined.iter_versions()
                  if version["vd_ndx"] in used)


def read_library(path):
    """The machine that the library is for, and the lines that describe its symbols, sorted."""
    with open(path, "rb") as file:
        elf = ELFFile(file)
        symbols = [symbol for symbol in elf.get_section_by_name(".dynsym").iter_symbols()
                   if is_exported(symbol)]
        described = [describe(symbol) for symbol in symbols]
        names = [shorten(name) for name in demangle([symbol.name for symbol in symbols])]
        counts = Counter(zip(names, described))
        machine = MACHINES[elf["e_machine"]]
        lines = [f"soname {soname(elf)}", *(f"version {version}" for version in versions(elf))]
    lines += [f"{what} {name}" + (f" ({count})" if count > 1 else "")
              for (name, what), count in sorted(counts.items())]
    return machine, lines


def read_list(path, machine):
    lines = []
    for line in Path(path).read_text(encoding="utf-8").splitlines():
        first, _, rest = line.partition(": ")
        if first in MACHINES.values():
            line = rest if first == machine else ""
        if line and not line.startswith("#"):
            lines.append(line)
    return lines


def check(library, list_file):
    machine, found = read_library(library)
    reviewed = read_list(list_file, machine)
    difference = [line for line in difflib.unified_diff(sorted(reviewed), sorted(found), lineterm="", n=0)
                  if not line.startswith(("---", "+++", "@@"))]
    if not difference:
        print(f"{len(found)} lines, all of them reviewed")
        return 0
    print(f"{library} ({machine}) differs from {list_file}:", *difference, sep="\n")
    print("If this is meant: abi/symbols.py update, and see docs/abi.md.")
    return 1


def update(library, list_file):
    _, found = read_library(library)
    header = HEADER.format(name=Path(library).name.partition(".so")[0], file=Path(list_file).name)
    Path(list_file).write_text(header + "\n" + "\n".join(found) + "\n", encoding="utf-8")
    print(f"{len(found)} lines written to {list_file}")
    return 0


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("command", choices=["check", "update"])
    parser.add_argument("library")
    parser.add_argument("list")
    arguments = parser.parse_args()
    run = check if arguments.command == "check" else update
    return run(arguments.library, arguments.list)


if __name__ == "__main__":
    sys.exit(main())

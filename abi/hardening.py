#!/usr/bin/python3
"""Says whether a shared library is protected as generic_utils_harden() asks for.

    abi/hardening.py LIBRARY    for x86-64 or aarch64
"""

import sys

from elftools.elf.elffile import ELFFile

DF_BIND_NOW = 0x8
DF_1_NOW = 0x1

# What a function that may be called through a pointer begins with: endbr64; paciasp or bti c.
LANDING_PADS = {
    "EM_X86_64": [bytes.fromhex("f30f1efa")],
    "EM_AARCH64": [bytes.fromhex("3f2303d5"), bytes.fromhex("5f2403d5")],
}


def dynamic_value(elf, tag):
    values = [entry["d_val"] for entry in elf.get_section_by_name(".dynamic").iter_tags(tag)]
    return values[0] if values else 0


def bytes_at(elf, address, count):
    for segment in elf.iter_segments("PT_LOAD"):
        offset = address - segment["p_vaddr"]
        if 0 <= offset < segment["p_filesz"]:
            return segment.data()[offset:offset + count]
    return b""


def segments(elf, kind):
    return [segment for segment in elf.iter_segments(kind)]


def faults(elf):
    symbols = list(elf.get_section_by_name(".dynsym").iter_symbols())
    wanted = {symbol.name for symbol in symbols if symbol["st_shndx"] == "SHN_UNDEF"}
    checked = {name for name in wanted if name.startswith("__") and name.endswith("_chk")}
    is_bound_now = (dynamic_value(elf, "DT_FLAGS") & DF_BIND_NOW
                    or dynamic_value(elf, "DT_FLAGS_1") & DF_1_NOW)

    if not segments(elf, "PT_GNU_RELRO"):
        yield "its tables stay writable (no RELRO)"
    if not is_bound_now:
        yield "it is bound lazily (no BIND_NOW)"
    if any(segment["p_flags"] & 1 for segment in segments(elf, "PT_GNU_STACK")):
        yield "it asks for an executable stack"
    if any(segment["p_flags"] & 3 == 3 for segment in segments(elf, "PT_LOAD")):
        yield "a segment is writable and executable"
    if "__stack_chk_fail" not in wanted:
        yield "it does not check its stack (no stack protector)"
    if not checked:
        yield "it calls no checked variant of the C library's functions (not fortified)"

    pads = LANDING_PADS[elf["e_machine"]]
    functions = [symbol for symbol in symbols
                 if symbol["st_shndx"] != "SHN_UNDEF" and symbol["st_info"]["type"] == "STT_FUNC"]
    for symbol in functions:
        if bytes_at(elf, symbol["st_value"], 4) not in pads:
            yield f"{symbol.name} has no landing pad (no control-flow protection)"
    if not functions:
        yield "it exports no function"


def main(path):
    with open(path, "rb") as file:
        found = list(faults(ELFFile(file)))
    print(*[f"{path}: {fault}" for fault in found] or [f"{path}: hardened"], sep="\n")
    return 1 if found else 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1]))

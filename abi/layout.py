#!/usr/bin/python3
"""Compares the layout of classes, as debug information describes it, with the table of it.

    abi/layout.py OBJECT TABLE    OBJECT: tests/abi/layout.cpp, compiled for any 64-bit machine

Prints every difference; the exit status says whether there is one.
"""

import sys
from pathlib import Path

from dwarf_classes import read_classes

# Size and alignment of the types of fields that are no class of the table, on every 64-bit Linux.
SIZES = {
    "bool": (1, 1), "char": (1, 1), "unsigned short": (2, 2),
    "int": (4, 4), "unsigned int": (4, 4), "float": (4, 4),
    "int32_t": (4, 4), "std::int32_t": (4, 4), "std::uint32_t": (4, 4),
    "long": (8, 8), "unsigned long": (8, 8),
    "uint64_t": (8, 8), "uintptr_t": (8, 8), "std::size_t": (8, 8),
    "osMutexHandle_t": (8, 8), "osQueueHandle_t": (8, 8), "osTaskHandle_t": (8, 8),
    "utils::queue::Queue::QueueSelectionAlgorithm": (8, 8), "void(T::*)()": (16, 8),
    "utils::error::Error::Severity": (4, 4), "utils::task::Task::State": (4, 4),
    "std::string": (32, 8), "std::vector": (24, 8), "std::list": (24, 8),
    "std::map": (48, 8), "std::set": (48, 8),
    "std::ostringstream": (376, 8), "std::list::iterator": (8, 8),
    "generic::timing::IntervalAndDuration": (16, 8),
}


class Entry:
    """A class of the table."""

    def __init__(self, line):
        self.name, _, self.base = line.partition(" : ")
        self.size = None
        self.new = []
        self.overridden = []
        self.fields = []

    def add(self, line):
        keyword, _, rest = line.partition(" ")
        if keyword == "virtual":
            self.new.append(rest)
        elif keyword == "override":
            self.overridden.append(rest)
        elif keyword == "field":
            type_name, _, name = rest.rpartition(" ")
            self.fields.append((type_name, name))
        elif keyword == "size":
            self.size = int(rest)
        else:
            raise ValueError(f"'{line}' is no line of a layout table")


def read_table(path):
    entries = []
    for line in Path(path).read_text(encoding="utf-8").splitlines():
        if not line.strip() or line.startswith("#"):
            continue
        if line.startswith("class "):
            entries.append(Entry(line.removeprefix("class ")))
        else:
            entries[-1].add(line.strip())
    return {entry.name: entry for entry in entries}


def without_pure(text):
    return text.removesuffix(" = 0")


class Comparison:
    def __init__(self, classes, table):
        self.classes = classes
        self.table = table
        self.differences = []
        # GCC does not tell whether an operation is pure.
        self.tells_pure = any(operation.text.endswith(" = 0") for found in classes.values()
                              for operation in found.operations)

    def expect(self, entry, what, found, expected):
        if found != expected:
            self.differences.append(f"{entry.name}: {what} is {found}, not {expected}")

    def size_and_alignment(self, type_name):
        """Of a type as the table names it."""
        if type_name.endswith(("*", "&")):
            return 8, 8
        if type_name.startswith("char["):
            return int(type_name[5:-1]), 1
        if type_name in SIZES:
            return SIZES[type_name]
        return self.classes[type_name].size, 8

    def slots(self, entry):
        """The operations of a class in the order of their slots, without its base class's."""
        if entry is None:
            return []
        return self.slots(self.table.get(entry.base)) + entry.new

    def compare_operations(self, entry, found):
        # The destructor of a derived class, written or not, stands where the base class's does.
        operations = [operation for operation in found.operations
                      if found.has_own_table or not operation.is_destructor]
        declared = [operation.text for operation in operations]
        expected = entry.new + entry.overridden
        if not self.tells_pure:
            expected = [without_pure(text) for text in expected]
        self.expect(entry, "its set of virtual operations", sorted(declared), sorted(expected))

        # A destructor comes first and takes two slots.
        names = [without_pure(text) for text in self.slots(entry)]
        if names:
            self.expect(entry, "the first letter of its first virtual operation", names[0][0], "~")
        slots = {name: number + 1 for number, name in enumerate(names)}
        for operation in operations:
            if not operation.is_destructor:
                text = without_pure(operation.text)
                self.expect(entry, f"the slot of {text}", operation.slot, slots.get(text))

    def fields_begin(self, entry, found):
        """Where the first field of a class may stand: behind its base class, or its own pointer to
        the table of virtual operations."""
        ends = [8] if found.has_own_table else [0]
        base = self.table.get(entry.base)
        if base is not None:
            ends.append(self.fields_begin(base, self.classes[base.name]))
            ends += [field.offset + field.size for field in self.classes[base.name].fields]
        return max(ends)

    def spread(self, fields, names):
        """The fields of a class; those that are not in the table but are classes of the library
        themselves are replaced by the fields of theirs."""
        for field in fields:
            inner = self.classes.get(field.type_name)
            if field.name in names or inner is None:
                yield field
            else:
                yield from (part.moved(field.offset) for part in self.spread(inner.fields, names))

    def compare_fields(self, entry, found):
        offset = self.fields_begin(entry, found)
        names = [name for _, name in entry.fields]
        fields = list(self.spread(found.fields, names))
        self.expect(entry, "its list of fields",
                    [field.name for field in fields[:len(names)]], names)
        for field, (type_name, name) in zip(fields, entry.fields):
            size, alignment = self.size_and_alignment(type_name)
            offset = -(-offset // alignment) * alignment
            self.expect(entry, f"the place of {name}", field.offset, offset)
            self.expect(entry, f"the size of {name}", field.size, size)
            offset += size

    def compare(self, entry):
        found = self.classes.get(entry.name)
        if found is None:
            self.differences.append(f"{entry.name}: there is no such class")
            return
        self.expect(entry, "its list of base classes", found.bases,
                    [entry.base] if entry.base else [])
        if entry.size is not None:
            self.expect(entry, "its size", found.size, entry.size)
        self.compare_operations(entry, found)
        self.compare_fields(entry, found)


    def compare_all(self):
        for entry in self.table.values():
            self.compare(entry)
        for found in self.classes.values():
            has_layout = found.operations or found.fields
            if has_layout and found.name.startswith("utils::") and found.name not in self.table:
                self.differences.append(f"{found.name}: it is not in the table")


def main(object_file, table_file):
    table = read_table(table_file)
    comparison = Comparison(read_classes(object_file), table)
    comparison.compare_all()
    print(*comparison.differences, sep="\n", end="\n" if comparison.differences else "")
    slots = sum(len(entry.new) + len(entry.overridden) for entry in table.values())
    fields = sum(len(entry.fields) for entry in table.values())
    print(f"{len(table)} classes, {slots} virtual operations and {fields} fields compared, "
          f"{len(comparison.differences)} differences")
    return 1 if comparison.differences else 0


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))

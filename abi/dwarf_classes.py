"""The classes of an object file, as its debug information describes them."""

import copy
import re

from elftools.elf.elffile import ELFFile

# What compilers spell differently, or at length.
SPELLINGS = [
    (r"std::__cxx11::", "std::"),
    (r"std::basic_string<char, std::char_traits<char>, std::allocator<char> ?>", "std::string"),
    (r"\blong unsigned int\b", "unsigned long"),
    (r"\bshort unsigned int\b", "unsigned short"),
    (r"\blong int\b", "long"),
    (r" >", ">"),
]

RECORDS = ("DW_TAG_class_type", "DW_TAG_structure_type")
NOT_OURS = ("std", "__gnu_cxx", "__cxxabiv1")


def value(die, attribute, default=None):
    return die.attributes[attribute].value if attribute in die.attributes else default


def name_of(die):
    return value(die, "DW_AT_name", b"").decode()


def qualified_name(die):
    names = [name_of(die)]
    parent = die.get_parent()
    while parent is not None and parent.tag != "DW_TAG_compile_unit":
        if name_of(parent) != "__cxx11":
            names.append(name_of(parent))
        parent = parent.get_parent()
    name = "::".join(reversed(names))
    for pattern, replacement in SPELLINGS:
        name = re.sub(pattern, replacement, name)
    return name


def type_of(die):
    return die.get_DIE_from_attribute("DW_AT_type") if "DW_AT_type" in die.attributes else None


def spell(die):
    """A type as one would write it."""
    if die is None:
        return "void"
    target = type_of(die)
    if die.tag == "DW_TAG_pointer_type":
        return spell(target) + "*"
    if die.tag == "DW_TAG_reference_type":
        return spell(target) + "&"
    if die.tag == "DW_TAG_const_type":
        inner = spell(target)
        return inner + " const" if inner.endswith("*") else "const " + inner
    return qualified_name(die)


def size_of(die):
    """The size of a type in bytes."""
    if die.tag in ("DW_TAG_pointer_type", "DW_TAG_reference_type"):
        return 8
    if die.tag == "DW_TAG_ptr_to_member_type":
        return 16
    if die.tag == "DW_TAG_array_type":
        bounds = [child for child in die.iter_children() if child.tag == "DW_TAG_subrange_type"]
        count = value(bounds[0], "DW_AT_count", value(bounds[0], "DW_AT_upper_bound", -1) + 1)
        return count * size_of(type_of(die))
    if "DW_AT_byte_size" in die.attributes:
        return value(die, "DW_AT_byte_size")
    return size_of(type_of(die))


class Field:
    def __init__(self, die):
        self.name = name_of(die)
        self.offset = value(die, "DW_AT_data_member_location")
        self.size = size_of(type_of(die))
        self.type_name = spell(type_of(die))

    def moved(self, distance):
        result = copy.copy(self)
        result.offset += distance
        return result


class Operation:
    """A virtual operation; the slot of a destructor is not known, hence None."""

    def __init__(self, die):
        parameters = [child for child in die.iter_children()
                      if child.tag == "DW_TAG_formal_parameter"]
        this = type_of(type_of(parameters[0]))
        arguments = ", ".join(spell(type_of(parameter)) for parameter in parameters[1:]
                              if "DW_AT_artificial" not in parameter.attributes)
        self.is_destructor = name_of(die).startswith("~")
        self.text = "" if self.is_destructor else spell(type_of(die)) + " "
        self.text += re.sub(r"<.*>$", "", name_of(die)) + f"({arguments})"
        if this.tag == "DW_TAG_const_type":
            self.text += " const"
        if value(die, "DW_AT_virtuality") == 2:
            self.text += " = 0"
        self.slot = value(die, "DW_AT_vtable_elem_location", [None, None])[-1]
        if self.is_destructor:
            self.slot = None


class Class:
    def __init__(self, die):
        self.name = qualified_name(die)
        self.size = value(die, "DW_AT_byte_size")
        self.bases = []
        self.fields = []
        self.operations = []
        self.has_own_table = False
        for child in die.iter_children():
            self._add(child)
        self.fields.sort(key=lambda field: field.offset)

    def _add(self, child):
        if child.tag == "DW_TAG_inheritance":
            self.bases.append(qualified_name(type_of(child)))
        elif child.tag == "DW_TAG_subprogram" and value(child, "DW_AT_virtuality", 0) != 0:
            self.operations.append(Operation(child))
        elif child.tag == "DW_TAG_member" and name_of(child).startswith("_vptr"):
            self.has_own_table = True
        elif child.tag == "DW_TAG_member" and "DW_AT_data_member_location" in child.attributes:
            self.fields.append(Field(child))


def read_classes(path):
    """By name, every class that is complete in the object file, the standard library's left out."""
    classes = {}

    def visit(die):
        for child in die.iter_children():
            if name_of(child) in NOT_OURS:
                continue
            if child.tag in RECORDS and "DW_AT_declaration" not in child.attributes:
                found = Class(child)
                classes.setdefault(found.name, found)
            if child.tag in RECORDS + ("DW_TAG_namespace",):
                visit(child)

    with open(path, "rb") as file:
        for unit in ELFFile(file).get_dwarf_info().iter_CUs():
            visit(unit.get_top_DIE())
    return classes

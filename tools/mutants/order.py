# SPDX-License-Identifier: MIT
"""Whether anything can tell the order of two statements: what each writes and reads, as far as the
text shows it. Where it does not, the order is taken to matter."""

import dataclasses
import re

from clang import cindex

from source_text import is_foreign

Kind = cindex.CursorKind
JUMPS = (Kind.RETURN_STMT, Kind.BREAK_STMT, Kind.CONTINUE_STMT, Kind.CXX_THROW_EXPR)
ASSIGNING = re.compile(r"operator([-+*/%&|^]|<<|>>)?=|operator(\+\+|--)")
PROPERTY = "Property"
SILENT = "forms::Label"  # a change of it calls nobody but the view, which is painted later


@dataclasses.dataclass
class Effects:
    written: set = dataclasses.field(default_factory=set)
    read: set = dataclasses.field(default_factory=set)
    known: bool = True  # nothing else happens


def are_independent(source, first, second):
    """Whether neither statement writes what the other writes or reads, nor does anything unknown."""
    one, other = effects(source, first), effects(source, second)
    if not (one.known and other.known):
        return False
    return not any(_overlap(mine, theirs)
                   for mine, theirs in [*((a, b) for a in one.written for b in other.written | other.read),
                                        *((a, b) for a in other.written for b in one.read)])


def effects(source, cursor):
    found = Effects()
    _note(source, cursor, found)
    return found


def _overlap(one, other):
    shorter, longer = sorted((one, other), key=len)
    return longer == shorter or longer.startswith((f"{shorter}.", f"{shorter}->", f"{shorter}["))


def _path(source, cursor):
    """A variable's or field's text up to the first index or call, without blanks."""
    text = "".join(source.text(cursor.extent.start.offset, cursor.extent.end.offset).split())
    return re.split(r"[\[(]", text.removeprefix("this->").removeprefix("*"))[0]


def _note(source, cursor, found):
    kind = cursor.kind
    if kind == Kind.LAMBDA_EXPR:
        return None  # what stands in it is not done yet
    if kind in JUMPS:
        found.known = False
    if kind in (Kind.DECL_REF_EXPR, Kind.MEMBER_REF_EXPR):
        used = cursor.referenced
        if used is not None and used.kind in (Kind.VAR_DECL, Kind.PARM_DECL, Kind.FIELD_DECL):
            found.read.add(_path(source, cursor))
            return _note_owner(source, cursor, found)
    if kind == Kind.CALL_EXPR:
        _note_call(source, cursor, found)
    elif kind == Kind.COMPOUND_ASSIGNMENT_OPERATOR or kind == Kind.UNARY_OPERATOR or (
            kind == Kind.BINARY_OPERATOR and _sign(source, cursor) == "="):
        found.written.add(_path(source, next(cursor.get_children())))
    for child in cursor.get_children():
        _note(source, child, found)
    return None


def _note_owner(source, cursor, found):
    """What a field's owner takes to be found: the owner's own name stands in the field's path."""
    for child in cursor.get_children():
        if child.kind == Kind.CALL_EXPR and child.spelling != "operator->":
            _note(source, child, found)
        else:
            _note_owner(source, child, found)


def _sign(source, cursor):
    sides = list(cursor.get_children())
    return source.masked[sides[0].extent.end.offset:sides[1].extent.start.offset].strip().decode()


def _note_call(source, cursor, found):
    used = cursor.referenced
    children = list(cursor.get_children())
    if used is None or not children:
        return
    if ASSIGNING.fullmatch(used.spelling):
        found.written.add(_path(source, children[0]))
        if not (_is_plain(used) or _is_silent(children[0])):
            found.known = False
        return
    if not _is_plain(used):
        found.known = False
        return
    if children[0].kind == Kind.MEMBER_REF_EXPR and not used.is_const_method():
        of = next(children[0].get_children(), None)
        found.written.add(_path(source, of) if of is not None else "this")
    for given, taken in zip(cursor.get_arguments(), used.get_arguments()):
        spelling = taken.type.get_canonical().spelling
        if spelling.endswith(("&", "*")) and "const" not in spelling:
            found.written.add(_path(source, given))


def _is_plain(used):
    """Whether a function is the standard library's, one that the compiler wrote, or asks for the value
    of a control's property."""
    place = used.location.file
    return (place is None or is_foreign(place.name) or used.location == used.semantic_parent.location or
            (used.semantic_parent.spelling == PROPERTY and used.is_const_method()))


def _is_silent(property_cursor):
    owner = next(property_cursor.get_children(), None)
    while owner is not None and owner.kind == Kind.UNEXPOSED_EXPR:  # seen as what it derives from
        owner = next(owner.get_children(), None)
    return owner is not None and owner.type.get_canonical().spelling.rstrip(" *").endswith(SILENT)

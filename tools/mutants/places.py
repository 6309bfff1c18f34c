# SPDX-License-Identifier: MIT
"""Finds the places of a source file that can be broken, with libclang's tree of it."""

import dataclasses
import re

from clang import cindex

import literals
from breaks import Break, give_ids
from source_text import SourceText, is_foreign
from statements import Statements

Kind = cindex.CursorKind
RELATIONS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||",
             "||": "&&"}
INDIFFERENT = {"min", "max", "swap"}  # their arguments may stand either way
VARIABLES = (Kind.VAR_DECL, Kind.FIELD_DECL, Kind.PARM_DECL)
FUNCTIONS = (Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR,
             Kind.CONVERSION_FUNCTION, Kind.FUNCTION_TEMPLATE)
NEVER_BROKEN = (Kind.ENUM_DECL, Kind.STATIC_ASSERT, Kind.TYPE_ALIAS_DECL, Kind.TYPEDEF_DECL,
                Kind.USING_DECLARATION, Kind.TYPE_ALIAS_TEMPLATE_DECL, Kind.ANNOTATE_ATTR,
                Kind.TEMPLATE_NON_TYPE_PARAMETER, Kind.ALIGNED_ATTR)


@dataclasses.dataclass
class Demotion:
    """A constexpr constant that must become an ordinary one to be breakable: the keyword's bytes."""
    name: str
    start: int
    end: int
    broken: str
    wrap: str = "instead"


@dataclasses.dataclass(frozen=True)
class Surroundings:
    in_constant: bool = False   # must be known to the compiler: never broken
    in_constexpr: bool = False  # may be: asks the switch only at run time
    owner: str = ""


class Finder(Statements):
    """Walks one file; fills breaks, demotions and the names that the compiler must know."""

    def __init__(self, path, data, arguments):
        self.source = SourceText(data)
        self.breaks = []
        self.demotions = []
        self.needed = set()       # constants used where only the compiler's own values will do
        self.uses = {}            # constant: those in its initialiser
        self.macros = []
        self.declared = set()     # where the names of variables stand
        unit = cindex.Index.create().parse(
            str(path), args=["-x", "c++", *arguments],
            options=cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD)
        errors = [str(item) for item in unit.diagnostics if item.severity >= 3]
        if errors:
            raise ValueError(f"{path}: cannot be read: {errors[0]}")
        own = [child for child in unit.cursor.get_children()
               if child.location.file and child.location.file.name == str(path)]
        for child in own:
            if child.kind == Kind.MACRO_INSTANTIATION:
                self.macros.append((child.extent.start.offset, child.extent.end.offset))
        for child in own:
            if not child.kind.is_preprocessing():
                self.walk(child, None, Surroundings())

    # -- recording

    def extent(self, cursor):
        return cursor.extent.start.offset, cursor.extent.end.offset

    def in_macro(self, start, end):
        return any(start < macro_end and macro_start < end for macro_start, macro_end in self.macros)

    def add(self, sort, start, end, broken, wrap, around, place=None, shown=None, told=None):
        """Adds a break of the bytes; `place`, `shown` and `told` are for the reader when they differ
        from what is written into the file."""
        original = self.source.text(start, end)
        if around.in_constant or self.in_macro(start, end) or broken == original:
            return
        line, line_text = self.source.line(start if place is None else place)
        self.breaks.append(Break(sort, start, end, broken, wrap, shown or original, told or broken,
                                 line, line_text, around.in_constexpr, around.owner))

    # -- walking

    def walk(self, cursor, parent, around):
        kind = cursor.kind
        if kind in NEVER_BROKEN:
            around = dataclasses.replace(around, in_constant=True)
        elif kind in FUNCTIONS:
            head_end = next((self.extent(child)[0] for child in cursor.get_children()
                             if child.kind == Kind.COMPOUND_STMT), self.extent(cursor)[1])
            head = self.source.masked[self.extent(cursor)[0]:head_end]
            if re.search(rb"\b(constexpr|consteval)\b", head):
                around = dataclasses.replace(around, in_constexpr=True)
        elif kind in VARIABLES:
            self.declared.add(cursor.location.offset)
            around = self.variable(cursor, around)
        self.own_breaks(cursor, parent, around)
        for child in cursor.get_children():
            self.walk(child, cursor, self.around_child(cursor, child, around))

    def around_child(self, cursor, child, around):
        start = self.extent(child)[0]
        constant = False
        if cursor.kind in VARIABLES or cursor.kind in FUNCTIONS:
            constant = start < cursor.location.offset and child.kind.is_expression()
            if cursor.kind in VARIABLES and not constant and child.kind.is_expression():
                between = self.source.masked[cursor.location.offset:start]
                constant = between.rstrip().endswith(b"[") and not re.search(rb"[={(]", between)
        elif cursor.kind == Kind.CASE_STMT:
            constant = child == next(cursor.get_children())
        elif cursor.kind == Kind.DECL_REF_EXPR:
            constant = child.kind.is_expression()
        elif cursor.kind == Kind.MEMBER_REF_EXPR:
            constant = child.kind.is_expression() and start > cursor.location.offset
        elif cursor.kind == Kind.IF_STMT:
            constant = (child.kind.is_expression() and
                        bool(re.match(rb"if\s+constexpr", self.source.masked[self.extent(cursor)[0]:])))
        elif child.kind.is_expression() and cursor.kind.is_expression():
            between = self.source.masked[self.extent(cursor)[0]:start]
            constant = bool(re.fullmatch(rb"[\w:\s]+<[\w:\s,]*", between))
        return dataclasses.replace(around, in_constant=True) if constant else around

    def variable(self, cursor, around):
        if cursor.kind == Kind.FIELD_DECL:
            return dataclasses.replace(around, in_constexpr=True)
        start = self.extent(cursor)[0]
        head = self.source.masked[start:cursor.location.offset]
        keyword = re.search(rb"\bconstexpr\b", head)
        if not keyword:
            return around
        name = cursor.get_usr()
        rest = head[keyword.end():]
        instead = "" if re.search(rb"\*|\bconst\b", rest) else "const"
        if cursor.semantic_parent.kind in (Kind.CLASS_DECL, Kind.STRUCT_DECL, Kind.CLASS_TEMPLATE):
            instead = f"inline {instead}"
        self.demotions.append(Demotion(name, start + keyword.start(), start + keyword.end(), instead))
        return Surroundings(owner=name)

    def note_use(self, cursor, around):
        used = cursor.referenced
        if used is None or used.kind != Kind.VAR_DECL:
            return
        if around.in_constant:
            self.needed.add(used.get_usr())
        elif around.owner:
            self.uses.setdefault(around.owner, set()).add(used.get_usr())

    # -- the sorts

    def own_breaks(self, cursor, parent, around):
        kind = cursor.kind
        if kind == Kind.DECL_REF_EXPR:
            self.note_use(cursor, around)
            self.enumerator(cursor, around)
        elif kind == Kind.BINARY_OPERATOR:
            sides = list(cursor.get_children())
            if len(sides) == 2:
                self.relation(cursor, sides, around)
        elif kind == Kind.CALL_EXPR:
            arguments = [item for item in cursor.get_arguments() if item is not None]
            if cursor.spelling.startswith("operator") and len(arguments) == 2:
                self.relation(cursor, arguments, around)
            elif self.extent(cursor)[0] not in self.declared:  # where it is no call but a declaration
                self.arguments(cursor, arguments, around)
        elif kind in (Kind.INTEGER_LITERAL, Kind.FLOATING_LITERAL, Kind.CXX_BOOL_LITERAL_EXPR,
                      Kind.STRING_LITERAL, Kind.CHARACTER_LITERAL):
            self.literal(cursor, parent, around)
        else:
            self.statement_breaks(cursor, parent, around)

    def relation(self, cursor, sides, around):
        (start, left_end), (right_start, end) = (self.extent(side) for side in sides)
        if not start < left_end <= right_start < end:
            return
        sign = self.source.masked[left_end:right_start].strip().decode()
        if sign not in RELATIONS:
            return
        broken = (f"{self.source.text(start, left_end)} {RELATIONS[sign]} "
                  f"{self.source.text(right_start, end)}")
        self.add("relation", start, end, broken, "value", around)

    def arguments(self, cursor, arguments, around):
        name = cursor.spelling
        if name in INDIFFERENT or name.startswith("operator") or len(arguments) < 2:
            return
        start, end = self.extent(cursor)
        extents = [self.extent(item) for item in arguments]
        taken = [] if cursor.referenced is None else list(cursor.referenced.get_arguments())
        by_value = not any("&" in item.type.spelling for item in taken)
        changed = [self.is_changed(item.type) for item in taken]
        if self.source.masked[end - 1:end] != b")" or extents[0][0] <= start:
            return
        for number, ((first, second), (left, right)) in enumerate(
                zip(zip(arguments, arguments[1:]), zip(extents, extents[1:]))):
            if not start < left[0] < left[1] <= right[0] < right[1] < end:
                continue
            if len(set(changed[number:number + 2])) == 2:  # what is changed must be a variable
                continue
            if not self.alike(first.type, second.type, by_value):
                continue
            text = self.source.text
            broken = (text(start, left[0]) + text(*right) + text(left[1], right[0]) + text(*left) +
                      text(right[1], end))
            if text(*left) != text(*right):
                self.add("argument", start, end, broken, "value", around)

    @staticmethod
    def is_changed(item):
        item = item.get_canonical()
        return (item.kind == cindex.TypeKind.LVALUEREFERENCE and
                not item.get_pointee().is_const_qualified())

    @staticmethod
    def alike(first, second, by_value):
        def bare(item):
            item = item.get_canonical()
            if item.kind in (cindex.TypeKind.LVALUEREFERENCE, cindex.TypeKind.RVALUEREFERENCE):
                item = item.get_pointee()
            return item
        first, second = bare(first), bare(second)
        numbers = range(cindex.TypeKind.BOOL.value, cindex.TypeKind.LONGDOUBLE.value + 1)
        if by_value and first.kind.value in numbers and second.kind.value in numbers:
            return True
        return first.spelling.replace("const ", "") == second.spelling.replace("const ", "")

    def enumerator(self, cursor, around):
        used = cursor.referenced
        if used is None or used.kind != Kind.ENUM_CONSTANT_DECL:
            return
        place = used.location.file
        if place is None or is_foreign(place.name):
            return
        names = [item.spelling for item in used.semantic_parent.get_children()
                 if item.kind == Kind.ENUM_CONSTANT_DECL]
        start, end = self.extent(cursor)
        text = self.source.text(start, end)
        if len(names) < 2 or not text.endswith(used.spelling):
            return
        place = names.index(used.spelling)
        other = names[place + 1] if place + 1 < len(names) else names[place - 1]
        self.add("constant", start, end, text[:len(text) - len(used.spelling)] + other, "value",
                 around)

    def literal(self, cursor, parent, around):
        start, end = self.extent(cursor)
        text = self.source.text(start, end)
        if cursor.kind == Kind.CXX_BOOL_LITERAL_EXPR:
            broken = {"true": "false", "false": "true"}.get(text)
        elif cursor.kind == Kind.STRING_LITERAL:
            broken = literals.broken_text(text)
        elif cursor.kind == Kind.CHARACTER_LITERAL:
            broken = literals.broken_character(text)
        else:
            broken = literals.broken_number(text)
        if not broken:
            return
        wrap = "value"
        if cursor.kind == Kind.STRING_LITERAL and parent is not None and parent.kind in VARIABLES:
            declared = parent.type.get_canonical().kind
            if declared in (cindex.TypeKind.CONSTANTARRAY, cindex.TypeKind.INCOMPLETEARRAY):
                wrap = "characters"
                if not literals.letters_of(text):
                    return
        self.add("constant", start, end, broken, wrap, around)


def find(path, data, arguments, file):
    """The breaks of a file in their order, and what is known of its constants."""
    finder = Finder(path, data, arguments)
    unique = {(item.sort, item.start, item.end, item.broken): item for item in finder.breaks}
    breaks = sorted(unique.values(), key=lambda item: (item.start, -item.end))
    give_ids(breaks, file)
    return breaks, finder

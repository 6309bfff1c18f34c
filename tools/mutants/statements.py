# SPDX-License-Identifier: MIT
"""The breaks that concern whole statements: a negated condition, one left out, two exchanged."""

import re

from clang import cindex

from order import are_independent

Kind = cindex.CursorKind
BODIES = (Kind.IF_STMT, Kind.FOR_STMT, Kind.WHILE_STMT, Kind.DO_STMT, Kind.CXX_FOR_RANGE_STMT,
          Kind.CASE_STMT, Kind.DEFAULT_STMT)
COMPOUNDS = (Kind.IF_STMT, Kind.FOR_STMT, Kind.WHILE_STMT, Kind.CXX_FOR_RANGE_STMT, Kind.SWITCH_STMT,
             Kind.DO_STMT, Kind.COMPOUND_STMT)
CALLS = (Kind.CALL_EXPR,)


class Statements:
    """Part of the finder of places."""

    def statement_breaks(self, cursor, parent, around):
        if cursor.kind == Kind.COMPOUND_STMT:
            children = list(cursor.get_children())
            for child in children:
                self.left_out(child, cursor, parent, around)
            self.exchanges(children, around)
        elif cursor.kind in BODIES:
            for child in cursor.get_children():
                self.left_out(child, cursor, parent, around)
        if cursor.kind in (Kind.IF_STMT, Kind.WHILE_STMT, Kind.FOR_STMT, Kind.DO_STMT):
            self.condition(cursor, around)
        elif cursor.kind == Kind.CONDITIONAL_OPERATOR:
            self.negate(next(cursor.get_children()), around)

    # -- conditions

    def condition_place(self, cursor):
        """The first place of a statement's condition, and its end."""
        start, end = self.extent(cursor)
        masked = self.source.masked
        if cursor.kind == Kind.DO_STMT:
            opening = masked.rfind(b"while", start, end)
            opening = masked.find(b"(", opening)
        else:
            opening = masked.find(b"(", start)
        closing = self.source.closing(opening)
        parts, depth, last = [], 0, opening + 1
        for place in range(opening + 1, closing):
            sign = masked[place:place + 1]
            depth += (sign in b"([{") - (sign in b")]}")
            if sign == b";" and depth == 0:
                parts.append((last, place))
                last = place + 1
        parts.append((last, closing))
        if cursor.kind == Kind.FOR_STMT:
            return parts[1] if len(parts) == 3 else None
        return parts[-1]

    def condition(self, cursor, around):
        if re.match(rb"if\s+constexpr", self.source.masked[self.extent(cursor)[0]:]):
            return
        place = self.condition_place(cursor)
        if place is None:
            return
        children = [child for child in cursor.get_children()
                    if place[0] <= self.extent(child)[0] and self.extent(child)[1] <= place[1]]
        if len(children) == 1 and children[0].kind.is_expression():  # not a variable declared in it
            self.negate(children[0], around)

    def negate(self, cursor, around):
        start, end = self.extent(cursor)
        text = self.source.text(start, end)
        # The relation's own break already says the opposite.
        if re.search(rb"[=!]=", self.source.masked[start:end]) and not re.search(
                rb"&&|\|\||[(?]", self.source.masked[start:end]):
            return
        self.add("negated", start, end, f"!({text})", "condition", around)

    # -- statements

    def statement_end(self, cursor):
        """Where an expression statement, a jump or a plain return ends; None for anything else."""
        start, end = self.extent(cursor)
        simple = cursor.kind in (Kind.BREAK_STMT, Kind.CONTINUE_STMT, Kind.RETURN_STMT)
        if not (cursor.kind.is_expression() or simple):
            return None
        return self.source.past_semicolon(end)

    def has_call(self, cursor):
        return cursor.kind in CALLS or any(self.has_call(child) for child in cursor.get_children())

    def left_out(self, cursor, holder, parent, around):
        end = self.statement_end(cursor)
        if end is None or self.is_part_of_head(cursor, holder):
            return
        start = self.extent(cursor)[0]
        if cursor.kind == Kind.RETURN_STMT:
            value = next(cursor.get_children(), None)
            if value is not None and value.type.spelling != "void":
                return
        if cursor.kind in (Kind.RETURN_STMT, Kind.BREAK_STMT, Kind.CONTINUE_STMT):
            if self.source.next_sign(end) == "}" and self.ends_all(holder, parent):
                return
        text = self.source.text(start, end)
        if re.match(r"\(void\)", text) and not self.has_call(cursor):
            return
        self.add("left out", start, end, "", "statement", around)

    @staticmethod
    def ends_all(holder, parent):
        """Whether a jump at the end of its block jumps to where the block ends anyway."""
        if holder.kind in (Kind.CASE_STMT, Kind.DEFAULT_STMT):
            return True
        return holder.kind == Kind.COMPOUND_STMT and parent is not None and (
            parent.kind.is_declaration() or parent.kind == Kind.SWITCH_STMT)

    def is_part_of_head(self, cursor, holder):
        """Whether an expression is a condition, a step or a label rather than a statement."""
        start = self.extent(cursor)[0]
        if holder.kind == Kind.CASE_STMT:
            return cursor == next(holder.get_children())
        if holder.kind in (Kind.COMPOUND_STMT, Kind.DEFAULT_STMT):
            return False
        opening = self.source.masked.find(b"(", self.extent(holder)[0])
        if holder.kind == Kind.DO_STMT:
            return cursor != next(holder.get_children())
        return opening < start < self.source.closing(opening)

    def exchanges(self, children, around):
        """Neighbours that may change places: a break covers the whole row of them, so that rows do
        not overlap."""
        row = []
        for child in [*children, None]:
            end = self.movable_end(child) if child is not None else None
            if end is not None:
                row.append((child, self.extent(child)[0], end))
                continue
            self.exchange_in_row(row, around)
            row = []

    def movable_end(self, cursor):
        if cursor.kind in (Kind.BREAK_STMT, Kind.CONTINUE_STMT, Kind.RETURN_STMT):
            return None
        if cursor.kind in COMPOUNDS:
            end = self.extent(cursor)[1]
            ended = self.source.masked[end - 1:end] in (b"}", b";")
            return self.source.past_semicolon(end) or (end if ended else None)
        return self.statement_end(cursor)

    def exchange_in_row(self, row, around):
        for place in range(len(row) - 1):
            first, second = row[place], row[place + 1]
            if self.independent(first, second):
                continue
            order = row[:place] + [second, first] + row[place + 2:]
            broken = "\n".join(self.source.text(start, end) for _, start, end in order)
            told = f"{self.source.text(*second[1:])} {self.source.text(*first[1:])}"
            shown = f"{self.source.text(*first[1:])} {self.source.text(*second[1:])}"
            self.add("exchanged", row[0][1], row[-1][2], broken, "statement", around, first[1],
                     shown, told)

    def independent(self, first, second):
        """Whether nothing can tell their order: both are the same, are cases of one value, or know
        nothing of each other."""
        texts = [self.source.text(start, end) for _, start, end in (first, second)]
        return (texts[0] == texts[1] or self.are_cases(first[0], second[0], texts) or
                are_independent(self.source, first[0], second[0]))

    @staticmethod
    def are_cases(first, second, texts):
        """Whether both are carried out for a different value of the same constant."""
        heads = [re.match(r"^if \((\w+) == ([\w:]+)\)", text) for text in texts]
        if not all(heads) or heads[0][1] != heads[1][1] or heads[0][2] == heads[1][2]:
            return False
        if any(len(list(cursor.get_children())) != 2 for cursor in (first, second)):
            return False  # what is done otherwise is done for every other value
        return any(used.kind == Kind.DECL_REF_EXPR and used.spelling == heads[0][1] and
                   used.referenced.type.is_const_qualified()
                   for used in first.walk_preorder())

# SPDX-License-Identifier: MIT
"""The tool that breaks the code: what it finds, what it writes, and how it keeps its list."""

import collections
import subprocess
import sys

import pytest

from tree import ROOT

sys.path.insert(0, str(ROOT / "tools" / "mutants"))

import breaks as breaking
import generate
import literals
import places
import report
import running
import schema
import unnoticeable


def find(tmp_path, text, name="core/sample.cpp"):
    path = tmp_path / "sample.cpp"
    path.write_text(text, encoding="utf-8")
    return places.find(path, text.encode(), ["-std=c++20"], name)


def changes(tmp_path, text, sort):
    return [(item.original, item.told) for item in find(tmp_path, text)[0] if item.sort == sort]


@pytest.mark.parametrize("name, text, sort, expected", [
    ("less becomes less or equal", "bool f(int a, int b) { return a < b; }", "relation",
     [("a < b", "a <= b")]),
    ("equal becomes unequal", "bool f(int a, int b) { return a == b; }", "relation",
     [("a == b", "a != b")]),
    ("and becomes or", "bool f(bool a, bool b) { return a && b; }", "relation",
     [("a && b", "a || b")]),
    ("a class's own comparison", "struct S { bool operator==(int) const; }; "
     "bool f(const S& s) { return s != 1; }", "relation", [("s != 1", "s == 1")]),
    ("a number", "int f() { return 7; }", "constant", [("7", "8")]),
    ("a truth", "bool f() { return true; }", "constant", [("true", "false")]),
    ("a text", 'const wchar_t* f() { return L"\\nab"; }', "constant", [('L"\\nab"', 'L"\\nbb"')]),
    ("an enumerator", "enum class E { A, B }; E f() { return E::A; }", "constant",
     [("E::A", "E::B")]),
    ("a field's first value", "struct S { int n = 3; };", "constant", [("3", "4")]),
    ("no label, no size, no enumerator's value", "enum { A = 4 }; int n[5]; "
     "void g(); void f(int a) { switch (a) { case 6: g(); } }", "constant", []),
    ("a condition", "void f(bool a) { if (a) f(false); }", "negated", [("a", "!(a)")]),
    ("a loop's condition", "void f(bool (*a)()) { for (; a();) {} }", "negated", [("a()", "!(a())")]),
    ("not beside the relation that says the same", "void f(int a) { while (a == 1) {} }",
     "negated", []),
    ("not a variable that it declares", "int* f(); void g() { if (int* p = f()) g(); }",
     "negated", []),
    ("a call", "void f(); void g() { f(); }", "left out", [("f();", "")]),
    ("a single statement behind if", "void f(); void g(bool a) { if (a) f(); else g(true); }",
     "left out", [("f();", ""), ("g(true);", "")]),
    ("no dropped name, no last break", "void f(int a) { (void)a; switch (a) { default: break; } }",
     "left out", []),
    ("two calls", "void f(); void g(); void h() { f(); g(); }", "exchanged",
     [("f(); g();", "g(); f();")]),
    ("not two that the compiler resets alike", "struct S { int n = 0; }; struct T { S a, b; }; "
     "void f(T* t) { t->a = {}; t->b = {}; }", "exchanged", []),
    ("not two handlers", "#include <functional>\nstruct S { std::function<void()> A, B; }; void g(); "
     "void f(S& s) { s.A = [] { g(); }; s.B = g; }", "exchanged", []),
    ("two whose assignment may do something", "struct P { P& operator=(int); }; "
     "void f(P& a, P& b) { a = 1; b = 2; }", "exchanged", [("a = 1; b = 2;", "b = 2; a = 1;")]),
    ("not two cases of one value", "void g(); void h(); "
     "void f(const int n) { if (n == 1) g(); if (n == 2) h(); }", "exchanged", []),
    ("two cases of a value that may change", "void g(); void h(int&); "
     "void f(int n) { if (n == 1) h(n); if (n == 2) g(); }", "exchanged",
     [("if (n == 1) h(n); if (n == 2) g();", "if (n == 2) g(); if (n == 1) h(n);")]),
    ("what returns an empty value", "struct S {}; void f(); S g(bool a) { if (a) return {}; f(); "
     "return {}; }", "exchanged", [("if (a) return {}; f();", "f(); if (a) return {};")]),
    ("not two assignments that know nothing of each other",
     "int a, b; void f() { a = 1; b = 2; }", "exchanged", []),
    ("not two objects of the library that are emptied",
     "#include <string>\nvoid f(std::string& a, std::string& b) { a.clear(); b.clear(); }",
     "exchanged", []),
    ("not a field and what is done to another",
     "struct S { int a, b; }; void f(S& s, bool c) { s.a = 1; if (c) s.b = 2; }", "exchanged", []),
    ("a whole and a part of it", "struct S { int a; }; void f(S& s) { s = {}; s.a = 1; }",
     "exchanged", [("s = {}; s.a = 1;", "s.a = 1; s = {};")]),
    ("a return and an assignment", "int a; void f(bool c) { if (c) return; a = 1; a = 2; }",
     "exchanged", [("if (c) return; a = 1;", "a = 1; if (c) return;"),
                   ("a = 1; a = 2;", "a = 2; a = 1;")]),
    ("two changes of one object", "#include <string>\nvoid f(std::string& a) { a.clear(); a += 'b'; }",
     "exchanged", [("a.clear(); a += 'b';", "a += 'b'; a.clear();")]),
    ("not two properties of a label, of which only its view hears",
     "namespace forms { template <class T> struct Property { Property& operator=(T); T Get() const; }; "
     "struct Control { Property<int> l, w; }; struct Label : Control { Property<int> c; }; } "
     "void f(forms::Label* a) { a->l = 1; a->w = a->c.Get(); a->c = 3; }",
     "exchanged", [("a->w = a->c.Get(); a->c = 3;", "a->c = 3; a->w = a->c.Get();")]),
    ("what a property does by itself and another property",
     "namespace forms { struct Property { Property& operator=(int); void Fire(); }; "
     "struct Label { Property l, w; }; } void f(forms::Label& a) { a.l.Fire(); a.w = 1; }",
     "exchanged", [("a.l.Fire(); a.w = 1;", "a.w = 1; a.l.Fire();")]),
    ("two assignments of which one reads the other", "int a, b; void f() { a = 1; b = a; }",
     "exchanged", [("a = 1; b = a;", "b = a; a = 1;")]),
    ("two arguments of a kind", "int f(int, int); int g(int a, int b) { return f(a, b); }",
     "argument", [("f(a, b)", "f(b, a)")]),
    ("not those of a declaration",
     "struct S { S(int, int); ~S(); }; int f(int a, int b) { S One(a, b); return 0; }",
     "argument", []),
    ("not one that is changed", "bool f(bool&, bool); bool g(bool a) { return f(a, false); }",
     "argument", []),
    ("not arguments of two kinds", "int f(int*, int); int g(int* a, int b) { return f(a, b); }",
     "argument", []),
], ids=lambda value: value if isinstance(value, str) and "(" not in value else None)
def test_place_is_broken(tmp_path, name, text, sort, expected):
    assert changes(tmp_path, text, sort) == expected, name


SAMPLE = """\
#include <cstdio>
constexpr int SIZE = 2;
constexpr int STEP = 5;
constexpr int TWICE = 2 * STEP;
constexpr wchar_t WORD[] = L"ab";
constexpr int Doubled(int n) { return n * 2; }
int Room[SIZE + Doubled(1)];
int Sum(int a, int b) { if (a < b) { a += STEP; a *= 2; } return a - b; }
int main() {
    std::printf("%d %d %d %d", Sum(1, 1), Sum(1, 2), TWICE, Doubled(3));
    std::printf(" %d %d", static_cast<int>(WORD[0]), static_cast<int>(sizeof Room / sizeof Room[0]));
    std::puts("");
}
"""


@pytest.fixture(scope="module")
def sample(tmp_path_factory):
    """Every break of the sample, compiled once; gives what the program prints with one of them."""
    folder = tmp_path_factory.mktemp("sample")
    breaks, finder = find(folder, SAMPLE)
    needed = generate.constant_needs([{"needed": finder.needed, "uses": finder.uses}],
                                     type("Refused", (), {"constants": set()}))
    kept = [item for item in breaks if item.owner not in needed]
    for number, item in enumerate(kept, 1):
        item.number = number
    written = schema.write(SAMPLE.encode(), kept,
                           [item for item in finder.demotions if item.name not in needed])
    (folder / "broken.cpp").write_bytes(written.data)
    subprocess.run(["g++", "-std=c++20", "-w", f"-I{ROOT}", "-o", folder / "broken",
                    folder / "broken.cpp"], check=True)

    def printed(sort=None, original=None, told=None):
        number = next((item.number for item in kept if (item.sort, item.original) == (sort, original)
                       and told in (None, item.told)), 0)
        assert number or not sort, f"{original} is not broken"
        return subprocess.run([folder / "broken"], env={"TAVIRO_MUTANT": str(number)}, check=True,
                              capture_output=True, text=True).stdout.strip()
    printed.kept = kept
    return printed


@pytest.mark.parametrize("sort, original, expected", [
    (None, None, "0 10 10 6 97 4"),
    ("relation", "a < b", "11 10 10 6 97 4"),
    ("constant", "5", "0 12 12 6 97 4"),          # a named constant, and what is made of it
    ("constant", 'L"ab"', "0 10 10 6 98 4"),      # an array made of a text
    ("left out", "a *= 2;", "0 4 10 6 97 4"),
    ("exchanged", "a += STEP; a *= 2;", "0 5 10 6 97 4"),
    ("argument", "Sum(1, 2)", "0 1 10 6 97 4"),
    ("negated", "a < b", "11 -1 10 6 97 4"),
])
def test_broken_program_prints(sample, sort, original, expected):
    assert sample(sort, original) == expected


def test_constant_stays_whole_when_the_compiler_needs_it(sample):
    assert not [item for item in sample.kept if item.line_text.startswith("constexpr int SIZE")]


def test_constexpr_function_is_broken_only_while_it_runs(sample):
    assert sample("constant", "2", "3").split()[-1] == "4"


def test_name_of_a_break_stays_when_other_lines_change(tmp_path):
    before = find(tmp_path, "int f() { return 7; }\n")[0]
    after = find(tmp_path, "// a comment\nvoid g();\nint f() { return 7; }\n")[0]
    assert [item.id for item in before] == [item.id for item in after]


def test_equal_lines_have_names_of_their_own(tmp_path):
    breaks = find(tmp_path, "int f() {\nreturn 7;\n}\nint g() {\nreturn 7;\n}\n")[0]
    assert len({item.id for item in breaks}) == len(breaks) == 2


def test_sample_is_a_share_of_the_names(tmp_path):
    text = "".join(f"int f{n}() {{ return {n}; }}\n" for n in range(400))
    breaks = find(tmp_path, text)[0]
    chosen = breaking.sample(breaks, 0.25)
    assert 60 < len(chosen) < 140
    assert {item.id for item in chosen} <= {item.id for item in breaking.sample(breaks, 0.5)}


@pytest.mark.parametrize("text, expected", [
    ("5", "6"), ("9U", "10U"), ("0x10", "(0x10 + 1)"), ("1.5", "(1.5 + 1)"), ("0", "1")])
def test_number_becomes_its_neighbour(text, expected):
    assert literals.broken_number(text) == expected


def test_record_tells_what_each_test_reaches():
    reach = running.read_record("- 0 9\n+A.B 3 1 2\n+A.C 1 2\n!A.D 5 2\n")
    assert reach.tests == {1: ["A.B"], 2: ["A.B", "A.C"]}
    assert (reach.everywhere, reach.failing) == ({9}, ["A.D"])


def test_cheapest_tests_come_first_and_slow_ones_last():
    reach = running.read_record("- 0\n+A.Slow 900 1\n+A.B 3 1\n+A.C 1 1\n+A.Else 1 2\n")
    item = type("Item", (), {"number": 1})
    assert running.chosen_tests(item, reach, ()) == [["A.C", "A.B"], ["A.Slow"]]


def test_tests_that_noticed_before_come_first():
    noticers = collections.Counter({"A.C": 2, "A.Gone": 9, "": 3})
    assert running.with_noticers([["A.B", "A.C"], ["A.D"]], noticers) == [["A.C"], ["A.B"], ["A.D"]]


@pytest.mark.parametrize("file, expected", [("core/a.cpp", [["A.B"]]),
                                            ("core/a.h", [["A.B"], ["A.Else"]])])
def test_what_is_computed_at_the_start_is_asked_of_those_that_may_read_it(file, expected):
    reach = running.read_record("- 0 1\n+A.B 3 2\n+A.Else 1 5000\n")
    item = type("Item", (), {"number": 1, "file": file})
    assert running.chosen_tests(item, reach, {"A.B"}) == expected


def test_tables_that_stand_alone_in_a_file_are_asked_of_all_tests():
    reach = running.read_record("- 0 1\n+A.B 3 2\n+A.Else 1 5000\n")
    item = type("Item", (), {"number": 1, "file": "core/a.cpp"})
    assert running.chosen_tests(item, reach, ()) == [["A.Else", "A.B"]]


LISTED = "# why\ncore/a.cpp | constant | 0123abcd | nobody reads it\n"


def test_listed_break_that_exists_and_survives_is_not_stale():
    item = type("Item", (), {"file": "core/a.cpp", "sort": "constant"})
    listed = unnoticeable.read(LISTED)
    assert not unnoticeable.stale(listed, {"0123abcd": item}, {"core/a.cpp"}, set())


@pytest.mark.parametrize("name, sort, noticed", [
    ("ffffffff", "constant", set()), ("0123abcd", "relation", set()),
    ("0123abcd", "constant", {"0123abcd"})], ids=["gone", "another sort", "noticed now"])
def test_stale_entry_is_reported(name, sort, noticed):
    item = type("Item", (), {"file": "core/a.cpp", "sort": sort})
    complaints = unnoticeable.stale(unnoticeable.read(LISTED), {name: item}, {"core/a.cpp"}, noticed)
    assert len(complaints) == 1 and "line 2" in complaints[0]


@pytest.mark.parametrize("line", ["core/a.cpp | constant | 0123abcd |", "core/a.cpp constant x y",
                                  "core/a.cpp | guess | 0123abcd | why"])
def test_line_that_cannot_be_read_is_refused(line):
    with pytest.raises(unnoticeable.BadList):
        unnoticeable.read(line)


def test_slow_tests_are_not_asked():
    text = f"- 0\n+A.Slow {running.TOO_SLOW_MS + 1} 1\n+A.B 3 1\n"
    assert running.read_record(text).tests == {1: ["A.B"]}
    assert running.too_slow(text) == [text.splitlines()[1]]


def test_memory_asked_for_ahead_is_not_broken(tmp_path):
    text = "struct S { void reserve(int); void f(); }; void g(S& s) { s.reserve(3); s.f(); }"
    breaks = find(tmp_path, text)[0]
    assert [item.original for item in breaks if item.sort in ("left out", "exchanged") and
            not generate.changes_nothing(item)] == ["s.f();"]


def test_sample_fails_below_its_floor():
    assert report.sample_complaints(10, 8, 0.8) == []
    assert "7 noticed" in report.sample_complaints(10, 7, 0.8)[0]

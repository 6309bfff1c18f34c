# SPDX-License-Identifier: MIT
"""Files stay short enough to be one idea, and procedures to be read at once. Those of C++ are measured
by clang-tidy."""

import ast
import re

from tree import cpp_files, read, scripts

MOST_LINES = 400
MOST_PROCEDURE_LINES = 60
TABLES = {}  # path: why it may be longer
SHELL_PROCEDURE = re.compile(r"^(\w+)\(\) [{(].*?\n[})]", re.MULTILINE | re.DOTALL)


def long_files(root, tables=None):
    tables = TABLES if tables is None else tables
    problems = []
    for path in cpp_files(root) + scripts(root):
        lines = len((read(root, path) or "").splitlines())
        if lines > MOST_LINES and str(path) not in tables:
            problems.append(f"{path}: {lines} lines, at most {MOST_LINES} are one idea")
        if lines <= MOST_LINES and str(path) in tables:
            problems.append(f"{path}: short enough, its exemption can go")
    return problems


def _python_procedures(text):
    return [(node.name, node.end_lineno - node.lineno + 1) for node in ast.walk(ast.parse(text))
            if isinstance(node, (ast.FunctionDef, ast.AsyncFunctionDef))]


def _shell_procedures(text):
    return [(found[1], found[0].count("\n") + 1) for found in SHELL_PROCEDURE.finditer(text)]


def long_procedures(root):
    problems = []
    for path in scripts(root):
        text = read(root, path) or ""
        procedures = _python_procedures(text) if path.suffix == ".py" else _shell_procedures(text)
        problems += [f"{path}: {name} has {lines} lines, at most {MOST_PROCEDURE_LINES}"
                     for name, lines in procedures if lines > MOST_PROCEDURE_LINES]
    return problems

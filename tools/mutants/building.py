# SPDX-License-Identifier: MIT
"""Makes a copy of the tree in which every break is written, and compiles its unit tests. What the
compiler does not take is left away, and it is asked again."""

import bisect
import os
import re
import subprocess

import generate
import schema
from folders import BUILD, ROOT, folder_of

TREE = BUILD / "tree"
OBJECTS = BUILD / "build"
PROGRAM = OBJECTS / "tests" / "taviro_unit_tests"
RECORDER = ROOT / "tools" / "mutants" / "runtime" / "recorder.cpp"
MOST_ROUNDS = 12
LOCATED = re.compile(r"^(\S+?):(\d+):(\d+): +(fatal error|error|note|required|  )?")


def write_if_new(path, data):
    if path.exists() and path.read_bytes() == data:
        return
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(data)


def copy_tree(names, written):
    """Writes the tree; files that are the same keep their time, so that little is compiled."""
    wanted = {name: (ROOT / name).read_bytes() for name in names if name not in written}
    wanted |= {name: text.data for name, text in written.items()}
    wanted["tests/unit/mutants/recorder.cpp"] = RECORDER.read_bytes()
    for name, data in wanted.items():
        write_if_new(TREE / name, data)
        if name == "test" or name.endswith(".sh"):
            (TREE / name).chmod(0o755)
    for folder, _, files in os.walk(TREE):
        for file in files:
            path = os.path.join(folder, file)
            if os.path.relpath(path, TREE) not in wanted:
                os.remove(path)


def compile_targets(targets, jobs):
    """Returns what the compiler said; None when all was compiled."""
    environment = dict(os.environ, LC_ALL="C", PATH="/usr/bin:/bin:" + os.environ.get("PATH", ""))
    configure = ["cmake", "-S", str(TREE), "-B", str(OBJECTS), "-G", "Ninja",
                 "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS=-w -O0 -g0 -fdiagnostics-color=never",
                 "-DCMAKE_CXX_FLAGS_DEBUG="]
    if not (OBJECTS / "build.ninja").exists():
        subprocess.run(configure, check=True, env=environment, stdout=subprocess.DEVNULL)
    built = subprocess.run(["ninja", "-C", str(OBJECTS), "-j", str(jobs), "-k", "0", *targets],
                           env=environment, check=False, capture_output=True, text=True,
                           errors="replace")
    return None if built.returncode == 0 else built.stdout + built.stderr


def compile_all(found, jobs):
    """The modules first: what is refused in their headers would let all tests be compiled again."""
    modules = sorted({folder_of(file["name"]) for file in found if file["name"].endswith(".cpp")})
    return compile_targets(modules, jobs) or compile_targets(["taviro_unit_tests"], jobs)


class Complaints:
    """Finds in the compiler's words which breaks or constants it does not take."""

    def __init__(self, found, written):
        self.ids = {item.number: item.id for file in found for item in file["breaks"]}
        self.written = written
        self.starts = {name: [0, *(match.end() for match in re.finditer(rb"\n", text.data))]
                       for name, text in written.items()}
        self.constants = {}
        for file in found:
            for item in file["demotions"]:
                self.constants.setdefault(re.split(r"[@:#]", item.name)[-1], set()).add(item.name)

    def innermost(self, file, line, column):
        name = os.path.relpath(os.path.join(OBJECTS, file), TREE)
        if name not in self.written or line >= len(self.starts[name]) + 1:
            return None
        place = self.starts[name][line - 1] + column - 1
        around = [(end - start, number) for start, end, number in self.written[name].places
                  if start <= place < end]
        return self.ids[min(around)[1]] if around else None

    def read(self, said, refused):
        """Adds what is refused; returns whether anything was."""
        before = len(refused.breaks) + len(refused.constants)
        groups = re.split(r"(?m)^(?=\S+:\d+:\d+: (?:fatal )?error: )", said)[1:]
        for group in groups:
            if not self.blame(group, refused):
                self.blame_constants(group, refused)
        return len(refused.breaks) + len(refused.constants) > before

    def blame(self, group, refused):
        for line in group.splitlines():
            found = LOCATED.match(line)
            guilty = found and self.innermost(found[1], int(found[2]), int(found[3]))
            if guilty and guilty not in refused.breaks:
                refused.breaks.add(guilty)
                return True
            if found and found[4] in ("error", "fatal error") and self.named(line, refused):
                return True
        return False

    def named(self, line, refused):
        names = {name.split("::")[-1] for name in re.findall(r"'(?:const \w+ )?([\w:{}<>() ]+)'", line)}
        known = set().union(*(self.constants.get(name, set()) for name in names)) - refused.constants
        refused.constants |= known
        return bool(known)

    def blame_constants(self, group, refused):
        for word in set(re.findall(r"\w+", group)):
            refused.constants |= self.constants.get(word, set())


def build(names, jobs, say):
    """Everything found, what of it was compiled; the program stands at PROGRAM then."""
    found = generate.find_all(names, jobs)
    refused = generate.Refused()
    for _ in range(MOST_ROUNDS):
        needed = generate.constant_needs(found, refused)
        written, breaks = {}, {}
        for file in found:
            breaks[file["name"]], demotions = generate.taken(file, needed, refused)
            written[file["name"]] = schema.write(file["data"], breaks[file["name"]], demotions)
        copy_tree(names, written)
        said = compile_all(found, jobs)
        if said is None:
            refused.save()
            return found, breaks
        (BUILD / "compiler.log").write_text(said)
        if not Complaints(found, written).read(said, refused):
            raise RuntimeError(f"the broken code cannot be compiled: {BUILD / 'compiler.log'}")
        refused.save()
        say(f"{len(refused.breaks)} breaks and {len(refused.constants)} constants are not taken")
    raise RuntimeError("the compiler goes on complaining")

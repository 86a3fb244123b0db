#!/usr/bin/env python3
"""Changes one line of the logic at a time and tells which changes no test sees.

   ./test mutants [N] [FOLDER] [--seed S]

FOLDER is a path from src/ (all of it unless given), N how many changes are tried (20 unless given).
Everything happens in a copy of the tree below build/mutants; the tree itself is never touched. The
programs that link the changed file are built again and run; a change that doesn't compile counts for
nothing and another one is taken in its place.
"""
import argparse
import os
import pathlib
import random
import re
import shutil
import signal
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
COPY = ROOT / "build" / "mutants" / "tree"
BUILD = COPY / "build" / "dev"
# What a line turns into: pattern and replacement. The first match after each place counts once.
CHANGES = [
    (r"(?<![-<>=])<(?![<=a-zA-Z:\"])", "<="), (r"(?<=\s)<(?=\s)", ">="), (r"(?<=\s)>(?=\s)", "<="),
    (r"<=(?!>)", "<"), (r">=", ">"), (r"==", "!="), (r"!=", "=="),
    (r"&&", "||"), (r"(?<=\s)\|\|", "&&"),
    (r"(?<=\s)\+(?=\s)", "-"), (r"(?<=\s)-(?=\s)", "+"), (r"(?<=\s)\*(?=\s)", "/"),
    (r"(?<=\s)/(?=\s)", "*"), (r"\+\+", "--"), (r"\+=", "-="), (r"-=", "+="),
    (r"\btrue\b", "false"), (r"\bfalse\b", "true"),
    (r"(?<=[(\s])!(?=[\w(])", ""), (r"\bif \((?!auto|const )", "if (!("),
    (r"(?<![\w.\"'])\d+(?![\w.\"'])", None), (r"\bbreak;", ""), (r"\bcontinue;", ""),
]


class Mutant:
    def __init__(self, file, line, old, new):
        self.file, self.line, self.old, self.new = file, line, old, new


def is_code(line):
    text = line.strip()
    return bool(text) and not text.startswith(("//", "#", "namespace", "using ", "}", "class ",
                                               "struct ", "enum ", "template", "static_assert"))


def without_texts(line):
    """The line with the insides of its quotes and its remark blanked, so that places stay."""
    blank = lambda match: match.group()[0] + "\0" * (len(match.group()) - 2) + match.group()[-1]
    line = re.sub(r"\"(?:[^\"\\]|\\.)*\"|'(?:[^'\\]|\\.)*'", blank, line)
    return re.sub(r"//.*$", lambda match: "\0" * len(match.group()), line)


def closing(text, opening):
    """The place of the bracket that closes the one at opening, or -1."""
    depth = 0
    for place in range(opening, len(text)):
        depth += {"(": 1, ")": -1}.get(text[place], 0)
        if depth == 0:
            return place
    return -1


def changes_of(line, previous):
    """All texts that one change makes of a line."""
    bare = without_texts(line)
    found = []
    for pattern, instead in CHANGES:
        for match in re.finditer(pattern, bare):
            begin, end = match.span()
            if instead is None:
                number = int(match.group())
                new = line[:begin] + str(number + 1) + line[end:]
            elif instead == "if (!(":
                close = closing(bare, bare.index("(", begin))
                if close < 0 or ";" in bare[begin:close]:
                    continue
                new = line[:begin] + instead + line[end:close] + "))" + line[close + 1:]
            else:
                new = line[:begin] + instead + line[end:]
            found.append(new)
    begins = previous.rstrip().endswith((";", "{", "}", ":")) or not previous.strip()
    text = bare.strip()
    # A statement of one line that declares nothing, and a row of a table, can go.
    if begins and re.match(r"(?:[\w:]+(?:->|\.|::))*\w+(?:\(|\s*[-+]?=\s|->)", text) and \
            text.endswith(";") and not text.startswith(("return", "case", "else")):
        found.append("")
    if re.match(r"\{.*\},$", text):
        found.append("")
    # What is empty already can't be emptied.
    if re.match(r"return [^;]+;$", text) and \
            re.search(r"\b(?:true|false)\b|^return (?:std::nullopt|\{\}|0|Q\w+\(\));", text) is None:
        found.append(re.sub(r"return .*;", "return {};", line))
    return [new for new in dict.fromkeys(found) if new != line]


def mutants_below(folder):
    found = []
    for file in sorted((ROOT / "src" / folder).rglob("*.cpp")):
        # Screens are laid out line by line; what counts stands in logic.
        if "ui" in file.relative_to(ROOT / "src").parts:
            continue
        lines = file.read_text(encoding="utf-8").split("\n")
        for index, line in enumerate(lines):
            if not is_code(line):
                continue
            for new in changes_of(line, lines[index - 1] if index else ""):
                found.append(Mutant(file.relative_to(ROOT), index, line, new))
    return found


def run(command):
    """The outcome and the output of a command. Nothing of it outlives this program."""
    with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          errors="replace", start_new_session=True) as process:
        try:
            output, _ = process.communicate()
        except BaseException:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()
            raise
        return process.returncode, output


def copy_tree():
    """Brings the copy up to date. Files that are alike keep their times, so little is built again."""
    names = subprocess.run(["git", "-C", str(ROOT), "ls-files", "-co", "--exclude-standard", "-z"],
                           capture_output=True, check=True, text=True).stdout.split("\0")
    wanted = {name for name in names if name and (ROOT / name).is_file()}
    for name in wanted:
        source, target = ROOT / name, COPY / name
        if not target.exists() or target.read_bytes() != source.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, target)
    for target in COPY.rglob("*"):
        name = str(target.relative_to(COPY))
        if not name.startswith("build") and target.is_file() and name not in wanted:
            target.unlink()


def configure(keep_templates):
    """Sets the copy's build up. keep_templates: a change makes no new databases to start tests from."""
    code, text = run(["cmake", "-S", str(COPY), "--preset", "dev", "-B", str(BUILD),
                      f"-DQUORVANTIS_KEEP_TEMPLATES={'ON' if keep_templates else 'OFF'}"])
    if code != 0:
        sys.exit(text)


def test_programs():
    """All test programs by their place in the build. Programs that tests start are none."""
    code, text = run(["ninja", "-C", str(BUILD), "-t", "targets", "all"])
    if code != 0:
        sys.exit(text)
    lists = "\n".join(one.read_text(encoding="utf-8") for one in COPY.glob("tests/**/CMakeLists.txt"))
    tests = set(re.findall(r"(?:add_project_test\(|COMMAND )(\w+)", lists))
    built = set(re.findall(r"^(tests/\w+): CXX_EXECUTABLE", text, re.M))
    return sorted(one for one in built if one.removeprefix("tests/") in tests)


def inputs_of(program):
    """The objects that a program is made of, its own and those of its libraries."""
    code, text = run(["ninja", "-C", str(BUILD), "-t", "inputs", program])
    if code != 0:
        sys.exit(text)
    return {line.strip() for line in text.splitlines() if line.strip().endswith(".o")}


def programs_with(file, inputs):
    """The programs that link a source, in groups to be tried one after another: the tests of its own
    folder, those of the folder's screens, then each other program, the smallest first."""
    wanted = str(file) + ".o"
    linking = [program for program in inputs if program != "tests/test_architecture" and any(
        re.sub(r"CMakeFiles/[^/]+\.dir/", "", one) == wanted for one in inputs[program])]
    folder = "tests" + str(file.parent).removeprefix("src") + "/"
    own = [program for program in linking
           if any(one.startswith(folder) for one in inputs[program])]
    screens = [program for program in own if any("/ui/" in one for one in inputs[program])]
    others = sorted(set(linking) - set(own), key=lambda program: len(inputs[program]))
    groups = [[one for one in own if one not in screens], screens, *([one] for one in others)]
    return [group for group in groups if group]


def first_failure(programs):
    """None when all cases of these programs pass, else the name of one that doesn't."""
    # Cases are called program.suite.case, those of the corpus program.file.
    names = "|".join(program.removeprefix("tests/") for program in programs)
    code, text = run(["ctest", "--test-dir", str(BUILD), "-R", rf"^({names})\.", "-j",
                      str(os.cpu_count()), "--timeout", "60", "--stop-on-failure",
                      "--no-tests=error", "--output-on-failure"])
    if code == 0:
        return None
    failed = re.search(r"^\s*\d+ - (\S+) \(", text, re.M)
    return (failed.group(1) if failed else "ctest"), text


class Programs:
    """Test programs that have been seen green without any change."""

    def __init__(self):
        self.green = set()

    def build(self, programs):
        return run(["ninja", "-C", str(BUILD), *programs])

    def are_sure(self, programs):
        return self.green.issuperset(programs)

    def make_sure(self, programs):
        fresh = [program for program in programs if program not in self.green]
        if not fresh:
            return
        code, text = self.build(fresh)
        if code != 0:
            sys.exit(text[-3000:])
        failed = first_failure(fresh)
        if failed:
            sys.exit(f"{failed[0]} fails without any change:\n{failed[1][-3000:]}")
        self.green.update(fresh)


def try_out(mutant, groups, programs):
    """The test that sees the change, "" when none does, None when it doesn't compile."""
    target = COPY / mutant.file
    kept = target.read_bytes()
    lines = kept.decode("utf-8").split("\n")
    lines[mutant.line] = mutant.new
    changed = "\n".join(lines).encode("utf-8")
    try:
        for group in groups:
            if not programs.are_sure(group):
                target.write_bytes(kept)
                programs.make_sure(group)
            if target.read_bytes() != changed:
                target.write_bytes(changed)
            code, _ = programs.build(group)
            if code != 0:
                return None
            failed = first_failure(group)
            if failed:
                return failed[0]
    finally:
        target.write_bytes(kept)
    return ""


def in_turn(found, number):
    """The first changes in the order of their files, so that each file is compiled once a change and
    not a second time as it was; then the rest, for those that don't compile."""
    return sorted(found[:number], key=lambda mutant: str(mutant.file)) + found[number:]


def main():
    asked = argparse.ArgumentParser(prog="./test mutants")
    asked.add_argument("number", nargs="?", type=int, default=20)
    asked.add_argument("folder", nargs="?", default="")
    asked.add_argument("--seed", type=int, default=None)
    asked.add_argument("--list", action="store_true", help="only print what would be tried")
    options = asked.parse_args()
    seed = options.seed if options.seed is not None else random.randrange(1_000_000)
    folder = options.folder.removeprefix("src/")

    found = mutants_below(folder)
    if not found:
        sys.exit(f"There is nothing to change in src/{folder}.")
    random.Random(seed).shuffle(found)
    print(f"{len(found)} changes are possible in src/{folder}; seed {seed}", flush=True)
    if options.list:
        for mutant in found[:options.number]:
            print(f"{mutant.file}:{mutant.line + 1}\n  - {mutant.old.strip()}\n"
                  f"  + {mutant.new.strip() or '(dropped)'}")
        return 0

    signal.signal(signal.SIGTERM, lambda *_: sys.exit(130))
    copy_tree()
    configure(keep_templates=False)
    code, text = run(["ninja", "-C", str(BUILD), "empty_database", "sample_database"])
    if code != 0:
        sys.exit(text[-3000:])
    configure(keep_templates=True)
    inputs = {program: inputs_of(program) for program in test_programs()}

    programs = Programs()
    tried = survived = 0
    for mutant in in_turn(found, options.number):
        if tried == options.number:
            break
        groups = programs_with(mutant.file, inputs)
        if not groups:
            print(f"{mutant.file}: no test program links it", flush=True)
            continue
        seen_by = try_out(mutant, groups, programs)
        if seen_by is None:
            continue
        tried += 1
        survived += not seen_by
        fate = f"seen by {seen_by}" if seen_by else "SURVIVED"
        print(f"{mutant.file}:{mutant.line + 1} {fate}\n  - {mutant.old.strip()}\n"
              f"  + {mutant.new.strip() or '(dropped)'}", flush=True)
    print(f"{tried} changes tried, {tried - survived} seen, {survived} survived; seed {seed}")
    return 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except KeyboardInterrupt:
        sys.exit(130)

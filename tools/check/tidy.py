#!/usr/bin/env python3
"""Runs clang-tidy over the sources that are given, many of them as one.

   tools/check/tidy.py clang-tidy clang++ SOURCE...

Nearly all of a run's time goes into the toolkit's headers, so sources that are compiled alike are
put into one file, whose headers are read and walked once. Where two of them use one name at file
level, the later one's is renamed; what still doesn't compile beside the others goes into another batch.
Any finding fails, and so does a source that doesn't compile by itself. tools/check/tidy.sh configures the
build whose commands are read here.
"""
import collections
import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "tidy"
# More at once saves little, and what walks a batch grows with it.
LARGEST_BATCH = 30
# How far the analyzer follows the branches of one function. Without it, few functions would take most of the time.
ANALYZER_LIMIT = ["-Xclang", "-analyzer-config", "-Xclang", "max-nodes=40000"]


def flags_by_source():
    """What each source is compiled with, without its own names and the warnings, which are others' task."""
    found = {}
    for entry in json.loads((BUILD / "compile_commands.json").read_text()):
        words = shlex.split(entry["command"])
        kept = [word for word in words[1:words.index("-o")]
                if not word.startswith("-W") and "_autogen" not in word]
        found[os.path.relpath(entry["file"], ROOT)] = tuple(kept)
    return found


def dealt(sources):
    """The sources in as few batches as may be, neighbours apart: they are likelier to use one name twice."""
    number = -(-len(sources) // LARGEST_BATCH)
    return [sources[first::number] for first in range(number)]


class Batch:
    """Sources one after the other in one file, not included by it: some checks look at no other."""

    def __init__(self, name, flags, sources):
        self.file = BUILD / "batches" / f"{name}.cpp"
        self.flags, self.sources = flags, sources
        self.renamed = collections.defaultdict(list)  # by source
        self.places = []  # source and line of each line

    def write(self):
        lines, self.places = [], []
        for number, source in enumerate(self.sources):
            names = self.renamed[source]
            text = (ROOT / source).read_text().splitlines()
            lines += [f"#define {name} {name}{number}" for name in names]
            lines += text
            lines += [f"#undef {name}" for name in names]
            self.places += [(source, 1)] * len(names)
            self.places += [(source, line) for line in range(1, len(text) + 1)]
            self.places += [(source, len(text))] * len(names)
        self.file.parent.mkdir(exist_ok=True)
        self.file.write_text("\n".join(lines) + "\n")

    def in_the_way(self, compiler):
        """The sources that don't compile behind those before them, with the names that both define."""
        self.write()
        said = subprocess.run([compiler, *self.flags, "-fsyntax-only", "-w", "-ferror-limit=0", self.file],
                              capture_output=True, text=True).stderr
        failed, source = collections.defaultdict(set), self.sources[0]
        for text in said.splitlines():
            if place := re.search(rf"{re.escape(str(self.file))}:(\d+):", text):
                source = self.places[int(place[1]) - 1][0]
            if re.search(r": (fatal )?error: ", text):
                failed[source].update(re.findall(r"redefinition of '(\w+)'", text))
        if self.sources[0] in failed:
            sys.exit(f"{self.sources[0]} does not compile:\n{said}")
        return failed

    def settle(self, compiler):
        """Leaves only what compiles together in the batch, and gives the others."""
        others = []
        while failed := self.in_the_way(compiler):
            for source, names in failed.items():
                new = sorted(names.difference(self.renamed[source]))
                self.renamed[source] += new
                if not new:
                    others.append(source)
                    self.sources.remove(source)
        return others

    def findings(self, tidy):
        """Whether all is well, and what is told, at the places of the sources."""
        run = subprocess.run([tidy, "--quiet", self.file, "--", *self.flags, *ANALYZER_LIMIT],
                             capture_output=True, text=True)
        told = re.sub(rf"^{re.escape(str(self.file))}:(\d+)", lambda place: "{}/{}:{}".format(
            ROOT, *self.places[int(place[1]) - 1]), run.stdout, flags=re.MULTILINE)
        return run.returncode == 0, told if told or run.returncode == 0 else run.stderr


def checked(tidy, compiler, name, flags, sources):
    """Checks the sources in one batch, and those that can't stand in it in further ones."""
    runs = []
    while sources:
        batch = Batch(f"{name}-{len(runs)}", flags, sources)
        sources = batch.settle(compiler)
        runs.append(batch.findings(tidy))
    return runs


def told_once(output, told):
    """Prints findings, which begin with a line that names a place; headers come up in several batches."""
    for finding in re.split(r"^(?=/)", output, flags=re.MULTILINE):
        if finding not in told:
            told.add(finding)
            print(finding.replace(f"{ROOT}/", ""), end="", flush=True)


def main():
    tidy, compiler, *sources = sys.argv[1:]
    groups, flags = collections.defaultdict(list), flags_by_source()
    for source in sources:
        if source not in flags:
            sys.exit(f"{source} is built into nothing.")
        groups[flags[source]].append(source)
    batches = [(flags, batch) for flags, group in groups.items() for batch in dealt(group)]
    failed, told = False, set()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as threads:
        tasks = [threads.submit(checked, tidy, compiler, str(number), *batch)
                 for number, batch in enumerate(batches)]
        for task in concurrent.futures.as_completed(tasks):
            for is_clean, output in task.result():
                told_once(output, told)
                failed = failed or not is_clean
    sys.exit(1 if failed else 0)


main()

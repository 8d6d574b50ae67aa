#!/usr/bin/env python3
"""Runs clang-tidy on sources, several at a time in one translation unit.

  tools/run_tidy.py BUILD SOURCE...   BUILD holds compile_commands.json

Most of the time goes into the toolkit's headers, which a batch reads once. Sources whose names
collide in a batch are checked one by one. Prints the findings; fails if there are any, or when a
source cannot be checked.
"""
import collections
import json
import os
import shlex
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BATCH = 8
# A test has its main function and its moc output at its end.
TEST_HEAD = "#include <QtTest>\n" + "".join(
    f"#undef {name}\n#define {name}(test)\n"
    for name in ("QTEST_MAIN", "QTEST_GUILESS_MAIN", "QTEST_APPLESS_MAIN"))


def flags_of(command):
    """The flags that decide what the source sees."""
    flags, words = [], iter(shlex.split(command))
    for word in words:
        if word in ("-I", "-isystem"):
            flags.append(word + next(words))
        elif word.startswith(("-I", "-isystem", "-D", "-std")):
            flags.append(word)
    return flags


def batches_of(sources, commands):
    """Neighbours by folder, so that the batches do not depend on the order given."""
    groups = collections.defaultdict(list)
    for source in sorted(set(sources)):
        if source not in commands:
            sys.exit(f"tools/run_tidy.py: there is no compile command of {source}")
        parts = source.split("/")
        groups["/".join(parts[:2]) if parts[0] in ("libs", "tests") else parts[0]].append(source)
    for group in groups.values():
        for first in range(0, len(group), BATCH):
            yield group[first:first + BATCH]


def tidy(build, number, batch, commands):
    """The output of clang-tidy and whether all is well."""
    unit = build / "batches" / f"{number}.cpp"
    head = TEST_HEAD if batch[0].startswith("tests/") and len(batch) > 1 else ""
    unit.write_text(head + "".join(f'#include "{ROOT / source}"\n' for source in batch))
    flags = dict.fromkeys(flag for source in batch for flag in flags_of(commands[source]))
    result = subprocess.run(
        ["clang-tidy-14", "--quiet", f"--config-file={ROOT}/.clang-tidy",
         f"--header-filter={ROOT}/(?!build).*", "--checks=-bugprone-suspicious-include", str(unit),
         "--", *flags], capture_output=True, text=True)
    if result.returncode == 0:
        return "", True
    if len(batch) > 1 and "clang-diagnostic-error" in result.stdout:
        alone = [tidy(build, f"{number}-{i}", [batch[i]], commands) for i in range(len(batch))]
        return "".join(text for text, _ in alone), all(sound for _, sound in alone)
    return result.stdout or result.stderr, False


def main():
    os.chdir(ROOT)
    build, sources = Path(sys.argv[1]), sys.argv[2:]
    (build / "batches").mkdir(exist_ok=True)
    entries = json.loads((build / "compile_commands.json").read_text())
    commands = {os.path.relpath(entry["file"], ROOT): entry["command"] for entry in entries}
    batches = list(batches_of(sources, commands))
    sound = True
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        for text, well in pool.map(lambda job: tidy(build, job[0], job[1], commands),
                                   enumerate(batches)):
            sound = sound and well
            sys.stdout.write(text)
    sys.exit(0 if sound else 1)


main()

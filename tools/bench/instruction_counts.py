#!/usr/bin/env python3
"""Counts the instructions of every stage under callgrind and compares them with the stored figures.

instruction_counts.py PROGRAM STORED.json [--update]

Exits with 1 when a stage takes more than 1.3 times the stored instructions, when a stage is missing, or when
one is new and not stored.
"""

import json
import pathlib
import re
import subprocess
import sys
import tempfile

ALLOWED = 1.3
COUNTED = "VantleCountedWork"  # the function inside which is counted


def run_counted(program, folder):
    """What the program printed, and the totals in the order of the stages."""
    out = pathlib.Path(folder) / "counts"
    command = ["valgrind", "--tool=callgrind", "--collect-atstart=no", f"--toggle-collect={COUNTED}",
               f"--dump-after={COUNTED}", f"--callgrind-out-file={out}", program, "counts"]
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    if done.returncode != 0:
        sys.exit("instruction counts: " + (done.stderr.strip().splitlines() or ["valgrind failed"])[-1])
    totals = []
    while (dump := pathlib.Path(f"{out}.{len(totals) + 1}")).exists():
        text = dump.read_text()
        if COUNTED not in text.split("\nevents:")[0]:
            break
        totals.append(int(re.search(r"^totals: (\d+)", text, re.MULTILINE).group(1)))
    return json.loads(done.stdout), totals


def count(program):
    with tempfile.TemporaryDirectory() as folder:
        printed, totals = run_counted(program, folder)
    stages = [record["stage"] for record in printed["records"]]
    if len(stages) != len(totals):
        sys.exit(f"instruction counts: {len(stages)} stages ran but {len(totals)} were counted")
    return {"compiler": printed["machine"]["compiler"], "level": "avx2",
            "instructions": dict(zip(stages, totals))}


def compare(stored, counted):
    """Lines of the table, and the names of the stages that fail."""
    lines, failed = [], []
    names = list(stored["instructions"]) + [n for n in counted["instructions"] if n not in stored["instructions"]]
    for name in names:
        before, now = stored["instructions"].get(name), counted["instructions"].get(name)
        if before is None or now is None:
            verdict, ratio = ("NOT STORED" if before is None else "MISSING"), ""
        else:
            ratio = f"{now / before:.3f}"
            verdict = "TOO MANY" if now > ALLOWED * before else ""
        if verdict:
            failed.append(name)
        lines.append(f"{name:<36} {before or '':>12} {now or '':>12} {ratio:>7} {verdict}".rstrip())
    return lines, failed


def main(arguments):
    if len(arguments) not in (2, 3) or arguments[2:] not in ([], ["--update"]):
        sys.exit(__doc__)
    store = pathlib.Path(arguments[1])
    counted = count(arguments[0])
    if arguments[2:]:
        store.write_text(json.dumps(counted, indent=1) + "\n")
        print(f"{len(counted['instructions'])} stages stored in {store}")
        return
    stored = json.loads(store.read_text())
    lines, failed = compare(stored, counted)
    print(f"{'stage':<36} {'stored':>12} {'counted':>12} {'ratio':>7}")
    print("\n".join(lines))
    if stored["compiler"] != counted["compiler"]:
        print(f"Note: stored with compiler {stored['compiler']}, counted with {counted['compiler']}. Counts of two "
              "compilers differ; store new ones with ./run bench --check --update if nothing else has changed.")
    if failed:
        sys.exit(f"instruction counts: {len(failed)} of {len(lines)} stages fail (above {ALLOWED} times, missing or "
                 f"not stored): {', '.join(failed)}")
    print(f"All {len(lines)} stages stay within {ALLOWED} times their stored instructions.")


if __name__ == "__main__":
    main(sys.argv[1:])

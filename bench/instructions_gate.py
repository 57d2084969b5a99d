#!/usr/bin/env python3
"""A gate on speed that noise cannot move: counts instructions with valgrind and compares them with kept figures.

    bench/instructions_gate.py PROGRAM           fails if a figure is more than 5 % above the kept one
    bench/instructions_gate.py --keep PROGRAM    writes what it counts to bench/instructions.json
    bench/instructions_gate.py --json PROGRAM    prints what it counts as JSON

PROGRAM is `instructions`, built with g++ -O2 -DNDEBUG. Encoders are held to their instructions per byte of output,
`Decode` to its instructions per document. Another compiler counts differently: then keep figures anew.
"""
import argparse
import json
import os
import pathlib
import platform
import re
import subprocess
import sys

kept_file = pathlib.Path(__file__).resolve().parent / "instructions.json"
margin = 1.05

# The C library chooses its memcpy and its kin by the processor. Without the wide ones it takes the same everywhere.
tunables = ",".join("-" + name for name in (
    "AVX", "AVX2", "AVX2_Usable", "AVX_Fast_Unaligned_Load", "AVX512F", "AVX512VL", "AVX512BW", "ERMS", "FSRM",
    "SSE4_1", "SSE4_2", "SSSE3"))
# Nothing else from the environment, which lies on the program's stack and would move it.
environment = {"PATH": os.environ.get("PATH", ""), "GLIBC_TUNABLES": "glibc.cpu.hwcaps=" + tunables}


def run(*command):
    done = subprocess.run(command, capture_output=True, text=True, env=environment)
    if done.returncode != 0:
        sys.exit(f"{' '.join(command)} failed:\n{done.stdout}{done.stderr}")
    return done


def collected(program, case, times):
    """Instructions of a whole run, and the bytes of the case's message."""
    done = run("valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", program, case, str(times))
    return int(re.search(r"Collected : (\d+)", done.stderr).group(1)), int(done.stdout)


def count(program, case):
    # Lists cost millions of instructions a call, single messages a few thousand.
    few, many = (2, 4) if case.endswith("_list") else (100, 600)
    (first, size), (second, _) = collected(program, case, few), collected(program, case, many)
    instructions = (second - first) / (many - few)
    return {"instructions": round(instructions), "bytes": size, "per_byte": round(instructions / size, 3)}


def counted(program):
    cases = run(program).stdout.split()
    return {"compiler": f"g++ {run(program, '--compiler').stdout.strip()}, {platform.machine()}",
            "cases": {case: count(program, case) for case in cases}}


def held(case, figures):
    return figures["per_byte" if case.startswith("encode_") else "instructions"]


def compare(now, kept):
    """Prints a line for each case; returns the names of those that are too slow."""
    slow = []
    print(f"{'':20}{'instructions':>14}{'per byte':>10}{'kept':>14}{'now of kept':>13}")
    for case, figures in now["cases"].items():
        ratio = held(case, figures) / held(case, kept["cases"][case])
        print(f"{case:20}{figures['instructions']:14}{figures['per_byte']:10}{held(case, kept['cases'][case]):14}"
              f"{ratio:13.3f}{'  TOO SLOW' if ratio > margin else ''}")
        if ratio > margin:
            slow.append(case)
        elif ratio < 2 - margin:
            print(f"{'':20}faster: --keep this figure, so that it stays so")
    return slow


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument("--keep", action="store_true")
    arguments.add_argument("--json", action="store_true")
    arguments.add_argument("program")
    asked = arguments.parse_args()

    now = counted(os.path.abspath(asked.program))
    if asked.json:
        print(json.dumps(now, indent=2))
        return
    if asked.keep:
        kept_file.write_text(json.dumps(now, indent=2) + "\n")
        print(f"kept in {kept_file}")
        return
    kept = json.loads(kept_file.read_text())
    if now["cases"].keys() != kept["cases"].keys():
        sys.exit(f"{kept_file} holds figures of other cases than the program: --keep new ones")
    slow = compare(now, kept)
    if now["compiler"] != kept["compiler"]:
        print(f"The kept figures are from {kept['compiler']}, these from {now['compiler']}.")
    sys.stdout.flush()
    if slow:
        sys.exit(f"More than 5 % above the kept instructions: {', '.join(slow)}")


main()

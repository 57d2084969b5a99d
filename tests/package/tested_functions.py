#!/usr/bin/env python3
"""tested_functions.py OBJECTS HEADER...: whether the tests of the rooms call each function that the headers declare
(each overload of it). OBJECTS is a file that names the tests' object files, one a line. What does not count: the
properties of tests/properties/, which call everything alike, and the tests of the mechanisms, which call the value
readers from within them."""

import collections
import re
import subprocess
import sys

from exported_names import declared


MECHANISMS = re.compile(r"framing/(decoded|element|fields|message|odd_fields|repeat|walk)_test")


def called(objects):
    table = subprocess.run(["nm", "--undefined-only", "-C", *objects],
                           check=True, capture_output=True, text=True).stdout
    # Whatever reads a text in a test parses it and releases the document; both have tests of their own.
    symbols = {line.split(maxsplit=1)[1].replace("[abi:cxx11]", "")
               for line in table.splitlines() if line.lstrip().startswith("U veltoprotocol::")}
    return collections.Counter(symbol.split("(")[0] for symbol in symbols)


def main():
    with open(sys.argv[1], encoding="utf-8") as listing:
        objects = [line.strip() for line in listing if line.strip() and not MECHANISMS.search(line)]
    names, unmarked = declared(sys.argv[2:])
    calls = called(objects)
    missing = {name for name, overloads in names.items() if calls[name] < overloads}
    for name in sorted(missing):
        print(f"{name} is called by no test")
    print(f"{sum(names.values())} functions, {len(missing)} of them without a test")
    return 1 if missing or unmarked or not objects or len(names) < 200 else 0


sys.exit(main())

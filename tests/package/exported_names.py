#!/usr/bin/env python3
"""exported_names.py LIBRARY HEADER...: whether a shared library exports exactly the functions that the headers
declare with VELTOPROTOCOL_API (as many of a name as there are overloads), and nothing else; and whether the
headers declare every function so."""

import collections
import re
import subprocess
import sys


def declared(paths):
    names, unmarked = collections.Counter(), []
    for path in paths:
        with open(path, encoding="utf-8") as header:
            text = header.read()
        text = re.sub(r"//[^\n]*|/\*.*?\*/", " ", text, flags=re.S)
        text = re.sub(r"^\s*#(?:[^\n]*\\\n)*[^\n]*", "", text, flags=re.M)
        for declaration in re.split(r"[;{}]", text):
            function = re.search(r"(\w+)\s*\(", declaration)
            if not function or function.group(1) == "static_assert":
                continue
            if declaration.split()[0] == "VELTOPROTOCOL_API":
                names["veltoprotocol::" + function.group(1)] += 1
            else:
                unmarked.append(f"{path}: {' '.join(declaration.split())}")
    return names, unmarked


def exported(library):
    table = subprocess.run(["nm", "-D", "--defined-only", "-C", library],
                           check=True, capture_output=True, text=True).stdout
    names = collections.Counter()
    for line in table.splitlines():
        _, kind, symbol = line.split(maxsplit=2)
        # A function of the library is "T name(parameters)"; anything else stays as it is and matches nothing.
        names[symbol.split("(")[0].replace("[abi:cxx11]", "") if kind == "T" else line] += 1
    return names


def main():
    library, headers = sys.argv[1], sys.argv[2:]
    want, unmarked = declared(headers)
    got = exported(library)
    for declaration in unmarked:
        print(f"declared without VELTOPROTOCOL_API: {declaration}")
    for name in (want - got).elements():
        print(f"declared, not exported: {name}")
    for name in (got - want).elements():
        print(f"exported, not declared: {name}")
    print(f"{sum(want.values())} functions declared, {sum(got.values())} names exported")
    return 0 if want and want == got and not unmarked else 1


if __name__ == "__main__":
    sys.exit(main())

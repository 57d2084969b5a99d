#!/usr/bin/env python3
"""Reports what a coverage export of llvm-cov says, as scripts/coverage asks it to.

    coverage.py EXPORT UNREACHED

A branch is one side of a condition, as the source has it: a condition in a template counts once, and a side is
reached when any instantiation takes it. UNREACHED names what cannot be reached, one a line:

    src/file.cpp | text of the line | line, function, true or false | reason

where a function is all lines from this one to that which closes its first brace. A condition of which neither side
is ever taken, in a line that is reached, is decided by the compiler; those that do not say so ("if constexpr") are
listed, but count for nothing.
"""
import json
import os
import sys

LINES, BRANCHES = 99.0, 95.0


def branches_of(file, lines):
    """{(line, column, side): how often} of the conditions that are decided at run time; {line} of the others."""
    counts = {}
    for line, column, _, _, true, false, *_ in file['branches']:
        for side, count in (('true', true), ('false', false)):
            key = (line, column, side)
            counts[key] = counts.get(key, 0) + count
    decided = {(line, column) for (line, column, _), count in counts.items() if count or not lines.get(line)}
    return ({key: count for key, count in counts.items() if key[:2] in decided},
            {line for line, column, _ in counts if (line, column) not in decided})


def lines_of(file):
    """{line: how often}, by the rule of llvm-cov: the most of what comes into a line and of what begins in it.

    A segment is [line, column, count, has a count, begins a region, is a gap], and lasts until the next. What
    comes in as a gap, which behind a call that may not return has no count, gives way to what the line begins with.
    """
    on_line = {}
    for segment in file['segments']:
        on_line.setdefault(segment[0], []).append(segment)
    counts, before = {}, None
    for line in range(min(on_line, default=1), max(on_line, default=0) + 1):
        here = on_line.get(line, [])
        if here and before and before[5] and before[2] == 0 and here[0][2] and not here[0][4]:
            before = here[0]
        begun = [each[2] for each in here if each[3] and each[4] and not each[5]]
        skipped = here and here[0][4] and not here[0][3]
        coming = [before[2]] if before and before[3] else []
        if not skipped and (coming or begun):
            counts[line] = max(coming + begun)
        before = here[-1] if here else before
    return counts


def end_of_function(source, line):
    """The line that closes the first brace opened from this one on."""
    depth = 0
    for number in range(line, len(source) + 1):
        depth += source[number - 1].count('{') - source[number - 1].count('}')
        if depth <= 0 and '}' in source[number - 1]:
            return number
    return len(source)


def excused(path):
    names = {}
    if os.path.exists(path):
        for entry in open(path):
            if entry.strip() and not entry.startswith('#'):
                file, text, side, reason = [part.strip() for part in entry.split(' | ', 3)]
                names[(file, text, side)] = reason
    return names


def main(export, unreached):
    house = os.getcwd() + '/'
    names, used = excused(unreached), set()
    totals = [0, 0, 0, 0]
    missed, silent = [], []
    print(f'{"":44}{"lines":>14}{"branches":>14}')
    for file in sorted(json.load(open(export))['data'][0]['files'], key=lambda each: each['filename']):
        path = file['filename'].removeprefix(house)
        source = open(path).read().split('\n')

        excuses = {}  # by line and side
        for number, text in enumerate(source, 1):
            for side in ('line', 'true', 'false'):
                if (path, text.strip(), side) in names:
                    excuses[number, side] = (path, text.strip(), side)
            if (path, text.strip(), 'function') in names:
                for inner in range(number, end_of_function(source, number) + 1):
                    excuses[inner, 'line'] = (path, text.strip(), 'function')

        def counted(line, side):
            """Whether it counts: not if it is excused, which is noted."""
            used.update({excuses[line, side]} if (line, side) in excuses else ())
            return (line, side) not in excuses

        lines = {line: count for line, count in lines_of(file).items() if count or counted(line, 'line')}
        at_run_time, compiled = branches_of(file, lines_of(file))
        branches = {key: count for key, count in at_run_time.items() if count or counted(key[0], key[2])}
        silent += [f'{path}:{line}: decided by the compiler: {source[line - 1].strip()}'
                   for line in sorted(compiled) if 'if constexpr' not in source[line - 1]]
        missed += [f'{path}:{line}: never reached' for line, count in sorted(lines.items()) if not count]
        missed += [f'{path}:{line}:{column}: never {side}: {source[line - 1].strip()}'
                   for (line, column, side), count in sorted(branches.items()) if not count]
        own = [sum(map(bool, lines.values())), len(lines), sum(map(bool, branches.values())), len(branches)]
        totals = [a + b for a, b in zip(totals, own)]
        print(f'{path:44}{own[0]:>7}/{own[1]:<6}{own[2]:>7}/{own[3]:<6}')
    print('\n'.join(missed + silent))
    lines, branches = 100 * totals[0] / totals[1], 100 * totals[2] / totals[3]
    print(f'lines: {lines:.1f} % ({totals[0]} of {totals[1]}), branches: {branches:.1f} % ({totals[2]} of {totals[3]}), '
          f'{len(names)} excused')
    for key in set(names) - used:
        print('no excuse is needed (any more) for: ' + ' | '.join(key))
    return 0 if lines >= LINES and branches >= BRANCHES else 1


sys.exit(main(*sys.argv[1:]))

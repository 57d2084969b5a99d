#!/usr/bin/env python3
"""Applies small changes to src/, one at a time, and asks whether the tests notice.

    mutate.py [--count N] [--jobs N] [--again] [--only TEXT] [--list]

Each job has a copy of the checkout and a build of its own in build/mutation/, where one changed file after the
other is built and tested: first the programs of its room, then the others, until one fails. What came out is
kept in build/mutation/results.json under what the change does, so that a later run tries only what is new and
what survived without an explanation (--again: everything). Fails when a change survives that
tests/mutation/explained.txt does not explain, or when fewer than 95 of 100 are noticed.
"""
import argparse
import collections
import concurrent.futures
import hashlib
import json
import os
import pathlib
import queue
import re
import resource
import shutil
import subprocess
import sys
import threading
import time

import changes

HOUSE = pathlib.Path(__file__).resolve().parents[2]
PLACE = HOUSE / 'build' / 'mutation'
RESULTS = PLACE / 'results.json'
EXPLAINED = HOUSE / 'tests' / 'mutation' / 'explained.txt'
LONGEST = 8  # times as long as without a change may a program of tests take, and at least this many seconds
MEMORY = 12 << 30  # bytes of address space for a program of tests; the largest asks for a third
LEAST = 0.95

# What is no test's business.
NOT_COMPILED = 'not compiled'
NOTHING_CHANGED = 'the same programs'

# Which programs notice most of what changes in a room; the others follow.
FIRST = {
    'admin': ['admin_tests', 'commands_tests'],
    'emap': ['emap_tests'],
    'events': ['events_tests'],
    'framing': ['framing_tests', 'usual_document_tests', 'http_allocation_tests', 'admin_tests', 'media_tests'],
    'media': ['media_tests'],
    'views': ['views_tests'],
}
# For what all rooms include: the tests of framing, which include it too, take longest to build.
FIRST_FOR_HEADERS = ['admin_tests', 'media_tests', 'views_tests', 'events_tests', 'emap_tests', 'framing_tests']
LEFT_OUT = ['access_units_tests',  # of an example
            'cost_tests', 'cost_memory_tests']  # measure, which the other jobs disturb


def bounded():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))


def run(command, where, seconds=None, prepare=None):
    """The exit code and what was printed; code -1 if it took too long. Ends all that the command has started."""
    process = subprocess.Popen(command, cwd=where, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                               stderr=subprocess.STDOUT, text=True, errors='replace', start_new_session=True,
                               preexec_fn=prepare)
    try:
        printed, _ = process.communicate(timeout=seconds)
        return process.returncode, printed
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, 9)
        process.communicate()
        return -1, ''


class Job:
    """A copy of the checkout with its build."""

    def __init__(self, number, sources):
        self.sources = sources  # {path: text}, as they were when the run began: the checkout may change meanwhile
        self.tree = PLACE / f'job{number}' / 'tree'
        self.build = PLACE / f'job{number}' / 'build'
        self.changed = None
        self.seconds = {}  # that each program takes without a change
        self.bytes = {}  # {name: digest} of what is built without a change

    def prepare(self):
        listed = subprocess.run(['git', 'ls-files', '-co', '--exclude-standard', '-z'], cwd=HOUSE, check=True,
                                capture_output=True, text=True, errors='surrogateescape').stdout.split('\0')
        wanted = {name for name in listed if name and (HOUSE / name).is_file()}
        for name in wanted:  # only what differs, so that little is built again
            here, there = HOUSE / name, self.tree / name
            if not there.is_file() or here.read_bytes() != there.read_bytes():
                there.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(here, there)
        for name, text in self.sources.items():
            if (self.tree / name).read_text() != text:
                (self.tree / name).write_text(text)
        for path in list(self.tree.rglob('*')):
            if path.is_file() and str(path.relative_to(self.tree)) not in wanted:
                path.unlink()
        configure = ['cmake', '-S', self.tree, '-B', self.build, '-G', 'Ninja', '-DCMAKE_CXX_COMPILER=g++',
                     # The seed, so that what is built again without a change is the same to the byte.
                     '-DCMAKE_BUILD_TYPE=Debug', '-DCMAKE_CXX_FLAGS_DEBUG=-O1 -frandom-seed=1', '-DBUILD_TESTING=ON',
                     '-DVELTOPROTOCOL_BUILD_EXAMPLES=OFF', '-DVELTOPROTOCOL_PACKAGE_TESTS=OFF',
                     '-DVELTOPROTOCOL_DISCOVER_TESTS=OFF', '-DVELTOPROTOCOL_PRECOMPILE_TESTS=ON',
                     '-DVELTOPROTOCOL_WARNINGS_AS_ERRORS=OFF']
        code, printed = run([str(each) for each in configure], HOUSE)
        if code != 0:
            sys.exit(printed)
        code, printed = run(['ninja', '-j', str(os.cpu_count()), 'tests/all'], self.build)
        if code != 0:
            sys.exit(printed)
        self.bytes = self.digests()

    def measure(self):
        """How long the programs take; ends the run if one of them fails without a change."""
        for path in (self.build / 'tests').glob('*_tests'):
            if path.name in LEFT_OUT:
                continue
            start = time.time()
            code, printed = self.test(path.name, 600)
            if code != 0:
                sys.exit(f'{path.name} fails without a change:\n{printed}')
            self.seconds[path.name] = time.time() - start

    def digests(self):
        built = [self.build / 'libveltoprotocol.a', *(self.build / 'tests').glob('*_tests')]
        return {path.name: hashlib.sha1(path.read_bytes()).hexdigest() for path in built}

    def changes_nothing(self):
        """Whether all that is built is the same, byte for byte: what a change in code for another machine does."""
        if self.digests()['libveltoprotocol.a'] != self.bytes['libveltoprotocol.a']:
            return False
        code, _ = run(['ninja', '-j', '1', 'tests/all'], self.build)
        return code == 0 and self.digests() == self.bytes

    def test(self, program, seconds):
        return run([f'./{program}', '--gtest_brief=1', '--gtest_fail_fast'], self.build / 'tests', seconds, bounded)

    def notice(self, programs):
        """Which of the programs fails first; None if none does."""
        code, printed = run(['ninja', '-j', '1', 'veltoprotocol'], self.build)
        if code != 0:
            return NOT_COMPILED
        if self.changes_nothing():
            return NOTHING_CHANGED
        for program in programs:
            code, printed = run(['ninja', '-j', '1', f'tests/{program}'], self.build)
            if code != 0:
                return NOT_COMPILED
            code, printed = self.test(program, LONGEST * max(1, self.seconds[program]))
            if code != 0:
                failed = re.findall(r'\[  FAILED  \] ([\w./]+)', printed)
                return f'{program}: ' + (failed[0] if failed else 'too slow' if code == -1 else f'exit {code}')
        return None

    def try_one(self, change):
        path = self.tree / change.file
        if self.changed != change.file:
            self.restore()
        lines = self.sources[change.file].split('\n')
        lines[change.line:change.line + change.lines] = change.after.split('\n')
        path.write_text('\n'.join(lines))
        self.changed = change.file
        room = pathlib.Path(change.file).parts[1]
        first = FIRST_FOR_HEADERS if room == 'framing' and change.file.endswith('.h') else FIRST[room]
        others = [each for each in sorted(self.seconds, key=self.seconds.get) if each not in first]
        return self.notice(first + others)

    def restore(self):
        if self.changed:
            (self.tree / self.changed).write_text(self.sources[self.changed])


def explained():
    """{identity: reason}. A line is an identity, a colon and a reason; a "#" begins a comment."""
    reasons = {}
    if EXPLAINED.exists():
        for line in EXPLAINED.read_text().splitlines():
            if line.strip() and not line.startswith('#'):
                name, reason = line.split(':', 1)
                reasons[name.strip()] = reason.strip()
    return reasons


def described(change, name):
    return (f'{name} {change.file}:{change.line + 1} {change.kind}\n'
            f'    - {change.before.strip()}\n    + {change.after.strip()}')


def tried(drawn, jobs, results, sources):
    """Tries each change and keeps what came of it at once, so that a run that is broken off loses nothing."""
    free, lock, done, start = queue.Queue(), threading.Lock(), 0, time.time()
    workers = [Job(number, sources) for number in range(jobs)]
    for worker in workers:
        worker.prepare()
        free.put(worker)
    workers[0].measure()
    for worker in workers:
        worker.seconds = workers[0].seconds

    def work(change):
        nonlocal done
        worker = free.get()
        try:
            outcome = worker.try_one(change)
        finally:
            free.put(worker)
        with lock:
            done += 1
            name = changes.identity(change)
            results[name] = outcome or 'survived'
            RESULTS.write_text(json.dumps(results, indent=1, sort_keys=True))
            print(f'{done}/{len(drawn)} {time.time() - start:.0f} s  {results[name]}\n{described(change, name)}',
                  flush=True)

    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        list(pool.map(work, drawn))
    for worker in workers:
        worker.restore()


def report(drawn, results):
    outcomes = {changes.identity(each): results[changes.identity(each)] for each in drawn}
    compiled = {name: said for name, said in outcomes.items() if said not in (NOT_COMPILED, NOTHING_CHANGED)}
    uncompiled = list(outcomes.values()).count(NOT_COMPILED)
    survived = {name for name, said in compiled.items() if said == 'survived'}
    reasons = explained()
    kinds = collections.Counter(each.kind for each in drawn if changes.identity(each) in compiled)
    alive = collections.Counter(each.kind for each in drawn if changes.identity(each) in survived)
    print('\nkind                     tried  survived')
    for kind in sorted(kinds):
        print(f'{kind:24} {kinds[kind]:5} {alive[kind]:9}')
    unexplained = survived - set(reasons)
    for name in sorted(set(reasons) & set(outcomes) - survived):
        print(f'\n{name} is explained, and yet: {outcomes[name]}')
    for change in drawn:
        name = changes.identity(change)
        if name in survived:
            print('\nsurvived: ' + described(change, name) + '\n    ' + reasons.get(name, 'NOT EXPLAINED'))
    noticed = len(compiled) - len(survived)
    explainable = len(survived) - len(unexplained)
    score = noticed / max(1, len(compiled))
    print(f'\n{len(compiled)} changes tried ({uncompiled} more did not compile, '
          f'{len(outcomes) - len(compiled) - uncompiled} gave the same programs): {noticed} noticed, '
          f'{explainable} explained, {len(unexplained)} not. {100 * score:.1f} % of all, '
          f'{100 * noticed / max(1, len(compiled) - explainable):.1f} % of those that can be noticed')
    return not unexplained and score >= LEAST


def main():
    ask = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    ask.add_argument('--count', type=int, default=400, help='changes to try (400)')
    ask.add_argument('--jobs', type=int, default=os.cpu_count(), help='at a time')
    ask.add_argument('--again', action='store_true', help='also those that were noticed before')
    ask.add_argument('--only', default='', help='of the sample, those in files whose path holds this')
    ask.add_argument('--list', action='store_true', help='print them and end')
    given = ask.parse_args()

    sources = {str(path.relative_to(HOUSE)): path.read_text() for path in (HOUSE / 'src').rglob('*')
               if path.suffix in ('.cpp', '.h')}
    drawn = [each for each in changes.sample(sources, given.count) if given.only in each.file]
    if given.list:
        print('\n'.join(described(each, changes.identity(each)) for each in drawn))
        return 0
    PLACE.mkdir(parents=True, exist_ok=True)
    # All jobs build the same at the same places relative to these.
    os.environ.update(CCACHE_BASEDIR=str(PLACE), CCACHE_NOHASHDIR='1')
    results = json.loads(RESULTS.read_text()) if RESULTS.exists() else {}
    known = {name for name in explained() if results.get(name) == 'survived'}
    fresh = [each for each in drawn if given.again or (changes.identity(each) not in known and
             results.get(changes.identity(each), 'survived') == 'survived')]
    # Those of one file follow one another, so that few files are built again in between.
    fresh.sort(key=lambda each: each.file)
    tried(fresh, given.jobs, results, sources)
    return 0 if report(drawn, results) else 1


if __name__ == '__main__':
    sys.exit(main())

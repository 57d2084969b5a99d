"""The small changes that a program of src/ can suffer, as edits of one line or of two neighbours.

Changes are found by pattern, not by parsing: one that does not compile is told apart when it is built. The
sample is drawn from a fixed seed, evenly from all kinds and files, so that two runs try the same changes as
long as the lines stay as they are.
"""
import collections
import hashlib
import random
import re
from collections import namedtuple

# `line` counts from 0 and `lines` is how many lines `after` replaces. `nth` counts the changes of a file that read
# alike.
Change = namedtuple('Change', 'file line lines kind before after nth')

NO_CODE = re.compile(r'^\s*(//|#|namespace|using|template|static_assert|}|\{|public:|private:|class |struct |$)')
STRING = re.compile(r'"(?:[^"\\]|\\.)*"')
CALL = re.compile(r'^\s+[\w:.\->]+\(.*\);$')
ENTRY = re.compile(r'^\s+(field|attribute|child|texts?|element)\w*\(')


def identity(change):
    """Names a change by what it does to which line, wherever the line stands."""
    parts = [change.file, change.kind, change.before, change.after] + ([str(change.nth)] if change.nth > 0 else [])
    return hashlib.sha1('\0'.join(parts).encode()).hexdigest()[:10]


def code_of(line):
    """The line with the contents of its strings and its comment blanked out, at the same places."""
    line = STRING.sub(lambda m: '"' + '\0' * (len(m.group()) - 2) + '"', line)
    comment = line.find('//')
    return line if comment < 0 else line[:comment]


def replaced(line, start, end, by):
    return line[:start] + by + line[end:]


def conditions(line, code):
    for match in re.finditer(r'\b(if|while) \(', code):
        depth, start = 0, match.end() - 1
        for end in range(start, len(code)):
            depth += {'(': 1, ')': -1}.get(code[end], 0)
            if depth == 0:
                inner = line[start + 1:end]
                if ';' not in inner and ' = ' not in inner and 'constexpr' not in line:
                    yield 'condition turned', replaced(line, start, end + 1, '(!(' + inner + '))')
                break
    for match in re.finditer(r' (==|!=|<=|>=|&&|\|\|) ', code):
        other = {'==': '!=', '!=': '==', '<=': '<', '>=': '>', '&&': '||', '||': '&&'}[match.group(1)]
        yield 'operator exchanged', replaced(line, match.start(1), match.end(1), other)
    for match in re.finditer(r'[\w)\]] (<|>) [\w(*]', code):
        yield 'operator exchanged', replaced(line, match.start(1), match.end(1), match.group(1) + '=')
    for match in re.finditer(r'\breturn (true|false);', code):
        other = {'true': 'false', 'false': 'true'}[match.group(1)]
        yield 'answer turned', replaced(line, match.start(1), match.end(1), other)


def constants(line, code):
    for match in re.finditer(r'(?<![\w.\'<])(\d+)(?![\w.\'])', code):
        yield 'constant off by one', replaced(line, match.start(1), match.end(1), str(int(match.group(1)) + 1))


def names(line, code):
    if 'throw "' in line:  # in a constant expression: only a compiler shows it
        return
    for match in STRING.finditer(line):
        text = match.group()[1:-1]
        if code[match.start()] == '"' and re.search(r'(?<!\\)[A-Za-z]$', text) and not re.search(r'\\x\w+$', text):
            last = 'x' if text[-1] != 'x' else 'y'
            yield 'name altered', replaced(line, match.start() + len(text), match.end() - 1, last)


def capacities(line, code):
    for match in re.finditer(r'\bsizeof\b ?(\w[\w.\->:]*|\([^()]*\))', code):
        yield 'capacity changed', replaced(line, match.start(), match.end(), '(' + line[match.start():match.end()] + ' - 1)')


def of_line(line):
    code = code_of(line)
    if NO_CODE.match(code):
        return
    for kind in (conditions, constants, names, capacities):
        for name, after in kind(line, code):
            yield name, after
    if CALL.match(code) and 'return' not in code:
        yield 'call removed', ''


def of_file(path, text):
    alike = collections.Counter()
    for change in of_lines(path, text):
        yield change._replace(nth=alike[change._replace(line=0)])
        alike[change._replace(line=0)] += 1


def of_lines(path, text):
    lines = text.split('\n')
    for number, line in enumerate(lines):
        for kind, after in of_line(line):
            yield Change(path, number, 1, kind, line, after, 0)
        following = lines[number + 1] if number + 1 < len(lines) else ''
        if all(CALL.match(each) and 'return' not in each for each in (line, following)) and line != following:
            yield Change(path, number, 2, 'order swapped', line + '\n' + following, following + '\n' + line, 0)
        entries = re.match(r'^(\s+)(field\(.*?\)),? (field\(.*\),)$', line)
        if entries:
            after = entries.group(1) + entries.group(3) + ' ' + entries.group(2) + ','
            yield Change(path, number, 1, 'order swapped', line, after, 0)


def sample(sources, count, seed=1):
    """`count` changes of {path: text}: each kind in turn gives one of its own, from the file that gave fewest."""
    chance = random.Random(seed)
    kinds = {}
    for path in sorted(sources):
        for change in of_file(path, sources[path]):
            kinds.setdefault(change.kind, {}).setdefault(path, []).append(change)
    for files in kinds.values():
        for changes in files.values():
            chance.shuffle(changes)
    given = {path: 0 for path in sources}
    drawn = []
    while len(drawn) < count and any(kinds.values()):
        for kind in sorted(kinds):
            files = kinds[kind]
            if not files or len(drawn) == count:
                continue
            path = min(sorted(files), key=lambda each: given[each])
            drawn.append(files[path].pop())
            given[path] += 1
            if not files[path]:
                del files[path]
    return drawn

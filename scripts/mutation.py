"""One-line mutants of C++ sources: where they can be made, and in which order a seed takes them.

The sources are read as clang-format writes them: binary operators stand between spaces, template brackets do not.
"""

import dataclasses
import difflib
import random
import re

# Comments, directives, raw texts, texts, characters; not the separators in 1'000.
NO_CODE = re.compile(
    r"""//[^\n]*|/\*.*?\*/|^[ \t]*\#(?:\\\n|[^\n])*|R"([^(]*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<![0-9A-Fa-f])'(?:\\.|[^'\\\n])+'""",
    re.DOTALL | re.MULTILINE,
)
OPPOSITES = {" == ": " != ", " < ": " >= ", " > ": " <= ", " && ": " || "}
OPPOSITES |= {opposite: operator for operator, opposite in OPPOSITES.items()}
NEIGHBOURS = {" < ": " <= ", " <= ": " < ", " > ": " >= ", " >= ": " > "}
COMPARISON = re.compile("|".join(map(re.escape, OPPOSITES)))
NUMBER = re.compile(r"(?<![\w.'])(?:0x[0-9A-Fa-f']+|[1-9][\d']*|0)(?=[uUlLzZ]*(?![\w.'>]))")
ESCAPE = re.compile(r"\\(?:u[0-9A-Fa-f]{4}|U[0-9A-Fa-f]{8}|x[0-9A-Fa-f]+|[0-7]{1,3}|.)")
DECLARATION = re.compile(
    r"(?:const|constexpr|static|auto|using|namespace|class|struct|enum|friend|extern|template|typedef)\b"
    r"|(?!return|throw|delete|else|goto)[\w:]+(?:<.*>)?[ &*]+\w+\s*[={(;\[]"
)
JUMP = re.compile(r"(?:if \(.*\) )?(?:return|throw|break|continue|goto)\b")
ATOM = r"""(?:[\w:.]|->)+(?:\(\))?|\w?"_*"|\w?'_+'"""
ARGUMENTS = re.compile(rf"(?:(?<=[({{])|(?<=, ))({ATOM}), ({ATOM})(?=[,)}}])")
CHOICES = re.compile(rf"(?<= \? )({ATOM}) : ({ATOM})(?=[,;)}}])")


@dataclasses.dataclass(frozen=True)
class Mutant:
    file: str
    line: int  # of the first line that differs, from 1
    operator: str
    new: tuple  # the lines that stand there instead of as many others

    def apply(self, text):
        lines = text.split("\n")
        lines[self.line - 1 : self.line - 1 + len(self.new)] = self.new
        return "\n".join(lines)

    def hunk(self, text):
        before, after = text.splitlines(keepends=True), self.apply(text).splitlines(keepends=True)
        return "".join(difflib.unified_diff(before, after, f"a/{self.file}", f"b/{self.file}", n=2))


class Source:
    """A text as lines, and the same lines with nothing but code: texts and characters are filled with underscores."""

    def __init__(self, text):
        self.lines = text.split("\n")
        self.code = NO_CODE.sub(self.blank, text).split("\n")
        for index, code in enumerate(self.code):
            if code.lstrip().startswith("static_assert"):
                self.code[index] = ""

    @staticmethod
    def blank(match):
        if match[0][0] in "\"'":
            return match[0][0] + "_" * (len(match[0]) - 2) + match[0][0]
        return re.sub(r"[^\n]", " ", match[0])

    def all(self, pattern):
        for index, code in enumerate(self.code):
            for match in re.finditer(pattern, code):
                yield index, match

    def replaced(self, index, span, text):
        line = self.lines[index]
        return index, (line[: span[0]] + text + line[span[1] :],)

    def swapped(self, index, match):
        line = self.lines[index]
        between = line[match.end(1) : match.start(2)]
        return self.replaced(index, match.span(), line[slice(*match.span(2))] + between + line[slice(*match.span(1))])

    def statements(self):
        """The indices of the lines that are whole statements and declare nothing."""
        before = ";"
        for index, line in enumerate(self.code):
            code = line.strip()
            if code.endswith(";") and before[-1] in ";{}:" and balanced(code) and not DECLARATION.match(code):
                yield index
            before = code or before


def balanced(code):
    return all(code.count(left) == code.count(right) for left, right in ("()", "{}", "[]"))


def indentation(line):
    return len(line) - len(line.lstrip())


def negated_conditions(source):
    for index, match in source.all(COMPARISON):
        yield source.replaced(index, match.span(), OPPOSITES[match[0]])
    for index, match in source.all(r"(?<![\w)])!(?=[\w(])"):
        yield source.replaced(index, match.span(), "")
    for index, match in source.all(r"\b(?:if|while) \("):
        code, start, end = source.code[index], match.end(), match.end()
        while end < len(code) and not (code[end] == ")" and balanced(code[start:end])):
            end += 1
        start = max(start, code.rfind("; ", start, end) + 2)
        asked = code[start:end]
        simple = balanced(asked) and " = " not in asked and asked[0] != "!" and not COMPARISON.search(asked)
        if end < len(code) and simple:
            yield source.replaced(index, (start, end), f"!({source.lines[index][start:end]})")


def dropped_statements(source):
    for index in source.statements():
        code = source.code[index]
        start, end = indentation(code), len(code.rstrip())
        if start > 2 or not code.startswith("return", start):  # the last return of a function cannot go
            yield source.replaced(index, (start, end), "{}")
    for index, match in source.all(r"(?<=\{) [^{};]+; (?=\})"):
        yield source.replaced(index, match.span(), "")


def swapped_neighbours(source):
    statements = [index for index in source.statements() if not JUMP.match(source.code[index].strip())]
    for first, second in zip(statements, statements[1:]):
        pair = source.lines[second], source.lines[first]
        if second == first + 1 and pair[0] != pair[1] and indentation(pair[0]) == indentation(pair[1]):
            yield first, pair
    for pattern in (ARGUMENTS, CHOICES):
        for index, match in source.all(pattern):
            if match[1] != match[2] or '"' in match[1]:
                yield source.swapped(index, match)


def off_by_one(source):
    for index, match in source.all(COMPARISON):
        if match[0] in NEIGHBOURS:
            yield source.replaced(index, match.span(), NEIGHBOURS[match[0]])
    for index, match in source.all(NUMBER):
        number = int(match[0].replace("'", ""), 0)
        for other in (number + 1, number - 1):
            if other >= 0:
                yield source.replaced(index, match.span(), f"0x{other:X}" if "x" in match[0] else str(other))


def changed_literals(source):
    for index, match in source.all(r""""(_*)"|'(_+)'"""):
        span = match.span(match.lastindex)
        body = source.lines[index][slice(*span)]
        yield source.replaced(index, span, changed(body) if match[0][0] == '"' or body[0] != "\\" else "~")
    for index, match in source.all(r"\b(?:true|false)\b"):
        yield source.replaced(index, match.span(), "false" if match[0] == "true" else "true")


def changed(body):
    """The text with its last letter or digit changed; where there is none, with one more character."""
    plain = ESCAPE.sub(lambda escape: " " * len(escape[0]), body)
    last = max((index for index, unit in enumerate(plain) if unit.isascii() and unit.isalnum()), default=None)
    if last is None:
        return body + "~" if len(body) != 1 else "~"
    other = chr(ord(body[last]) + (-1 if body[last] in "zZ9" else 1))
    return body[:last] + other + body[last + 1 :]


OPERATORS = {
    "negated condition": negated_conditions,
    "dropped statement": dropped_statements,
    "swapped neighbours": swapped_neighbours,
    "off by one": off_by_one,
    "changed literal": changed_literals,
}


def mutants(sources, operators=tuple(OPERATORS)):
    """All mutants of the texts, which are told by their files."""
    for file in sorted(sources):
        source = Source(sources[file])
        for operator in operators:
            for index, lines in OPERATORS[operator](source):
                yield Mutant(file, index + 1, operator, lines)


def choose(sources, seed):
    """All mutants in the order of the seed. The operators take turns, so that a few show something of each."""
    chance = random.Random(seed)
    piles = [list(mutants(sources, [operator])) for operator in OPERATORS]
    for pile in piles:
        chance.shuffle(pile)
    while any(piles):
        for pile in filter(None, piles):
            yield pile.pop()

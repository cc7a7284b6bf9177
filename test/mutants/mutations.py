"""The small changes that are made to a C++ source file, one at a time, to see a test fail.

It reads the text as tokens and relies on the layout that clang-format gives: a binary operator
stands between blanks, and the bracket of a template does not.
"""

import re
from dataclasses import dataclass

TOKEN = re.compile(
    r"""
    (?P<skip>  //[^\n]* | /\*.*?\*/ | ^[ ]*\#[^\n]* | static_assert\(.*?\); | \s+ )
  | (?P<text>  "(?:\\.|[^"\\])*" )
  | (?P<char>  '(?:\\.|[^'\\])' )
  | (?P<number>(?:0[xX][0-9a-fA-F]+|\d+)[uUlL]* )
  | (?P<name>  [A-Za-z_]\w* )
  | (?P<sign>  <<= | >>= | -> | :: | \+\+ | -- | && | \|\| | << | >> | [-+*/%&|^=!<>]= | . )
    """,
    re.VERBOSE | re.MULTILINE | re.DOTALL,
)

BINARY = {
    "<": ["<=", ">="], ">": [">=", "<="], "<=": ["<", ">"], ">=": [">", "<"],
    "==": ["!="], "!=": ["=="],
    "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["*"],
    "<<": [">>"], ">>": ["<<"], "&": ["|"], "|": ["&"], "^": ["&"], "&&": ["||"], "||": ["&&"],
    "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="],
    "|=": ["&="], "&=": ["|="], "<<=": [">>="], ">>=": ["<<="],
}
UNARY = {"++": "--", "--": "++", "!": "", "~": "", "-": ""}
SWAPPED = {"true": "false", "false": "true"}
CLOSING = {")": "(", "]": "[", "}": "{"}

# Words and signs before the brace of a function's body, or of a block in one.
BEFORE_BLOCK = {")", "else", "try", "do", "const", "override", "noexcept"}
DECLARATION = re.compile(
    r"(?!(?:return|delete|throw)\b)(?:(?:const|constexpr|using|auto|unsigned|long)\b"
    r"|[\w:<>,]+[*&]?\s+[*&]*\w+\s*(?:=|\(|\{|$))"
)
ROW = re.compile(r"^ +(?:new )?\w+\(.*\),$", re.MULTILINE)
CONSTANT = re.compile(
    r"^(?:constexpr ([^=\n]*?)|field_list<(\w+)>|const ([\w:]+)) (\w+)(?:\[\])? =", re.MULTILINE
)
# What is set before it is read, and room to spare: a change of these cannot be seen.
UNSEEN = re.compile(r"^ +(?!const|static|return)[\w:<>]+ \w+ = \w+;|^ +char \w+\[\d+\];", re.MULTILINE)
ENUM = re.compile(r"enum class (\w+)[^{]*\{(.*?)\}", re.DOTALL)


@dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int

    @property
    def end(self):
        return self.start + len(self.text)


@dataclass(frozen=True)
class Mutant:
    """One change: the span of a file that is replaced, and how the lines look before and after."""

    path: str
    start: int
    end: int
    replacement: str
    line: int
    original: str
    mutated: str

    def __str__(self):
        return f"{self.path}:{self.line}: {self.original}  ->  {self.mutated}"


def tokens_of(source):
    return [
        Token(match.lastgroup, match.group(), match.start())
        for match in TOKEN.finditer(source)
        if match.lastgroup != "skip"
    ]


def next_numbers(literal):
    """One more, and one less unless that is below 0; written as the literal is."""
    prefix, digits, suffix = re.fullmatch(r"(0[xX]|0(?=\d)|)(\w+?)([uUlL]*)", literal).groups()
    base, form = {"": (10, "d"), "0": (8, "o")}.get(prefix, (16, "x"))
    value = int(digits, base)
    for number in (value + 1, value - 1):
        if number >= 0:
            yield prefix + format(number, form) + suffix


def shorter_texts(literal):
    """Without the first character, and without the last one; an empty text with one."""
    characters = re.findall(r"\\.|.", literal[1:-1])
    parts = (characters[1:], characters[:-1]) if characters else ["x"]
    return ['"' + "".join(part) + '"' for part in parts]


def token_changes(source, tokens):
    for i, token in enumerate(tokens):
        before = tokens[i - 1].text if i else ""
        if token.kind == "number":
            if before == "=" and tokens[i - 2].text in (")", "const"):
                continue  # a pure virtual function
            yield from ((token.start, token.end, text) for text in next_numbers(token.text))
        elif token.kind == "text":
            yield from ((token.start, token.end, text) for text in shorter_texts(token.text))
        elif token.kind == "char":
            yield token.end - 2, token.end - 1, chr(ord(token.text[-2]) + 1)
        elif token.text in SWAPPED:
            yield token.start, token.end, SWAPPED[token.text]
        elif token.kind == "sign":
            blank_before = source[token.start - 1].isspace()
            blank_after = source[token.end : token.end + 1].isspace()
            if blank_before and blank_after:
                for text in BINARY.get(token.text, []):
                    yield token.start, token.end, text
            elif token.text in UNARY and before not in ("virtual", "::", ";", "{", "}", ":"):
                yield token.start, token.end, UNARY[token.text]
            elif token.text in ("++", "--"):
                yield token.start, token.end, UNARY[token.text]


def end_of_expression(tokens, i, ends):
    """The first token from `i` on that is in `ends` and in no bracket opened after `i`."""
    depth = 0
    while depth > 0 or tokens[i].text not in ends:
        depth += (tokens[i].text in CLOSING.values()) - (tokens[i].text in CLOSING)
        i += 1
    return i


def branch_changes(source, tokens):
    for i, token in enumerate(tokens):
        if token.text == "if" and tokens[i + 1].text == "(":
            start = tokens[i + 1].end
            last = end_of_expression(tokens, i + 2, (")",))
            end = tokens[last].start
            signs = {inner.text for inner in tokens[i + 2 : last]}
            # What another change does too is left to that one.
            if signs & {"&&", "||"} or not signs & {"!", "==", "!="}:
                yield start, end, "!(" + source[start:end] + ")"
        elif token.text == "?":
            colon = end_of_expression(tokens, i + 1, (":",))
            last = end_of_expression(tokens, colon + 1, (",", ";", ")", "}"))
            first_value = source[tokens[i + 1].start : tokens[colon - 1].end]
            second_value = source[tokens[colon + 1].start : tokens[last - 1].end]
            between = source[tokens[colon - 1].end : tokens[colon + 1].start]
            swapped = second_value + between + first_value
            yield tokens[i + 1].start, tokens[last - 1].end, swapped


def dropped_statements(source, tokens):
    brackets = []  # those open: "{" is one of a block, "=" is any other brace
    first = 0  # index of the statement's first token
    for i, token in enumerate(tokens):
        in_block = bool(brackets) and brackets[-1] == "{"
        if token.text == "{":
            before = tokens[i - 1].text
            block = before in BEFORE_BLOCK or (in_block and before in (";", "{", "}", ":"))
            brackets.append("{" if block else "=")
            first = i + 1 if block else first
        elif token.text in CLOSING.values():
            brackets.append(token.text)
        elif token.text in CLOSING:
            if brackets.pop() == "{":
                first = i + 1
        elif token.text == ":" and tokens[first].text in ("case", "default"):
            first = i + 1
        elif token.text == ";" and in_block:
            start, end = tokens[first].start, token.start
            # Without the last return of a function, what it does is not defined.
            last_return = tokens[first].text == "return" and brackets.count("{") == 1
            if first < i and not last_return and not DECLARATION.match(source[start:end]):
                yield start, end, ""
            first = i + 1


def dropped_rows(source, _):
    for match in ROW.finditer(source):
        if match.group().count("(") == match.group().count(")"):
            yield match.start(), match.end(), ""


def other_constants(source, tokens, enumerations):
    """Each use of a constant becomes the next constant of the same type in the file."""
    families = {}
    for match in CONSTANT.finditer(source):
        families.setdefault(match[1] or match[2] or match[3], []).append(match[4])
    following = {}
    for names in families.values():
        if len(names) > 1:
            following.update(zip(names, names[1:] + names[:1]))
    declared = {match.start(4) for match in CONSTANT.finditer(source)}
    for i, token in enumerate(tokens):
        if token.text in following and token.start not in declared:
            yield token.start, token.end, following[token.text]
        elif i > 1 and tokens[i - 1].text == "::" and tokens[i - 2].text in enumerations:
            names = enumerations[tokens[i - 2].text]
            if token.text in names:
                follower = names[(names.index(token.text) + 1) % len(names)]
                yield token.start, token.end, follower


def enumerations_of(source):
    return {
        name: re.findall(r"(\w+)(?:\s*=[^,]*)?\s*(?:,|$)", re.sub(r"//.*", "", body))
        for name, body in ENUM.findall(source)
    }


def mutants_of(path, source, enumerations):
    """Every mutant of one file, in the order of their lines."""
    tokens = tokens_of(source)
    changes = [
        *token_changes(source, tokens),
        *branch_changes(source, tokens),
        *dropped_statements(source, tokens),
        *dropped_rows(source, tokens),
        *other_constants(source, tokens, enumerations),
    ]
    unseen = [match.span() for match in UNSEEN.finditer(source)]
    mutants = []
    for start, end, replacement in sorted(set(changes)):
        if any(first <= start < last for first, last in unseen):
            continue
        line_start = source.rfind("\n", 0, start) + 1
        line_end = source.index("\n", end)
        original = " ".join(source[line_start:line_end].split())
        changed = source[line_start:start] + replacement + source[end:line_end]
        mutated = " ".join(changed.split())
        line = source.count("\n", 0, start) + 1
        mutants.append(Mutant(path, start, end, replacement, line, original, mutated))
    return mutants

"""Matches the blocks of a Visual Basic 6 module and tells where its lines do not stand by them.

It judges what a formatter wrote, so it shares nothing with the formatter: it has its own reading of the language,
made of regular expressions over whole logical lines. What it holds a module to is written at `Matcher`.
"""

import re

MODULE_ENDINGS = ('.bas', '.cls', '.frm', '.ctl', '.pag', '.dob', '.dsr')
ASCII = re.ASCII

_MONTH = r'(?:jan|feb|mar|apr|may|jun|jul|aug|sep|oct|nov|dec)[a-z]*'
_DATE = r'#[ \t]*(?:\d|%s)(?:[\d \t:/,.\-]|%s)*(?:[ap]m?[ \t]*)?#' % (_MONTH, _MONTH)
# What no keyword and no colon is looked for in. A bracket opens a name only where a name may begin: behind a byte
# above 127 it may be the second half of a character.
_OPAQUE = re.compile(
    r'''"[^"]*(?:"|$)|'.*|(?:(?<=:)|^)[ \t]*(?:\d+[ \t]+)?rem(?![\w.\x80-\xff]).*|%s|(?<![\w\x80-\xff])\[[^\]]*\]''' % _DATE,
    ASCII | re.IGNORECASE)
_SUSPECT = re.compile(r'''["'#\[:]|rem''', ASCII | re.IGNORECASE)
_COLON = re.compile(r':(?!=)')
_LABEL = re.compile(r'[a-z\x80-\xff][\w\x80-\xff]*[ \t]*:(?!=)', ASCII | re.IGNORECASE)
_LABEL_NOT = frozenset(('else', 'next', 'loop', 'wend', 'do', 'return', 'stop', 'end', 'rem'))
_NUMBER = re.compile(r'\d+(?=[ \t:]|$)', ASCII)
_WORD = re.compile(r'#?[a-z]+(?![\w\x80-\xff$%&!#@])', ASCII)
_IF = re.compile(r'if(?![\w\x80-\xff])', ASCII)
_THEN = re.compile(r'(?<![.!\w])then(?![\w\x80-\xff])', ASCII)
_ELSE = re.compile(r'(?<![.!\w\x80-\xff])else(?![\w\x80-\xff])', ASCII)
_PROCEDURE = re.compile(
    r'(?:(?:public|private|friend|global|static)[ \t]+)*(sub|function|property[ \t]+(?:get|let|set))[ \t]+[^\s=(.]', ASCII)
_TYPE = re.compile(r'(?:(?:public|private|global)[ \t]+)*(type|enum)[ \t]+(?!as[ \t])[^\s=(.,]', ASCII)
_END = re.compile(r'end[ \t]+(sub|function|property|type|enum|if|select|with)(?![\w\x80-\xff])', ASCII)
_SELECT = re.compile(r'select[ \t]+case(?![\w\x80-\xff])', ASCII)
_DIRECTIVE = re.compile(r'#[ \t]*(if|elseif|else|end[ \t]*if|const)(?![\w\x80-\xff])', ASCII)
_ATTRIBUTE = re.compile(r'[ \t]*attribute[ \t]+(?:[^\s=]*\.)?\[?vb_', ASCII | re.IGNORECASE)

_MODIFIERS = frozenset(('public', 'private', 'friend', 'global', 'static', 'sub', 'function', 'property', 'type', 'enum'))
_LOOPS = frozenset(('for', 'do', 'while', 'with'))
_CLOSERS = {'loop': 'do', 'wend': 'while'}
_DIVIDERS = frozenset(('else', 'elseif', 'case'))
_KEYWORDS = _MODIFIERS | _LOOPS | _DIVIDERS | frozenset(_CLOSERS) | frozenset(('if', 'select', 'next', 'end'))
PROCEDURES = frozenset(('sub', 'function', 'property'))
ONE_LINE_IF = '0'  # stands for its If and Then among a line's statements


def lines_of(text):
    """The lines of a file (bytes as latin-1), without their ends."""
    lines = text.split('\n')
    if lines[-1] == '':
        lines.pop()
    return [line[:-1] if line.endswith('\r') else line for line in lines]


def header_length(lines):
    """How many lines at the start of a file the IDE hides: the version, the designer's blocks, the attributes."""
    at = 0
    count = len(lines)
    if at < count and lines[at].lstrip('\xef\xbb\xbf').upper().startswith('VERSION'):
        at += 1
        depth = 0
        while at < count:
            word = lines[at].strip(' \t').upper()
            if word.startswith('BEGIN'):
                depth += 1
            elif depth > 0 and word in ('END', 'ENDPROPERTY'):
                depth -= 1
            elif depth == 0 and not word.startswith('OBJECT') and word:
                break
            at += 1
    while at < count and _ATTRIBUTE.match(lines[at]):
        at += 1
    return at


def continues(line):
    return line.endswith('_') and (len(line) == 1 or line[-2] in ' \t')


class Block:
    """A block that is open."""
    __slots__ = ('kind', 'column', 'line', 'branch', 'children', 'case_column')

    def __init__(self, kind, column, line, branch):
        self.kind = kind
        self.column = column  # of its opener's line; None where that line is exempt
        self.line = line
        self.branch = branch  # the branch of a directive that it begins in
        self.children = {}  # the column of the direct children, for each branch of a directive
        self.case_column = None


class Directive:
    """An #If that is open: the blocks that are open where each of its branches begins, and where they ended."""

    def __init__(self, column, line, condition, before, outer_branch):
        self.column = column
        self.line = line
        self.condition = condition
        self.starts = [before]  # the last one holds for every further branch
        self.results = []
        self.outer_branch = outer_branch
        self.has_else = False

    def start(self):
        """What is open where the next branch begins."""
        return self.starts[min(len(self.results), len(self.starts) - 1)]


class Matcher:
    """What one module is held to:

    - a closer or divider (Else, ElseIf, End If, Next, ...) stands in its opener's column; of several closers at the
      start of one line (`Next j, i`, `End If: End If`) the outermost block's counts; the dividers Case of one
      Select stand in one column, the Select's or a deeper one;
    - a procedure's header and End stand in column 1, if they are not inside an #If;
    - #ElseIf, #Else and #End If stand in their #If's column.

    A place that breaks one of these is misnested. It is uneven where a block's direct children break this:

    - they stand in one column, the opener's or a deeper one; inside a branch of #If they may have a column by
      themselves.

    A line's column is its first statement's. Lines with a number or a label, continuations and comments are exempt;
    so is everything in a procedure that does not balance.
    """

    def __init__(self, lines, tab_width=4):
        self.misnested = []  # (line from 1, what): closers, dividers, procedures
        self.uneven = []  # (line from 1, what): direct children
        self.faults = []  # (line from 1, what)
        self._tab_width = tab_width
        self._stack = []
        self._directives = []
        self._pending = {}  # by condition: the line of an #If whose branches left different blocks open, and those
        self._branch = 0
        self._branches = 0
        self._found = []  # what stands wrong since the last procedure's end
        self._found_uneven = []
        self._faulty = False  # whether something did not balance since then
        self._read(lines)

    def _read(self, lines):
        at = header_length(lines)
        count = len(lines)
        while at < count:
            line = lines[at]
            at += 1
            number = at
            if not continues(line):
                self._logical_line(line, line, number)
                continue
            parts = [line[:-1]]
            while at < count:
                part = lines[at]
                at += 1
                if not continues(part):
                    parts.append(part)
                    break
                parts.append(part[:-1])
            self._logical_line(' '.join(parts), line, number)
        for block in self._stack:
            self._fault(block.line, '%s is not closed' % block.kind)
        for directive in self._directives:
            self._fault(directive.line, '#If is not closed')
        for line, _ in self._pending.values():
            self._fault(line, 'the branches of the #If leave different blocks open')
        self._end_region()

    def _fault(self, line, what):
        self.faults.append((line, what))
        self._faulty = True

    def _end_region(self):
        if not self._faulty:
            self.misnested += self._found
            self.uneven += self._found_uneven
        self._found = []
        self._found_uneven = []
        self._faulty = False

    def _misnested(self, number, what):
        self._found.append((number, what))

    def _uneven(self, number, what):
        self._found_uneven.append((number, what))

    def _logical_line(self, text, first_line, number):
        bare = text.lstrip(' \t')
        if not bare or bare[0] == "'":
            return
        blanks = len(first_line) - len(first_line.lstrip(' \t'))
        column = len(first_line[:blanks].expandtabs(self._tab_width))
        if bare[0] == '#' and self._directive(bare.lower(), column, number):
            return
        if bare[0] in 'aA' and _ATTRIBUTE.match(bare):
            return
        if _SUSPECT.search(bare):
            bare = _OPAQUE.sub(_placeholder, bare)
        text = bare.strip(' \t').lower()
        in_list = bool(self._stack) and self._stack[-1].kind in ('type', 'enum')
        match = _NUMBER.match(text)
        if match:
            column = None
            text = text[match.end():].lstrip(' \t:')
        match = _LABEL.match(text)
        if match and not in_list and text[:match.end() - 1].rstrip() not in _LABEL_NOT:
            column = None
            text = text[match.end():].lstrip(' \t')
        if text:
            statements = self._simple_statements(text, number) if not in_list else _COLON.split(text)
            self._statements(statements, column, number)

    # Takes one-line Ifs apart: what stands behind Then and Else are statements like others.
    def _simple_statements(self, text, number):
        queue = _COLON.split(text)
        statements = []
        conditional = False
        while queue:
            statement = queue.pop(0).strip(' \t')
            if conditional:
                parts = _ELSE.split(statement)
                if len(parts) > 1 and not _IF.match(statement):
                    queue[:0] = parts
                    continue
            if not statement:
                continue
            if not _IF.match(statement):
                statements.append(statement)
                continue
            match = _THEN.search(statement)
            if match is None:
                self._fault(number, 'If without Then')
                continue
            behind = statement[match.end():].strip(' \t')
            if behind:
                conditional = True
                statements.append(ONE_LINE_IF)
                queue[:0] = [behind] if _IF.match(behind) else _ELSE.split(behind)
            elif not queue:
                statements.append('if')
            elif any(part.strip(' \t') for part in queue):
                conditional = True
                statements.append(ONE_LINE_IF)
            else:
                self._fault(number, 'nothing but a colon behind Then')
                queue = []
        return statements

    def _statements(self, statements, column, number):
        closed = None  # the outermost block that the closers at the line's start close
        leading = True
        for statement in statements:
            match = _WORD.match(statement)
            word = match.group() if match else ''
            if word in _KEYWORDS:
                block = self._closed_by(word, statement, number)
                if block is not None:
                    if leading:
                        closed = block
                    continue
            if leading:
                leading = False
                if closed:
                    self._check_closer(closed, column, number)
                elif closed is None and word not in _DIVIDERS:
                    self._check_child(word, statement, column, number)
                elif closed is None:
                    self._check_divider(word, column, number)
            elif word in _DIVIDERS:
                self._check_divider(word, None, number)
            if word == 'else':
                rest = statement[match.end():].lstrip(' \t')
                if rest:
                    self._statements(self._simple_statements(rest, number), None, number)
            elif word in _KEYWORDS:
                self._open(word, statement, column, number)
        if leading and closed:
            self._check_closer(closed, column, number)
        if not self._stack and not self._directives and closed and closed.kind in PROCEDURES:
            self._end_region()

    # The outermost block that a statement closes; None if it is no closer, False if it has nothing to close.
    def _closed_by(self, word, statement, number):
        stack = self._stack
        if word == 'end':
            match = _END.match(statement)
            return self._pop(match.group(1), number, 'End ' + match.group(1).capitalize()) if match else None
        if stack and stack[-1].kind in ('type', 'enum'):
            return None
        if word == 'next':
            block = None
            for _ in range(statement.count(',') + 1):
                block = self._pop('for', number, 'Next')
            return block
        if word in _CLOSERS:
            return self._pop(_CLOSERS[word], number, word.capitalize())
        return None

    def _pop(self, kind, number, what):
        stack = self._stack
        for depth in range(len(stack) - 1, -1, -1):
            if stack[depth].kind == kind:
                for block in stack[depth + 1:]:
                    self._fault(block.line, '%s is not closed before %s in line %d' % (block.kind, what, number))
                block = stack[depth]
                del stack[depth:]
                return block
            if stack[depth].kind in PROCEDURES:
                break
        self._fault(number, what + ' closes nothing')
        return False

    def _check_closer(self, block, column, number):
        if column is None or block.column is None or block.branch != self._branch:
            return
        if column != block.column:
            self._misnested(number, 'another column than the %s of line %d' % (block.kind, block.line))
        elif block.kind in PROCEDURES and column != 0 and not self._directives:
            self._misnested(number, 'End off column 1')

    def _check_divider(self, word, column, number):
        stack = self._stack
        wanted = 'select' if word == 'case' else 'if'
        if not stack or stack[-1].kind != wanted:
            self._fault(number, word.capitalize() + ' divides nothing')
            return
        block = stack[-1]
        if column is None or block.column is None or block.branch != self._branch:
            return
        if wanted == 'if':
            if column != block.column:
                self._misnested(number, 'another column than the if of line %d' % block.line)
        elif block.case_column is None:
            block.case_column = column
            if column < block.column:
                self._misnested(number, 'left of the select of line %d' % block.line)
        elif column != block.case_column:
            self._misnested(number, 'another column than the first case of line %d' % block.line)

    def _check_child(self, word, statement, column, number):
        stack = self._stack
        if not stack:
            if word in _MODIFIERS and column and not self._directives and _PROCEDURE.match(statement):
                self._misnested(number, 'procedure off column 1')
            return
        if column is None:
            return
        block = stack[-1]
        known = block.children.get(self._branch)
        if known is None:
            block.children[self._branch] = column
            opener = block.column if block.case_column is None else block.case_column
            if opener is not None and column < opener and block.branch == self._branch:
                self._uneven(number, 'left of the %s of line %d that holds it' % (block.kind, block.line))
        elif column != known:
            self._uneven(number, 'another column than the rest of the %s of line %d' % (block.kind, block.line))

    def _open(self, word, statement, column, number):
        stack = self._stack
        kind = None
        if stack and stack[-1].kind in ('type', 'enum'):
            return
        if word == 'if' or word in _LOOPS:
            kind = word
        elif word == 'select':
            kind = word if _SELECT.match(statement) else None
        elif word in _MODIFIERS:
            match = _PROCEDURE.match(statement)
            if match:
                kind = match.group(1)[:8]
                for block in stack:
                    self._fault(block.line, '%s is not closed before the procedure of line %d' % (block.kind, number))
                del stack[:]
            elif not stack:
                match = _TYPE.match(statement)
                kind = match.group(1) if match else None
        if kind:
            stack.append(Block(kind, column, number, self._branch))

    # Branches are alternatives: each begins with what was open before the #If, and what the first leaves open holds
    # behind it. Where another leaves something else, the next #If of the same condition may set that right.
    def _directive(self, text, column, number):
        match = _DIRECTIVE.match(text)
        if match is None:
            return False
        word = match.group(1).replace(' ', '').replace('\t', '')
        if word == 'const':
            return True
        if word == 'if':
            condition = ' '.join(text[match.end():].split())
            directive = Directive(column, number, condition, self._stack, self._branch)
            pending = self._pending.get(condition)
            if pending and pending[1][0] == self._stack:
                directive.starts = pending[1]
            self._directives.append(directive)
            self._begin_branch(directive)
            return True
        if not self._directives:
            self._fault(number, '#%s without #If' % word)
            return True
        directive = self._directives[-1]
        if column != directive.column:
            self._misnested(number, 'another column than the #If of line %d' % directive.line)
        directive.results.append(self._stack)
        if word != 'endif':
            directive.has_else = word == 'else'
            self._begin_branch(directive)
            return True
        if not directive.has_else:
            directive.results.append(directive.start())
        self._directives.pop()
        self._branch = directive.outer_branch
        self._stack = list(directive.results[0])
        if len({tuple(block.kind for block in result) for result in directive.results}) == 1:
            self._pending.pop(directive.condition, None)
        else:
            first = self._pending.get(directive.condition, (directive.line,))[0]
            self._pending[directive.condition] = (first, directive.results)
        return True

    def _begin_branch(self, directive):
        self._stack = list(directive.start())
        self._branches += 1
        self._branch = self._branches


def _placeholder(match):
    return {'"': '""', '#': '0', '[': 'x'}.get(match.group()[0], '')

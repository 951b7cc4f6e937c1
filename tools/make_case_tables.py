#!/usr/bin/env python3
"""Writes platform/drawing/rx/CaseTables.inc: the Unicode simple case mappings as ranges with a stride.

Usage: make_case_tables.py > platform/drawing/rx/CaseTables.inc
"""
import unicodedata

CAPITAL_I_WITH_DOT = 0x130


def simple_upper(c):
    """Python knows the full mappings only; where those are longer, the title case is the simple one."""
    for mapped in (chr(c).upper(), chr(c).title()):
        if len(mapped) == 1:
            return ord(mapped)
    return c


def simple_lower(c):
    return ord('i') if c == CAPITAL_I_WITH_DOT else ord(chr(c).lower())


def simple_fold(c):
    if c == CAPITAL_I_WITH_DOT:  # folds in Turkic languages only
        return c
    folded = chr(c).casefold()
    return ord(folded) if len(folded) == 1 else simple_lower(c)


def ranges(pairs):
    """Joins (code point, image) pairs whose distance is constant and whose step is 1 or 2."""
    result = []
    for c, image in pairs:
        if result:
            last = result[-1]
            step = c - last['last']
            fits = step == last['stride'] or (last['first'] == last['last'] and step <= 2)
            if fits and image - c == last['delta']:
                last['last'], last['stride'] = c, step
                continue
        result.append({'first': c, 'last': c, 'stride': 1, 'delta': image - c})
    return result


def write_table(name, pairs):
    rows = ['{{0x{first:X}, 0x{last:X}, {stride}, {delta}}}'.format(**r) for r in ranges(pairs)]
    print(f'constexpr CaseRange {name}[] = {{')
    line = '   '
    for row in rows:
        if len(line) + len(row) + 2 > 110:
            print(line)
            line = '   '
        line += f' {row},'
    print(line)
    print('};')


def main():
    letters = [c for c in range(0x80, 0x110000) if not 0xD800 <= c < 0xE000]
    print(f'// Made by tools/make_case_tables.py from Unicode {unicodedata.unidata_version}; ASCII is not listed.')
    write_table('kToUpper', [(c, simple_upper(c)) for c in letters if simple_upper(c) != c])
    write_table('kToLower', [(c, simple_lower(c)) for c in letters if simple_lower(c) != c])
    print('// Only where folding differs from lower case.')
    write_table('kToFolded', [(c, simple_fold(c)) for c in letters if simple_fold(c) != simple_lower(c)])


main()

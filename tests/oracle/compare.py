#!/usr/bin/env python3
"""Compare the listings of kaltrova-cli with the independent oracle.

    compare.py --cli BUILD/appdir/kaltrova-cli [--appdir DIR] [-n 50] [--seed 1]
               [--houses PKRCOBT] [--kinds natal,aspects,cosmic,career,page]
               [--records FILE] [--names] [--show 5]

For every record (random ones from random_records.py, a file of record
lines, and with --names the program's own NAMES.FIL), every house system
and every page kind it runs the program and the oracle and compares the
text line by line.  Prints a summary and the first differences; the exit
status is 1 when any page differs, 0 otherwise.
"""

import argparse
import difflib
import os
import subprocess
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)

import oracle  # noqa: E402
import random_records  # noqa: E402

KINDS = ['natal', 'aspects', 'cosmic', 'career', 'page']


def run_cli(cli, appdir, hsys, kind, record):
    proc = subprocess.run([cli, '--dir', appdir, '--houses', hsys, kind,
                           '--record', record], capture_output=True)
    out = proc.stdout.decode('latin-1').replace('\r\n', '\n')
    err = proc.stderr.decode('latin-1')
    return proc.returncode, out, err


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument('--cli', required=True)
    ap.add_argument('--appdir')
    ap.add_argument('-n', type=int, default=50, help='random records')
    ap.add_argument('--seed', type=int, default=1)
    ap.add_argument('--houses', default='PKRCOBT')
    ap.add_argument('--kinds', default=','.join(KINDS))
    ap.add_argument('--records', help='file of extra record lines')
    ap.add_argument('--names', action='store_true',
                    help="also the records of the program's NAMES.FIL")
    ap.add_argument('--refused', type=int, default=10,
                    help='records that break an input check')
    ap.add_argument('--show', type=int, default=5, help='differing pages shown')
    ap.add_argument('--ephe', default='/usr/share/libswe/ephe')
    a = ap.parse_args()
    appdir = a.appdir or os.path.dirname(os.path.abspath(a.cli))
    kinds = a.kinds.split(',')

    recs = random_records.records(a.n, a.seed)
    if a.records:
        recs += [ln for ln in oracle.read_lines(a.records) if ln.strip()]
    if a.names:
        path = oracle.find_file(appdir, 'NAMES.FIL')
        for ln in oracle.read_lines(path) if path else []:
            if ln.split(',')[0].strip() == '':
                break
            recs.append(ln)

    recs += random_records.refused_records(a.refused, a.seed)

    total = same = shown = 0
    per_kind = {k: [0, 0] for k in kinds}
    refusals = [0, 0]
    for rec in recs:
        for hsys in a.houses:
            inp = oracle.transfer(rec)
            errors = oracle.input_checks(inp, hsys)
            if errors:
                # A refused record: the program must stop with the same
                # messages, one per failing test, and print no page.
                rc, got, err = run_cli(a.cli, appdir, hsys, 'natal', rec)
                said = [ln.split('! ', 1)[-1] for ln in err.splitlines() if ln.strip()]
                total += 1
                refusals[0] += 1
                if rc != 0 and got == '' and said == errors:
                    same += 1
                    continue
                refusals[1] += 1
                if shown < a.show:
                    shown += 1
                    print('=== REFUSAL --houses %s --record "%s"' % (hsys, rec))
                    print('oracle: %s' % errors)
                    print('program exit %d, stdout %d chars, stderr: %s'
                          % (rc, len(got), said))
                continue
            chart = oracle.calc_chart(inp, hsys, a.ephe)
            for kind in kinds:
                rc, got, err = run_cli(a.cli, appdir, hsys, kind, rec)
                want = oracle.build_page(kind, chart, appdir)
                total += 1
                per_kind[kind][0] += 1
                if got == want:
                    same += 1
                    continue
                per_kind[kind][1] += 1
                if shown < a.show:
                    shown += 1
                    print('=== DIFF %s --houses %s --record "%s"' % (kind, hsys, rec))
                    if rc != 0:
                        print('program exit %d: %s' % (rc, err.strip()))
                    diff = difflib.unified_diff(
                        want.splitlines(), got.splitlines(),
                        'oracle', 'program', n=0, lineterm='')
                    for i, ln in enumerate(diff):
                        if i >= 40:
                            print('...')
                            break
                        print(ln)
    print('--- %d records, houses %s' % (len(recs), a.houses))
    for kind in kinds:
        print('%-8s %5d pages, %5d differ' % ((kind,) + tuple(per_kind[kind])))
    print('%-8s %5d checks, %5d differ' % ('refused', refusals[0], refusals[1]))
    print('total %d compared, %d equal, %d differ' % (total, same, total - same))
    return 0 if total and same == total else 1


if __name__ == '__main__':
    sys.exit(main())

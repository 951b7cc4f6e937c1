#!/usr/bin/python3
"""Opens drawings with hbhost, saves each untouched under another name, and requires that nothing was lost or changed.

    roundtrip.py HBHOST DRAWING... --work FOLDER [--allow-header NAME]...

Every saved drawing is compared twice: as an independent reader understands it (compare.py) and group by group
(diff_tags.py). The original must keep its bytes. Where a drawing fails, the saved file and the list of differences
(.diff) stay in the work folder. Exit status: 0 all equal, 1 some differ or could not be saved, 2 wrong usage.
"""

import argparse
import subprocess
import sys
from pathlib import Path
from typing import Iterable, List

from ezdxf.lldxf.const import DXFError

import compare
import diff_tags

SECONDS = 120  # for one drawing; a program that waits for input must not hang the suite


def save_untouched(hbhost: Path, drawing: Path, saved: Path) -> str:
    """Runs the program; returns what went wrong, or an empty text."""
    saved.unlink(missing_ok=True)
    try:
        run = subprocess.run(
            [hbhost, drawing, "--save-as", saved],
            stdin=subprocess.DEVNULL,
            capture_output=True,
            timeout=SECONDS,
            check=False,
        )
    except subprocess.TimeoutExpired:
        return f"hbhost did not end within {SECONDS} s"
    if run.returncode != 0:
        message = run.stderr.decode("utf-8", "replace").strip()[-600:]
        return f"hbhost ended with status {run.returncode}: {message}"
    return "" if saved.is_file() else "hbhost ended with status 0 but wrote no drawing"


def differences(drawing: Path, saved: Path, allow_header: Iterable[str]) -> List[str]:
    """Sentences of both comparisons, each under the name of its script."""
    lines: List[str] = []
    for script in (diff_tags, compare):
        try:
            found = script.compare(str(drawing), str(saved), allow_header).lines
        except (diff_tags.DxfError, DXFError) as error:
            if script is compare and str(error).startswith(f"{drawing}:"):
                print(f"note    {drawing.name}: compared group by group only, the reader gives up on the original")
                continue
            found = [f"unreadable: {error}"]
        lines += [f"{script.__name__}: {line}" for line in found]
    return lines


def check(hbhost: Path, drawing: Path, work: Path, allow_header: Iterable[str] = ()) -> bool:
    """Round trip of one drawing; prints one line, more when it fails."""
    saved = work / f"{drawing.stem}.saved.dxf"
    report = saved.with_suffix(".diff")
    report.unlink(missing_ok=True)
    before = drawing.read_bytes()
    failure = save_untouched(hbhost, drawing, saved)
    lines = [failure] if failure else differences(drawing, saved, allow_header)
    if drawing.read_bytes() != before:
        lines.insert(0, "the original was changed")
    if not lines:
        saved.unlink()
        print(f"equal   {drawing.name}")
        return True
    report.write_text("\n".join(lines) + "\n", encoding="utf-8", errors="surrogateescape")
    print(f"FAILED  {drawing.name}: {len(lines)} differences, all of them in {report}")
    for line in lines[:10]:
        print(f"        {line}")
    return False


def add_arguments(parser: argparse.ArgumentParser) -> None:
    parser.add_argument("hbhost", type=Path, help="the program")
    parser.add_argument("--work", type=Path, required=True, help="folder for saved drawings and reports")
    parser.add_argument(
        "--allow-header", action="append", default=[], metavar="NAME", help="header variable that may differ"
    )


def check_all(args: argparse.Namespace, drawings: List[Path]) -> int:
    sys.stdout.reconfigure(errors="backslashreplace")  # lone surrogates stand for bytes that are no text
    if not args.hbhost.is_file():
        print(f"roundtrip: there is no program {args.hbhost}", file=sys.stderr)
        return 2
    args.work.mkdir(parents=True, exist_ok=True)
    results = [check(args.hbhost.resolve(), drawing, args.work, args.allow_header) for drawing in drawings]
    print(f"{sum(results)} of {len(results)} drawings came back unchanged")
    return 0 if all(results) else 1


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    add_arguments(parser)
    parser.add_argument("drawings", type=Path, nargs="+", help="drawings, or folders with drawings")
    args = parser.parse_args()
    drawings = [found for path in args.drawings for found in (sorted(path.rglob("*.dxf")) if path.is_dir() else [path])]
    if not drawings:
        parser.error("no drawings found")
    return check_all(args, drawings)


if __name__ == "__main__":
    sys.exit(main())

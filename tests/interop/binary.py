#!/usr/bin/python3
"""Has an independent program write drawings in binary form, and requires that hbhost reads and saves them like the
ASCII form: the same bytes come back, and the same values are extracted.

    binary.py HBHOST TEMPLATE DRAWING... --work FOLDER

Exit status: 0 all equal, 1 some differ.
"""

import argparse
import subprocess
import sys
from pathlib import Path

import ezdxf

import roundtrip


def extracted(hbhost: Path, drawing: Path, template: Path) -> str:
    """The table of the drawing, or what the program said."""
    run = subprocess.run(
        [hbhost, "extract", drawing, "--template", template, "--format", "cdf", "--output", "-"],
        stdin=subprocess.DEVNULL,
        capture_output=True,
        timeout=roundtrip.SECONDS,
        check=False,
    )
    return run.stdout.decode("utf-8") or run.stderr.decode("utf-8", "replace").replace(drawing.name, "DRAWING")


def check(hbhost: Path, template: Path, drawing: Path, work: Path) -> bool:
    """Both forms of one drawing; prints one line."""
    ascii_form = work / f"{drawing.stem}.ascii.dxf"
    binary_form = work / f"{drawing.stem}.binary.dxf"
    document = ezdxf.readfile(drawing)
    document.saveas(ascii_form)
    document.saveas(binary_form, fmt="bin")
    saved = work / f"{drawing.stem}.saved.dxf"
    failure = roundtrip.save_untouched(hbhost, binary_form, saved)
    if not failure and saved.read_bytes() != binary_form.read_bytes():
        failure = "the saved file differs"
    if not failure and extracted(hbhost, ascii_form, template).replace(".ascii", "") != extracted(
        hbhost, binary_form, template
    ).replace(".binary", ""):
        failure = "the extracted values differ"
    print(f"{'FAILED ' if failure else 'equal  '} {drawing.name} {failure}")
    return not failure


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("hbhost", type=Path)
    parser.add_argument("template", type=Path)
    parser.add_argument("drawings", type=Path, nargs="+")
    parser.add_argument("--work", type=Path, required=True)
    args = parser.parse_args()
    args.work.mkdir(parents=True, exist_ok=True)
    results = [check(args.hbhost.resolve(), args.template, drawing, args.work) for drawing in args.drawings]
    return 0 if all(results) else 1


if __name__ == "__main__":
    sys.exit(main())

"""Both targets must make the same files: drawings to the byte, extractions but for their line ends.

Runs the native program and the one for Windows (through tools/wine) side by side on the examples.
"""
import argparse
import pathlib
import subprocess
import sys

EXTRACTIONS = {"cdf": ["--template", "rooms.tpl"], "sdf": ["--template", "rooms.tpl"], "dxx": []}


def run(program, arguments, folder):
    done = subprocess.run([*program, *arguments], cwd=folder, stdin=subprocess.DEVNULL, capture_output=True,
                          timeout=120, check=False)
    return done.returncode, done.stdout, done.stderr


def jobs(drawings):
    """Name of a job, its arguments, and the file that it writes."""
    for drawing in drawings:
        stem = drawing.stem
        yield f"{stem}: saved", [drawing.name, "--save-as", "saved.dxf"], "saved.dxf"
        yield f"{stem}: recovered", [drawing.name, "--recover", "--save-as", "saved.dxf"], "saved.dxf"
        yield f"{stem}: upgraded", [drawing.name, "--release", "2000", "--save-as", "saved.dxf"], "saved.dxf"
        for encoding in ("ANSI_1252", "ANSI_932", "UTF-8"):
            yield (f"{stem}: read as {encoding}", [drawing.name, "--encoding", encoding, "--save-as", "saved.dxf"],
                   "saved.dxf")
        yield f"{stem}: checked", ["check", "--json", drawing.name], None
        for form, template in EXTRACTIONS.items():
            yield (f"{stem}: extracted as {form}",
                   ["extract", drawing.name, "--format", form, *template, "--output", "out.txt"], "out.txt")
    yield "new drawing", ["--save-as", "saved.dxf"], "saved.dxf"


def outcome(program, arguments, output, folder):
    if output:
        (folder / output).unlink(missing_ok=True)
    result = run(program, arguments, folder)
    written = folder / output if output else None
    return result, written.read_bytes() if written and written.exists() else None


def plain(made, is_text):
    return made.replace(b"\r\n", b"\n") if made is not None and is_text else made


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("native")
    parser.add_argument("windows", nargs="+", help="the command that runs the other program")
    parser.add_argument("--examples", type=pathlib.Path, required=True)
    parser.add_argument("--work", type=pathlib.Path, required=True)
    options = parser.parse_args()
    if not pathlib.Path(options.native).exists():
        sys.exit(f"{options.native} is missing: build the preset linux first")
    native = [str(pathlib.Path(options.native).resolve())]
    windows = [str(pathlib.Path(part).resolve()) for part in options.windows]
    options.work.mkdir(parents=True, exist_ok=True)
    drawings = sorted(options.examples.glob("*.dxf")) + sorted((options.examples / "small").glob("*.dxf"))
    for source in [*drawings, options.examples / "rooms.tpl"]:
        (options.work / source.name).write_bytes(source.read_bytes())

    count = written = failures = 0
    for name, arguments, output in jobs(drawings):
        told, native_file = outcome(native, arguments, output, options.work)
        other_told, other_file = outcome(windows, arguments, output, options.work)
        is_text = output == "out.txt"
        count += 1
        written += native_file is not None
        if told != other_told:
            print(f"{name}: {told} became {other_told}")
        elif is_text and other_file is not None and other_file.count(b"\n") != other_file.count(b"\r\n"):
            print(f"{name}: lines do not end in CR LF")
        elif plain(native_file, is_text) != plain(other_file, is_text):
            print(f"{name}: the files differ")
        else:
            continue
        failures += 1
    print(f"{count} jobs, {written} files, {failures} differences")
    return 1 if failures or written < len(drawings) else 0


if __name__ == "__main__":
    sys.exit(main())

"""The module exports what its definition file names, undecorated, and nothing else.

For a library of Windows also: it has version information, and stands on the libraries beside it and those of the system.
"""
import pathlib
import re
import subprocess
import sys

SYSTEM = {"kernel32.dll", "msvcrt.dll", "user32.dll", "gdi32.dll", "shell32.dll", "ole32.dll", "oleaut32.dll", "advapi32.dll",
          "comctl32.dll", "comdlg32.dll", "uxtheme.dll", "shlwapi.dll"}


def printed(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def defined(definition):
    """The names behind EXPORTS in a definition file."""
    lines = [line.split(";")[0].strip() for line in definition.read_text(encoding="utf-8").splitlines()]
    return {line.split()[0] for line in lines[lines.index("EXPORTS") + 1:] if line}


def exported(library):
    if library.suffix == ".dll":
        table = printed("x86_64-w64-mingw32-objdump", "-p", library).partition("[Ordinal/Name Pointer] Table")[2]
        return set(re.findall(r"^\s*\[\s*\d+\]\s+(?:\+base\[\s*\d+\]\s+)?(?:[0-9a-f]+\s+)?(\S+)$", table, re.MULTILINE))
    return {line.split()[-1] for line in printed("nm", "-D", "--defined-only", library).splitlines()}


def faults(library, definition):
    expected, found = defined(definition), exported(library)
    for name in sorted(expected - found):
        yield f"{name} is not exported"
    for name in sorted(found - expected):
        yield f"{name} is exported, but not in {definition.name}"
    if library.suffix != ".dll":
        return
    beside = {path.name.lower() for path in library.parent.glob("*.dll")}
    text = printed("x86_64-w64-mingw32-objdump", "-p", library)
    for name in sorted(set(re.findall(r"DLL Name: (\S+)", text))):
        if name.lower() not in beside | SYSTEM:
            yield f"it needs {name}, which is neither beside it nor of the system"
    for binary in sorted([*library.parent.glob("*.exe"), *library.parent.glob("*.dll")]):
        is_own = not binary.name.startswith("lib") and "test" not in binary.name and "prob" not in binary.name
        if is_own and "VS_VERSION_INFO".encode("utf-16-le") not in binary.read_bytes():
            yield f"{binary.name} has no version information"


def main():
    library, definition = map(pathlib.Path, sys.argv[1:])
    found = list(faults(library, definition))
    print("\n".join(found) or f"{library.name}: {len(defined(definition))} exports")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())

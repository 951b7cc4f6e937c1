#!/usr/bin/env python3
"""clang-tidy over sources in groups: tidy.py BUILDDIR LARGEST CHECKS FILE...

Nearly all that clang-tidy does for one source it does for the headers, so sources of the same compiler options are read
together, LARGEST at most, as one source that includes them. Sources whose own names would meet stand in different groups.
Where the compiler refuses a group all the same, its sources are read one by one. The static analyzer needs LARGEST to be 1:
it looks at nothing that is included.

BUILDDIR holds compile_commands.json and keeps what was found clean: a group is not read again while neither what the
compiler sees of it nor the rules change. CHECKS is added to those of .clang-tidy. Exit status 1 when anything was found.
"""
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

# A group is a source that includes sources, and some declare what others define.
NOT_OF_GROUPS = ",-bugprone-suspicious-include,-readability-redundant-declaration"
OWN_SCOPE = re.compile(r"^namespace \{$(.*?)^\} // namespace$", re.M | re.S)
# Names that a scope of a source's own declares: constants, types, functions and variables; too many rather than too few.
OWN_NAMES = re.compile(r"\b(k[A-Z]\w*)(?=\s*(?:\[[^]]*\])?\s*[={,}(])"
                       r"|\b(?:struct|class|enum|union|using)\s+(\w+)"
                       r"|^\w[^(;={]*?\b(\w+)\s*[(;={]", re.M)
MAIN = re.compile(r"^int (main)\(", re.M)


def own_names(source):
    """The names of a source that may stand only once in a group."""
    text = source.read_text()
    names = set(MAIN.findall(text))
    for scope in OWN_SCOPE.findall(text):
        names.update(name for found in OWN_NAMES.findall(scope) for name in found if name)
    return names


def options(entry):
    """The compiler's options for a source: what decides how it reads, not what it writes."""
    words = shlex.split(entry["command"])
    start = next(i for i, word in enumerate(words) if pathlib.Path(word).name in ("c++", "g++", "clang++"))
    kept, skip = [], False
    for word in words[start:]:
        if skip or word == "-c" or word == entry["file"]:
            skip = False
        elif word in ("-o", "-include", "-MF", "-MT"):
            skip = True
        elif word not in ("-MD", "-Winvalid-pch"):
            kept.append(word)
    return kept


def groups(build, largest, sources):
    """Lists of at most so many sources with their options; sources that are not part of the build end the program."""
    entries = {entry["file"]: entry for entry in json.loads((build / "compile_commands.json").read_text())}
    found = {}
    for source in sources:
        if str(source) not in entries:
            sys.exit(f"{source}: not part of the build")
        words = options(entries[str(source)])
        names = own_names(source)
        alike = found.setdefault(" ".join(words), [])
        for group in alike:
            if len(group["sources"]) < largest and not names & group["names"]:
                group["sources"].append(source)
                group["names"] |= names
                break
        else:
            alike.append({"options": words, "sources": [source], "names": names})
    return [group for alike in found.values() for group in alike]


def tidy(build, given, group):
    """What clang-tidy says of a group by the given checks, nothing if it is clean."""
    checks = given
    unit = group["sources"][0]
    if len(group["sources"]) > 1:
        checks += NOT_OF_GROUPS
        text = "".join(f'#include "{source}"\n' for source in group["sources"])
        unit = build / f"{hashlib.sha256(text.encode()).hexdigest()[:16]}.cpp"
        unit.write_text(text)
    seen = subprocess.run(group["options"] + ["-E", "-P", str(unit)], capture_output=True, check=False)
    if seen.returncode:
        return seen.stderr.decode()
    rules = checks.encode() + pathlib.Path(".clang-tidy").read_bytes() + pathlib.Path(__file__).read_bytes()
    stamp = build / "stamps" / hashlib.sha256(seen.stdout + rules).hexdigest()[:40]
    if stamp.exists():
        return ""
    command = ["clang-tidy", "--quiet", f"--checks={checks}", str(unit), "--"]
    ran = subprocess.run(command + group["options"][1:] + ["-Wno-unknown-warning-option"], capture_output=True, check=False)
    if ran.returncode == 0:
        stamp.touch()
        return ""
    if b"[clang-diagnostic-error" in ran.stdout and len(group["sources"]) > 1:
        return "".join(tidy(build, given, {"options": group["options"], "sources": [source]}) for source in group["sources"])
    return ran.stdout.decode() or f"{unit}: clang-tidy ended with status {ran.returncode}\n{ran.stderr.decode()}"


def main():
    build, largest, checks = pathlib.Path(sys.argv[1]).resolve(), int(sys.argv[2]), sys.argv[3]
    sources = sorted(pathlib.Path(name).resolve() for name in sys.argv[4:])
    (build / "stamps").mkdir(exist_ok=True)
    status = 0
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        for said in pool.map(lambda group: tidy(build, checks, group), groups(build, largest, sources)):
            if said:
                print(said, flush=True)
                status = 1
    return status


if __name__ == "__main__":
    sys.exit(main())

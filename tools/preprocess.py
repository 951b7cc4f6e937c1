#!/usr/bin/env python3
"""Print what the compiler sees of one source file: preprocess.py BUILDDIR FILE.

Uses the file's command in compile_commands.json, without precompiled headers and output options.
"""
import json
import pathlib
import shlex
import subprocess
import sys


def main():
    build, source = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]).resolve()
    for entry in json.loads((build / "compile_commands.json").read_text()):
        if pathlib.Path(entry["file"]) != source:
            continue
        words = shlex.split(entry["command"])
        start = next(i for i, word in enumerate(words) if pathlib.Path(word).name in ("c++", "g++", "clang++"))
        kept = []
        skip = False
        for word in words[start:]:
            if skip or word in ("-c", "-Winvalid-pch"):
                skip = False
            elif word in ("-o", "-include", "-MF", "-MT"):
                skip = True
            elif word != "-MD":
                kept.append(word)
        return subprocess.run(kept + ["-E", "-P"], cwd=entry["directory"], check=False).returncode
    print(f"{source}: not part of the build", file=sys.stderr)
    return 1


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Check who includes whom: a room may use itself and the rooms below it, never one above.

The floors stand in FLOORS. Headers are found by the include folders that the build uses; system headers and
libraries outside the tree do not count. What knows the operating system stands in folders of its own, which the
build chooses: no code asks the preprocessor for the system. Exit status 1 when an include breaks a floor, or a file
asks.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

# room -> the rooms it may include, besides itself
DRAWING = ["platform/drawing/rx", "platform/drawing/ge", "platform/drawing/db"]
PUBLIC = DRAWING + ["platform/host/include", "sys"]
FLOORS = {
    "sys": [],
    "platform/drawing/rx": ["sys"],
    "platform/drawing/ge": ["platform/drawing/rx", "sys"],
    "platform/drawing/db": ["platform/drawing/rx", "platform/drawing/ge", "sys"],
    "platform/drawing/dxf": DRAWING + ["sys"],
    "platform/host": DRAWING + ["platform/drawing/dxf", "platform/host/include", "sys"],
    "platform/host/include": DRAWING,
    "module/res": PUBLIC,
    "module/frame": PUBLIC + ["module/res"],
    "module/ui": PUBLIC + ["module/res", "module/frame"],
    "module/construct": PUBLIC + ["module/res", "module/frame"],
    "module/attext": PUBLIC + ["module/res", "module/frame", "module/ui"],
    "app": DRAWING + ["platform/drawing/dxf", "platform/host", "platform/host/include", "sys"],
}
# Single headers that cross a floor on purpose: what a program must know of the module to answer its dialogs.
EXCEPTIONS = {("app", "module/ui/line"), ("app", "module/ui/dialog_user.h"), ("platform/host", "module/ui/dialog_user.h")}
# Internal headers of the drawing library: the module must not see them, no vendor has them.
INTERNAL = {"DbStub.h", "DbStore.h", "DbUndo.h", "DbGroup.h", "DbSchema.h"}
SYSTEM_QUESTION = re.compile(r"\s*#\s*(if|elif|ifdef|ifndef)\b.*(_WIN32|_WIN64|__MINGW|_MSC_VER|__linux__|__unix__)")
INCLUDE_DIRS = ["", "platform/drawing/rx", "platform/drawing/ge", "platform/drawing/db", "platform/drawing/dxf",
                "platform/host/include", "platform/host", "module"]


def room_of(path):
    """The most specific room that holds this path, or None."""
    text = path.as_posix()
    rooms = [room for room in FLOORS if text == room or text.startswith(room + "/")]
    return max(rooms, key=len, default=None)


def resolve(source, name):
    """The file inside the tree that this include means, or None."""
    for base in [source.parent] + [ROOT / d for d in INCLUDE_DIRS]:
        candidate = (base / name).resolve()
        if candidate.is_file() and ROOT in candidate.parents:
            return candidate.relative_to(ROOT)
    return None


def system_questions():
    """Lines that ask the preprocessor for the operating system."""
    for top in ("sys", "platform", "module", "app", "tests", "bench"):
        for source in sorted((ROOT / top).rglob("*")):
            if source.suffix not in (".h", ".cpp", ".inc"):
                continue
            for number, line in enumerate(source.read_text(encoding="utf-8").splitlines(), 1):
                if SYSTEM_QUESTION.match(line):
                    yield f"{source.relative_to(ROOT)}:{number}: asks for the operating system; see sys/"


def excepted(room, target):
    return any(room == who and target.as_posix().startswith(what) for who, what in EXCEPTIONS)


def main():
    broken = 0
    sources = [p for top in ("sys", "platform", "module", "app") for p in sorted((ROOT / top).rglob("*"))
               if p.suffix in (".h", ".cpp", ".inc")]
    for source in sources:
        room = room_of(source.relative_to(ROOT))
        for number, line in enumerate(source.read_text(encoding="utf-8").splitlines(), 1):
            match = re.match(r'\s*#\s*include\s+"([^"]+)"', line)
            target = resolve(source, match.group(1)) if match else None
            if not target or room is None:
                continue
            other = room_of(target)
            hidden = room.startswith("module") and target.name in INTERNAL
            if hidden or (other not in (room, None) and other not in FLOORS[room] and not excepted(room, target)):
                reason = "an internal header" if hidden else f"{room} may not include {other}"
                print(f"{source.relative_to(ROOT)}:{number}: {match.group(1)}: {reason}")
                broken += 1
    questions = list(system_questions())
    for question in questions:
        print(question)
    print(f"{len(sources)} files, {broken} broken includes, {len(questions)} questions for the system")
    return 1 if broken or questions else 0


if __name__ == "__main__":
    sys.exit(main())

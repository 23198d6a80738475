#!/usr/bin/python3
"""Checks that includes in src/ go down the house and never up, and that files form no circles.

The order of the folders stands in FLOORS, the highest first; a folder may include itself and those
below it. Forms (frm*) and qt/ lie above the whole core, and nothing in the core knows them. The
leaves may be included from anywhere.
"""
import pathlib
import re
import sys

FLOORS = ["automation", "shell", "report", "interferogram views", "document", "analysis",
          "geometry", "platform"]
LEVEL = {folder: level for level, floor in enumerate(FLOORS) for folder in floor.split()}
LEAVES = {"document/clsParser.h", "analysis/ModMathLib.h"}
INCLUDE = re.compile(r'^\s*#include\s+"([^"]+)"', re.MULTILINE)


def is_form(path):
    return path.startswith("ui_") or "/qt/" in path or path.rsplit("/", 1)[-1].startswith("frm")


def upward(path, included):
    """Why the file may not include the other; None if it may."""
    if is_form(path) or path == "main.cpp":
        return None
    if is_form(included):
        return "the core knows no form"
    if included in LEAVES:
        return None
    if LEVEL[included.split("/")[0]] < LEVEL[path.split("/")[0]]:
        return "includes go down"
    return None


def circle(graph, start):
    """The files of a circle of includes through start, or None."""
    trail, seen = [(start, [start])], set()
    while trail:
        file, path = trail.pop()
        for included in graph.get(file, ()):
            if included == start:
                return path + [start]
            if included not in seen:
                seen.add(included)
                trail.append((included, path + [included]))
    return None


def main():
    root = pathlib.Path(__file__).resolve().parent.parent / "src"
    graph = {}
    for file in sorted(root.rglob("*.h")) + sorted(root.rglob("*.cpp")):
        name = file.relative_to(root).as_posix()
        graph[name] = INCLUDE.findall(file.read_text(encoding="utf-8"))
    faults = [f"{file} includes {included}: {why}"
              for file, includes in graph.items() for included in includes
              if (why := upward(file, included))]
    for file in graph:
        if found := circle(graph, file):
            faults.append("circle: " + " -> ".join(found))
    print("\n".join(faults) if faults else f"{len(graph)} files, no include goes up")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

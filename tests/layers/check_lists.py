#!/usr/bin/env python3
"""check_lists.py ROOT [PATH...]: every test, benchmark and fuzzer is named in its CMake list.

A source that no list names is never built, and its tests never run. The PATHs, relative to ROOT,
are taken for sources that are there as well: with them the check itself is tested.
"""
import pathlib
import re
import sys

# The sources, and the file that has to name each of them on its own.
LISTS = [(f"tests/{layer}/test_*.cpp", "tests/CMakeLists.txt")
         for layer in ("storage", "formats", "library", "devindex", "windows", "app")]
LISTS += [("tests/cli/test_*.py", "tests/CMakeLists.txt"),
          ("benchmarks/bench_*.cpp", "benchmarks/CMakeLists.txt"),
          ("tests/fuzz/fuzz_*.cpp", "tests/fuzz/CMakeLists.txt")]


def main():
    root = pathlib.Path(sys.argv[1])
    planted = [pathlib.PurePath(path) for path in sys.argv[2:]]
    missing = []
    for pattern, list_file in LISTS:
        listed = re.sub(r"#.*", "", (root / list_file).read_text())
        sources = [path.relative_to(root) for path in root.glob(pattern)]
        if not sources:
            missing.append(f"{pattern}: there is no such file")
        sources += [path for path in planted if path.match(pattern)]
        for source in sorted(sources):
            if not re.search(rf"(?<![\w/.-]){re.escape(source.stem)}(?![\w.-])", listed):
                missing.append(f"{source} is in no list of {list_file}")
    print("\n".join(missing))
    sys.exit(1 if missing else 0)


main()

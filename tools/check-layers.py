#!/usr/bin/env python3
"""Checks that no file under src/ includes what its layer may not know.

A layer is one static library; which files belong to it stands in the CMakeLists.txt of its folder. docs/architecture.md
shows the floors. Run with --self-test, it shows that it finds each kind of violation.
"""
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

LOWEST = {"stemp_dao", "stemp_system"}
LOGIC = LOWEST | {"stemp_company"}
WINDOWS = LOGIC | {"stemp_startup", "stemp_forms", "stemp_texts", "stemp_texts_windows"}

# Which layers each layer may include, besides itself.
MAY_INCLUDE = {
    # floor 1
    "stemp_system": set(),
    "stemp_dao": set(),
    # floor 2, the logic of the subsystems
    "stemp_company": LOWEST,
    "stemp_board": LOGIC,
    "stemp_clock": LOGIC,
    "stemp_settings": LOGIC,
    "stemp_reports": LOGIC | {"stemp_settings"},
    "stemp_texts": LOGIC,
    # floor 3
    "stemp_startup": LOGIC | {"stemp_board", "stemp_clock", "stemp_settings", "stemp_texts"},
    # floor 4: forms know nothing of this program's data but how to read and write rows
    "stemp_forms": LOWEST,
    # floor 5
    "stemp_texts_windows": LOWEST | {"stemp_texts", "stemp_forms"},
    # floor 6: each subsystem's windows know its logic and the options, and no other subsystem's windows
    "stemp_clock_windows": WINDOWS | {"stemp_clock", "stemp_settings"},
    "stemp_board_windows": WINDOWS | {"stemp_board", "stemp_settings"},
    "stemp_reports_windows": WINDOWS | {"stemp_reports", "stemp_settings"},
    "stemp_settings_windows": WINDOWS | {"stemp_settings"},
}
# Floor 7 brings all together, and nothing includes it.
TOP = {"stemp_main", "stemp"}

# What does not link Qt Widgets and Gui, and must not reach for their headers.
WITHOUT_WINDOWS = {"stemp_system", "stemp_dao", "stemp_company", "stemp_board", "stemp_clock", "stemp_settings",
                   "stemp_reports", "stemp_texts", "stemp_startup"}
WINDOW_MODULES = ("QtWidgets", "QtGui", "QtSvg", "QtSvgWidgets", "QtPrintSupport")

# Headers that one layer keeps to a few files of another.
ONLY_FROM = {"settings/AdminForm.h": re.compile(r"(startup/Main|settings/)")}

TARGET = re.compile(r"\b(?:stemp_library|(?:qt_)?add_executable)\s*\(\s*(\w+)([^)]*)\)")
INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)


def layers_of_files(src):
    """The layer of every file that a CMakeLists.txt names, and what each layer links."""
    layer, links = {}, {}
    for lists in src.rglob("CMakeLists.txt"):
        text = re.sub(r"#.*", "", lists.read_text(encoding="utf-8"))
        for name, arguments in TARGET.findall(text):
            links[name] = set(re.findall(r"\bstemp_\w+", arguments))
            arguments = re.sub(r"\$\{(?:PROJECT|CMAKE)_SOURCE_DIR\}/src", os.path.relpath(src, lists.parent), arguments)
            for source in re.findall(r"[\w/.-]+\.(?:cpp|h)\b", arguments):
                layer[os.path.relpath(lists.parent / source, src).replace(os.sep, "/")] = name
    return layer, links


def allowed(layer, other):
    if layer == other:
        return True
    if other in TOP:
        return layer in TOP
    return layer in TOP or other in MAY_INCLUDE[layer]


def check(src, window_headers):
    """The violations, one line each."""
    found = []
    layer, links = layers_of_files(src)
    for name in sorted(set(layer.values()) - set(MAY_INCLUDE) - TOP):
        found.append(f"{name}: a layer that tools/check-layers.py does not know")
    if found:
        return found

    for name, linked in sorted(links.items()):
        for other in sorted(linked & set(MAY_INCLUDE)):
            if not allowed(name, other):
                found.append(f"{name}: links {other}")

    for path in sorted(p for p in src.rglob("*") if p.suffix in (".cpp", ".h")):
        file = path.relative_to(src).as_posix()
        if file not in layer:
            found.append(f"{file}: belongs to no library; name it in its folder's CMakeLists.txt")
            continue
        for own, system in INCLUDE.findall(path.read_text(encoding="utf-8")):
            if own in layer and not allowed(layer[file], layer[own]):
                found.append(f"{file}: {layer[file]} includes {own} of {layer[own]}")
            if own in ONLY_FROM and not ONLY_FROM[own].match(file):
                found.append(f"{file}: includes {own}, which is not for it")
            if own.startswith("ui_") and layer[file] in WITHOUT_WINDOWS:
                found.append(f"{file}: {layer[file]} includes a window's design, {own}")
            if layer[file] in WITHOUT_WINDOWS and (
                    system in window_headers or system.startswith(tuple(m + "/" for m in WINDOW_MODULES))):
                found.append(f"{file}: {layer[file]} includes <{system}> of a window module")
    return found


def window_headers_of_qt():
    folder = Path(subprocess.run(["qmake6", "-query", "QT_INSTALL_HEADERS"], check=True, capture_output=True,
                                 text=True).stdout.strip())
    headers = {header.name for module in WINDOW_MODULES for header in (folder / module).glob("*")}
    if "QWidget" not in headers:
        sys.exit(f"No Qt headers in {folder}")
    return headers


def self_test():
    good = {
        "platform/dao/CMakeLists.txt": "stemp_library(stemp_dao SOURCES Database.h LINK Qt6::Sql)",
        "platform/dao/Database.h": "#include <QString>\n",
        "clock/CMakeLists.txt": "stemp_library(stemp_clock SOURCES Clock.cpp Clock.h LINK stemp_dao)\n"
                                "stemp_library(stemp_clock_windows SOURCES StempWin.cpp StempWin.h LINK stemp_clock)\n",
        "clock/Clock.h": '#include "platform/dao/Database.h"\n',
        "clock/Clock.cpp": '#include "clock/Clock.h"\n',
        "clock/StempWin.h": '#include "clock/Clock.h"\n#include <QWidget>\n',
        "clock/StempWin.cpp": '#include "clock/StempWin.h"\n#include "ui_StempWin.h"\n',
        "settings/CMakeLists.txt": "stemp_library(stemp_settings_windows SOURCES AdminForm.h)",
        "settings/AdminForm.h": "#include <QWidget>\n",
        "startup/CMakeLists.txt": "stemp_library(stemp_main SOURCES Main.cpp Main.h Other.cpp)",
        "startup/Main.h": "",
        "startup/Main.cpp": '#include "settings/AdminForm.h"\n#include "clock/StempWin.h"\n',
        "startup/Other.cpp": "",
    }
    bad = [  # a file, its text, what must be said of it
        ("platform/dao/Database.h", '#include "clock/Clock.h"\n', "stemp_dao includes clock/Clock.h"),
        ("clock/Clock.cpp", '#include "clock/StempWin.h"\n', "stemp_clock includes clock/StempWin.h"),
        ("clock/Clock.cpp", "#include <QWidget>\n", "includes <QWidget>"),
        ("clock/Clock.cpp", "#include <QtGui/QIcon>\n", "includes <QtGui/QIcon>"),
        ("clock/Clock.cpp", '#include "ui_StempWin.h"\n', "a window's design"),
        ("clock/StempWin.cpp", '#include "settings/AdminForm.h"\n', "includes settings/AdminForm.h"),
        ("clock/StempWin.cpp", '#  include   "startup/Main.h"\n', "includes startup/Main.h"),
        ("startup/Other.cpp", '#include "settings/AdminForm.h"\n', "which is not for it"),
        ("clock/Stray.cpp", "", "belongs to no library"),
        ("settings/CMakeLists.txt", "stemp_library(stemp_settings_windows SOURCES AdminForm.h LINK stemp_clock_windows)",
         "stemp_settings_windows: links stemp_clock_windows"),
        ("settings/CMakeLists.txt", "stemp_library(stemp_new SOURCES AdminForm.h)", "stemp_new: a layer"),
    ]
    failures = 0
    for change in [None] + bad:
        files = dict(good)
        if change:
            files[change[0]] = change[1]
        with tempfile.TemporaryDirectory() as folder:
            for name, text in files.items():
                target = Path(folder, name)
                target.parent.mkdir(parents=True, exist_ok=True)
                target.write_text(text, encoding="utf-8")
            found = check(Path(folder), {"QWidget", "QIcon"})
        right = any(change[2] in line for line in found) if change else not found
        if not right:
            failures += 1
            print(f"self-test: {change or 'the clean tree'}: found {found}")
    print(f"self-test: {1 + len(bad) - failures} of {1 + len(bad)} cases right")
    return failures


def main():
    if sys.argv[1:] == ["--self-test"]:
        sys.exit(1 if self_test() else 0)
    src = Path(__file__).resolve().parent.parent / "src"
    found = check(src, window_headers_of_qt())
    print("\n".join(found) if found else "All includes keep to their layers.")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()

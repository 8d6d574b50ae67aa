#!/usr/bin/env python3
"""Fails when an include contradicts the order of the rooms (docs/architecture.md).

    tools/check_includes.py               checks the repository
    tools/check_includes.py --self-test   checks that bad examples are reported

Also: cores and the command-line tool use no widgets, OpenGL or network; a project include has its
path from the root and exists; files are written only through base/SafeFile.h.
"""

import posixpath
import re
import subprocess
import sys
import tempfile
from pathlib import Path

# What the core of a room may use besides itself. A face, in the room's folder ui/, may use its own
# core, what that core may use, the libraries, and ui.
CORE_USES = {
    "base": set(),
    "profile": {"base"},
    "record": {"base", "profile", "libs/tusk"},
    "analysis": {"base", "profile", "record"},
    "graph": {"base", "profile", "record", "analysis", "libs/tusk"},
    "map": {"base", "profile", "record", "analysis", "libs/tusk", "libs/tessamap"},
    "instruments": {"base", "profile", "record", "analysis", "libs/zinc"},
    "export": {"base", "profile", "record", "analysis", "libs/tusk"},
    "report": {"base", "profile", "record", "analysis", "graph"},
    "library": {"base", "profile", "record", "analysis"},
}
LIBS = {"libs/tusk", "libs/tessamap", "libs/zinc"}
FACES = {room + "/ui" for room in CORE_USES if room != "base"}
# Shared by the faces: message boxes, notes for empty pages, the interface of a page, progress.
SHARED_FACES = {"ui"}
# The top. Settings, paths, options and the project file have no windows, as kolt-cli uses them.
ROOF = {"app", "app/settings", "app/project"}
OUTER = {"tools", "tests", "benchmarks", "fuzz", "cmake", "packaging"}
ALL = SHARED_FACES | set(CORE_USES) | FACES | LIBS | ROOF | OUTER | {"cli", "resources"}
WINDOWLESS = set(CORE_USES) | {"app/settings", "app/project", "cli"}

# Folders of each library, lowest first: a folder may use those before it.
LIBRARY_FOLDERS = {
    "libs/tusk": ["math", "misc", "gl"],
    "libs/tessamap": ["globe", "basemap", "terrain", "tiles", "drawing"],
    "libs/zinc": ["expression", "view", "layout", "drawing"],
}


def allowed_uses():
    uses = {"ui": {"base", "libs/tusk"}, "resources": set()}
    uses.update(CORE_USES)
    for face in FACES:
        core = face.removesuffix("/ui")
        uses[face] = {core} | CORE_USES[core] | LIBS | SHARED_FACES
    for lib in LIBS:
        uses[lib] = {"libs/tusk"}
    uses["app/settings"] = set(CORE_USES)
    uses["app/project"] = {"base", "profile"}
    uses["app"] = ALL - OUTER - {"cli"}
    uses["cli"] = set(CORE_USES) | {"app/project", "app/settings", "resources"}
    uses["tools"] = ALL - {"tests"}
    for layer in ("tests", "benchmarks", "fuzz", "cmake", "packaging"):
        uses[layer] = ALL
    return {layer: targets | {layer} for layer, targets in uses.items()}


USES = allowed_uses()

SOURCE_SUFFIXES = {".h", ".hpp", ".inl", ".cpp", ".cc", ".cxx"}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')

WINDOW_MODULES = re.compile(r"^(QtWidgets|QtOpenGL|QtOpenGLWidgets|QtNetwork|GL|GLES\d?|EGL)(/|$)")
# Classes of Qt Widgets, OpenGL and Network, by name; those of Core and Gui are allowed.
WINDOW_CLASSES = re.compile(
    r"^Q("
    r"Widget|Application|MainWindow|Frame|Label|Splitter\w*|SplashScreen|StatusBar|ToolBar|ToolTip"
    r"|Menu|MenuBar|Tab\w+|Tree\w+|Table\w+|List(View|Widget\w*)|HeaderView|ColumnView|AbstractItemView"
    r"|AbstractItemDelegate|StyledItemDelegate|ItemDelegate|Abstract(Button|Slider|SpinBox|ScrollArea)"
    r"|\w*Button\w*|\w*Dialog|\w*Box|\w*ScrollArea|ScrollBar|\w*Slider|Dial|LCDNumber|ProgressBar"
    r"|LineEdit|TextEdit|PlainTextEdit|TextBrowser|\w*TimeEdit|DateEdit|KeySequenceEdit|CalendarWidget"
    r"|(Box|HBox|VBox|Grid|Form|Stacked)Layout|Layout|LayoutItem|SpacerItem|Stacked\w+|Size(Grip|Policy)"
    r"|Style|CommonStyle|ProxyStyle|StyleFactory|StyleOption\w*|StylePainter|Graphics\w+|Mdi\w+"
    r"|DockWidget|RubberBand|SystemTrayIcon|Wizard\w*|Completer|WhatsThis|WidgetAction|Gesture\w*"
    r"|OpenGL\w*|Network\w*|Tcp\w+|Udp\w+|Ssl\w*|Local(Socket|Server)|AbstractSocket|Host(Address|Info)"
    r"|Dns\w+|Http\w+"
    r")$"
)

# Files are written in one place, which replaces them atomically and protects the recordings, and
# named in one dialog, which adds the suffix before it asks whether to replace a file.
WRITING = re.compile(
    r"<(QSaveFile|QTemporaryFile|QPdfWriter|fstream)>|getSaveFileName|AcceptSave|std::ofstream|\bfopen\("
    r"|QFile::(copy|rename|link)\(|setOutputFileName"
    r"|QFile\w*\s+(\w+)\([^)]*\).*WriteOnly|\b(file|m_file)(\.|->)open\([^)]*(WriteOnly|ReadWrite|Append)")
WRITERS = {
    "base/SafeFile.cpp", "ui/SaveDialog.cpp",
    "base/ProvenCopy.cpp",  # new files only, and only where SafeFile may write
    "app/dialogs/SheetPrinter.cpp",  # its PDF is written to memory
    "report/ReportPrinter.cpp",  # likewise
    "libs/tessamap/tiles/TileDiskCache.cpp",  # only in its own folder
}


def layer_of(path):
    """The layer of a path; None outside the known rooms."""
    parts = path.split("/")
    if len(parts) < 2:
        return None
    nested = "/".join(parts[:2])
    if len(parts) > 2 and nested in ALL:
        return nested
    return parts[0] if parts[0] in ALL else None


def library_folder(path):
    """(library, folder) of a source of a library; None elsewhere."""
    parts = path.split("/")
    lib = "/".join(parts[:2])
    return (lib, parts[2]) if lib in LIBS and len(parts) > 3 else None


class Checker:
    def __init__(self, root):
        self.root = Path(root)
        self.includes = 0
        self.violations = []

    def complain(self, path, line, text):
        self.violations.append(f"{path}:{line}: {text}")

    def check_file(self, path):
        data = (self.root / path).read_bytes()
        if b"\0" in data:
            return  # not a text file
        is_source = posixpath.splitext(path)[1] in SOURCE_SUFFIXES
        layer = layer_of(path) if is_source else None
        if is_source and layer is None:
            self.complain(path, 1, "lies in no known room")
        for number, line in enumerate(data.decode("utf-8", "replace").splitlines(), 1):
            include = INCLUDE.match(line) if layer else None
            if layer and layer not in OUTER and path not in WRITERS and WRITING.search(line):
                self.complain(path, number, "write with base/SafeFile.h, ask with ui/SaveDialog.h")
            if include:
                self.includes += 1
                self.check_include(path, number, layer, include[1] == '"', include[2])

    def check_include(self, path, number, layer, is_quoted, name):
        if layer in WINDOWLESS and (WINDOW_MODULES.match(name) or WINDOW_CLASSES.match(name)):
            self.complain(path, number, f"{layer} has no windows, OpenGL or network: <{name}>")
            return
        if not is_quoted:
            if layer_of(name) and self.exists(name):
                self.complain(path, number, f"project includes are quoted: <{name}>")
            return
        if name.endswith(".moc") and "/" not in name:
            return  # generated by moc for this file
        if posixpath.normpath(name) != name or not self.exists(name):
            beside = posixpath.normpath(posixpath.join(posixpath.dirname(path), name))
            if self.exists(beside):
                self.complain(path, number, f'write the path from the root: "{beside}"')
            else:
                self.complain(path, number, f'there is no "{name}"')
            return
        target = layer_of(name)
        if target is None:
            self.complain(path, number, f'"{name}" lies in no known room')
        elif target not in USES[layer]:
            self.complain(path, number, f'{layer} must not use {target}: "{name}"')
        else:
            self.check_library_folders(path, number, name)

    def check_library_folders(self, path, number, name):
        source, target = library_folder(path), library_folder(name)
        if source is None or target is None or source[0] != target[0]:
            return
        order = LIBRARY_FOLDERS[source[0]]
        for folder in (source[1], target[1]):
            if folder not in order:
                self.complain(path, number, f"{source[0]} has no folder {folder}")
                return
        if order.index(target[1]) > order.index(source[1]):
            self.complain(path, number, f'{source[1]} must not use {target[1]}: "{name}"')

    def exists(self, name):
        # A header that CMake configures exists as its template.
        return (self.root / name).is_file() or (self.root / (name + ".in")).is_file()


def repository_files(root):
    """Tracked files, and new files that are not ignored."""
    listing = subprocess.run(
        ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        cwd=root, check=True, capture_output=True,
    ).stdout.decode("utf-8", "surrogateescape")
    return sorted({name for name in listing.split("\0") if name and (Path(root) / name).is_file()})


def check(root, files):
    checker = Checker(root)
    for path in files:
        checker.check_file(path)
    return checker


# path, one of its lines, whether it must be accepted
EXAMPLES = [
    ("base/Bad.cpp", '#include "profile/Good.h"', False),
    ("profile/Bad1.cpp", '#include "record/Good.h"', False),
    ("profile/Bad2.cpp", '#include "app/settings/Good.h"', False),
    ("record/Bad1.cpp", '#include "analysis/Good.h"', False),
    ("record/Bad2.cpp", "#include <QWidget>", False),
    ("record/Bad3.cpp", "#include <QtWidgets/QApplication>", False),
    ("record/Bad4.cpp", "#include <QMessageBox>", False),
    ("record/Bad5.cpp", "#include <QOpenGLContext>", False),
    ("record/Bad6.cpp", "#include <QNetworkReply>", False),
    ("record/Bad7.cpp", '#include "Good.h"', False),
    ("record/Bad8.cpp", '#include "../profile/Good.h"', False),
    ("record/Bad9.cpp", '#include "profile/Missing.h"', False),
    ("record/Bad10.cpp", "#include <profile/Good.h>", False),
    ("record/Bad11.cpp", '  #  include "libs/zinc/layout/Good.h"', False),
    ("record/Bad12.cpp", '#include "ui/Good.h"', False),
    ("analysis/Bad.cpp", '#include "graph/Good.h"', False),
    ("analysis/ui/Bad1.cpp", '#include "graph/ui/Good.h"', False),
    ("analysis/ui/Bad2.cpp", '#include "record/ui/Good.h"', False),
    ("analysis/ui/Bad3.cpp", '#include "app/settings/Good.h"', False),
    ("graph/Bad.cpp", '#include "graph/ui/Good.h"', False),
    ("graph/ui/Bad1.cpp", '#include "map/ui/Good.h"', False),
    ("graph/ui/Bad2.cpp", '#include "map/Good.h"', False),
    ("graph/ui/Bad3.cpp", '#include "app/Good.h"', False),
    ("export/ui/Bad.cpp", '#include "analysis/ui/Good.h"', False),
    ("ui/Bad.cpp", '#include "record/Good.h"', False),
    ("app/settings/Bad1.cpp", '#include "app/project/Good.h"', False),
    ("app/settings/Bad2.cpp", '#include "graph/ui/Good.h"', False),
    ("app/project/Bad.cpp", '#include "record/Good.h"', False),
    ("app/Bad.cpp", '#include "tools/Good.h"', False),
    ("libs/zinc/layout/Bad1.cpp", '#include "profile/Good.h"', False),
    ("libs/zinc/layout/Bad2.cpp", '#include "libs/zinc/drawing/Good.h"', False),
    ("libs/zinc/attic/Bad.cpp", '#include "libs/zinc/layout/Good.h"', False),
    ("libs/tusk/math/Bad.cpp", '#include "libs/zinc/layout/Good.h"', False),
    ("cli/Bad1.cpp", '#include "record/ui/Good.h"', False),
    ("cli/Bad2.cpp", "#include <QApplication>", False),
    ("cli/Bad3.cpp", '#include "app/Good.h"', False),
    ("tools/Bad.cpp", '#include "tests/Good.h"', False),
    ("attic/Bad.cpp", "int x;", False),
    ("export/Bad1.cpp", "#include <QSaveFile>", False),
    ("export/Bad2.cpp", "if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))", False),
    ("export/Bad3.cpp", "const bool done = QFile::copy(from, to);", False),
    ("app/Bad4.cpp", "path = QFileDialog::getSaveFileName(this);", False),
    ("base/SafeFile.cpp", "#include <QSaveFile>", True),
    ("export/Good2.cpp", "buffer.open(QIODevice::WriteOnly);", True),
    ("export/Good3.cpp", "if (!file.open(QIODevice::ReadOnly))", True),
    ("base/Good.h", "#include <vector>", True),
    ("profile/Good.h", '#include "base/Good.h"', True),
    ("record/Good.h", '#include "libs/tusk/math/Good.h"', True),
    ("record/ui/Good.h", '#include "ui/Good.h"', True),
    ("analysis/Good.h", '#include "record/Good.h"', True),
    ("analysis/ui/Good.h", '#include "libs/tusk/gl/Good.h"', True),
    ("graph/Good.h", "#include <QColor>", True),
    ("graph/ui/Good.h", "#include <QOpenGLWidget>", True),
    ("map/Good.h", "#include <QTextLayout>", True),
    ("map/ui/Good.h", '#include "libs/tessamap/drawing/Good.h"', True),
    ("ui/Good.h", "#include <QMessageBox>", True),
    ("app/Good.h", '#include "graph/ui/Good.h"', True),
    ("app/settings/Good.h", '#include "graph/Good.h"', True),
    ("app/project/Good.h", '#include "profile/Good.h"', True),
    ("libs/tusk/math/Good.h", "#include <cmath>", True),
    ("libs/tusk/gl/Good.h", '#include "libs/tusk/math/Good.h"', True),
    ("libs/tessamap/drawing/Good.h", '#include "libs/tusk/gl/Good.h"', True),
    ("libs/zinc/layout/Good.h", '#include "libs/zinc/view/Good.h"', True),
    ("libs/zinc/view/Good.h", '#include "libs/zinc/expression/Good.h"', True),
    ("libs/zinc/expression/Good.h", '#include "libs/tusk/math/Good.h"', True),
    ("libs/zinc/drawing/Good.h", '#include "libs/zinc/layout/Good.h"', True),
    ("cli/main.cpp", '#include "app/settings/Good.h"', True),
    ("tools/Good.h", '#include "record/Good.h"', True),
    ("tests/Good.h", '#include "Good.moc"', True),
]


def self_test():
    with tempfile.TemporaryDirectory() as root:
        for path, line, _ in EXAMPLES:
            file = Path(root) / path
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text("\n" + line + "\n", encoding="utf-8")
        failures = 0
        for path, line, is_good in EXAMPLES:
            violations = check(root, [path]).violations
            if bool(violations) == is_good:
                failures += 1
                print(f"self-test: {path}: {line} was {'refused' if is_good else 'accepted'}",
                      *violations, sep="\n    ")
    print(f"self-test: {len(EXAMPLES)} examples, {failures} judged wrongly")
    return failures == 0


def main():
    if sys.argv[1:] == ["--self-test"]:
        return 0 if self_test() else 1
    if sys.argv[1:]:
        print(__doc__, file=sys.stderr)
        return 2
    root = Path(__file__).resolve().parent.parent
    checker = check(root, repository_files(root))
    for violation in checker.violations:
        print(violation)
    print(f"{checker.includes} includes checked")
    if checker.includes == 0:
        print("no source file was found", file=sys.stderr)
        return 1
    return 1 if checker.violations else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Holds the checkout against the rules of the house: who may include whom, sizes, words, paths,
READMEs, packages.

Usage: check_house.py [FOLDER]     prints one line per offence and exits with 1 when there is any.
"""

import os
import re
import subprocess
import sys

# Who may include whom: each folder of src and what stands below it.
BELOW = {
    "values": set(),
    "store": {"values"},
    "forms": {"values"},
    "platform": {"values"},
    "frame": {"values", "store", "forms", "platform"},
}
ROOMS = {"tours", "billing", "sync", "boards", "fleet", "documents", "reports", "master"}
for room in ROOMS:
    BELOW[room] = BELOW["frame"] | {"frame"}
BELOW["app"] = BELOW["frame"] | {"frame"} | ROOMS
SHELLS = {"desktop", "automation", "tools"}
# Whoever tests or measures may look at everything.
WITNESSES = {"tests", "bench"}

# A library's headers, and the one folder where one implementation file may include them.
LIBRARIES = {
    r"sqlite3\.h": "store",
    r"libpq-fe\.h|libpq/.*": "store",
    r"sql(ext|types|ucode)?\.h": "store",
    r"unicode/.*": "store",
    r"curl/.*": "platform",
}
QT = re.compile(r"Q[A-Z]\w*|Qt\w+/.*|q[a-z]+\.h")
JSON = re.compile(r"nlohmann/.*")
STANDARD = re.compile(r"[a-z_]+")

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
MACRO = re.compile(r"^\s*#\s*define\b")
SIZE_CEILING = 600
SIZED = {"src", "desktop", "automation", "tools"}

# Put together from pieces, so that this file does not trip over itself.
PART = "pa" + "rt"
WORDS = re.compile(
    "|".join(
        [
            r"\bsp" + r"ec\.md\b",
            r"\bthe sp" + r"ec\b",
            r"\bthe specifi" + r"cation\b",
            r"\b" + PART + r"s? [0-9]+\.[0-9]+",
            r"\biss" + r"ue #?[0-9]+",
            r"\bC" + r"EO\b",
            r"\bDEVELO" + r"PERS\.md\b",
        ]
    ),
    re.IGNORECASE,
)
UNFINISHED = re.compile(r"\b(TO" + r"DO|FIX" + r"ME|HA" + r"CK)\b")
MACHINE_PATH = re.compile(r"(?<![\w.\-$}])/(?:wo" + r"rk|ho" + r"me|ro" + r"ot|Us" + r"ers)/[\w.]")


class House:
    def __init__(self, top):
        self.top = top
        self.offences = []
        self.library_users = {}

    def tell(self, place, what):
        self.offences.append(f"{place}: {what}")

    def files(self):
        """The files of the checkout: git's own list, or all that lie there when it is no git checkout."""
        git = ["git", "-c", "safe.directory=*", "-C", self.top, "ls-files", "-z"]
        listed = subprocess.run(git, capture_output=True, check=False) if os.path.exists(f"{self.top}/.git") else None
        if listed is not None and listed.returncode == 0:
            names = listed.stdout.decode().split("\0")
        else:
            names = []
            for folder, folders, found in os.walk(self.top):
                folders[:] = [name for name in folders if name not in ("build", "var", ".git")]
                names += [os.path.relpath(os.path.join(folder, name), self.top) for name in found]
        return sorted(name for name in names if name and os.path.isfile(os.path.join(self.top, name)))

    def check(self):
        names = self.files()
        for name in names:
            if name.endswith(".svg"):
                continue
            with open(os.path.join(self.top, name), "rb") as file:
                content = file.read()
            if b"\0" in content:
                continue
            lines = content.decode("utf-8", "replace").splitlines()
            self.check_words(name, lines)
            if name.endswith((".cpp", ".h")):
                self.check_source(name, lines)
        self.check_libraries()
        self.check_readmes(names)
        self.check_packages(names)
        return self.offences

    def check_words(self, name, lines):
        for number, line in enumerate(lines, 1):
            place = f"{name}:{number}"
            if found := WORDS.search(line):
                self.tell(place, f'"{found.group()}" says where a rule was told; say the rule itself')
            if found := MACHINE_PATH.search(line):
                self.tell(place, f'"{found.group()}..." is a path of one machine')
            if found := UNFINISHED.search(line):
                self.tell(place, f'"{found.group()}" marks unfinished work')

    def check_source(self, name, lines):
        top = name.split("/")[0]
        if top in SIZED and len(lines) > SIZE_CEILING:
            self.tell(name, f"{len(lines)} lines; the ceiling is {SIZE_CEILING}")
        for number, line in enumerate(lines, 1):
            if found := INCLUDE.match(line):
                self.check_include(name, f"{name}:{number}", found.group(1), found.group(2))
            if top in SIZED and MACRO.match(line):
                self.tell(f"{name}:{number}", "a macro; the house uses none")

    def check_include(self, name, place, bracket, header):
        pieces = name.split("/")
        top, folder = pieces[0], pieces[1] if pieces[0] == "src" and len(pieces) > 2 else None
        if bracket == '"':
            self.check_own_header(top, folder, place, header)
        else:
            self.check_library_header(name, top, folder, place, header)

    def check_own_header(self, top, folder, place, header):
        first = header.split("/")[0]
        in_src = os.path.isfile(os.path.join(self.top, "src", header))
        in_top = os.path.isfile(os.path.join(self.top, header))
        if top in WITNESSES:
            if not (in_src or in_top or os.path.isfile(os.path.join(self.top, "tests", header))):
                self.tell(place, f'"{header}" is not spelled from the root')
            return
        if "/" not in header or not (in_src or in_top):
            self.tell(place, f'"{header}" is not spelled from the root')
        elif top in SHELLS:
            if first in (SHELLS | WITNESSES) - {top}:
                self.tell(place, f"{top} may not include {first}")
        elif folder not in BELOW:
            self.tell(place, f"src/{folder} has no place in the table of who may include whom")
        elif first in ROOMS and folder in ROOMS and first != folder:
            if not re.fullmatch(r"frm\w+(\.\w+)*\.h", header.split("/")[-1]):
                self.tell(place, f'{folder} may include the screens of {first} alone, and "{header}" is none')
        elif first != folder and first not in BELOW[folder]:
            self.tell(place, f"{folder} may not include {first}")

    def check_library_header(self, name, top, folder, place, header):
        if top in WITNESSES:
            return
        if QT.fullmatch(header):
            if top != "desktop":
                self.tell(place, f"<{header}> belongs to the desktop alone")
            return
        if JSON.fullmatch(header) and top == "src":
            self.tell(place, f"<{header}> has no place under src")
        for pattern, owner in LIBRARIES.items():
            if re.fullmatch(pattern, header):
                if folder != owner:
                    self.tell(place, f"<{header}> belongs to src/{owner} alone")
                else:
                    self.library_users.setdefault(pattern, {}).setdefault(name, header)
        if folder == "values" and not STANDARD.fullmatch(header):
            self.tell(place, f"values stands on the standard library alone, and <{header}> is not of it")

    def check_libraries(self):
        for users in self.library_users.values():
            if len(users) > 1:
                for name, header in sorted(users.items()):
                    self.tell(name, f"<{header}> may stand in one implementation file; it stands in {len(users)}")
            for name, header in users.items():
                if name.endswith(".h"):
                    self.tell(name, f"<{header}> may stand in an implementation file, and this is a header")

    def check_readmes(self, names):
        folders = {"/".join(name.split("/")[:2]) for name in names if re.fullmatch(r"src/\w+/.*\.(cpp|h)", name)}
        folders |= {name.split("/")[0] for name in names if name.split("/")[0] in SHELLS | WITNESSES}
        for folder in sorted(folders):
            sources = any(name.startswith(folder + "/") and name.endswith((".cpp", ".h")) for name in names)
            if sources and f"{folder}/README.md" not in names:
                self.tell(folder, "has no README.md")

    def check_packages(self, names):
        """Each Debian package that the house stands on has its reason in the README."""
        listing, readme = "scripts/packages.sh", "README.md"
        if listing not in names:
            return
        told = ""
        if readme in names:
            with open(os.path.join(self.top, readme), encoding="utf-8") as file:
                told = file.read()
        with open(os.path.join(self.top, listing), encoding="utf-8") as file:
            for number, line in enumerate(file, 1):
                found = re.match(r"\s+([a-z0-9][a-z0-9+.-]+)(\s+#\s+\S)?", line)
                if found and not found.group(2):
                    self.tell(f"{listing}:{number}", f"{found.group(1)} has no reason beside it")
                if found and f"`{found.group(1)}`" not in told:
                    self.tell(readme, f"does not tell why {found.group(1)} is needed")


def main():
    top = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")
    offences = House(os.path.abspath(top)).check()
    for offence in offences:
        print(offence)
    print(f"{len(offences)} offences against the rules of the house." if offences else "The house is in order.")
    return 1 if offences else 0


if __name__ == "__main__":
    sys.exit(main())

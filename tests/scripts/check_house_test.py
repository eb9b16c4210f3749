#!/usr/bin/env python3
"""Each rule of the house, broken in a small house of its own: the check must name the file and the rule."""

import os
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "scripts"))

from check_house import House  # noqa: E402


class HouseTest(unittest.TestCase):
    def offences(self, files):
        with tempfile.TemporaryDirectory() as top:
            for name, content in files.items():
                path = os.path.join(top, name)
                os.makedirs(os.path.dirname(path), exist_ok=True)
                with open(path, "w", encoding="utf-8") as file:
                    file.write(content)
            return House(top).check()

    def in_folder(self, name, content, *others):
        """A file among READMEs and the headers that it includes."""
        files = {other: "" for other in others}
        files[name] = content
        for path in list(files):
            pieces = path.split("/")
            files["/".join(pieces[: 2 if pieces[0] == "src" else 1]) + "/README.md"] = "A room."
        return self.offences(files)

    def assert_one(self, offences, *pieces):
        self.assertEqual(len(offences), 1, offences)
        for piece in pieces:
            self.assertIn(piece, offences[0])

    def test_a_house_in_order_has_no_offence(self):
        source = '#include "values/Text.h"\n#include "store/Connection.h"\n#include <sqlite3.h>\n#include <string>\n'
        self.assertEqual(self.in_folder("src/store/Sqlite.cpp", source, "src/values/Text.h", "src/store/Connection.h"), [])

    def test_a_folder_may_not_include_what_stands_above_it(self):
        offences = self.in_folder("src/store/A.cpp", '#include "frame/App.h"\n', "src/frame/App.h")
        self.assert_one(offences, "src/store/A.cpp:1", "store may not include frame")

    def test_folders_of_one_level_do_not_see_each_other(self):
        offences = self.in_folder("src/forms/A.cpp", '#include "store/B.h"\n', "src/store/B.h")
        self.assert_one(offences, "forms may not include store")

    def test_a_room_sees_the_screens_of_a_peer(self):
        self.assertEqual(self.in_folder("src/billing/A.cpp", '#include "tours/frmX.h"\n', "src/tours/frmX.h"), [])

    def test_a_room_does_not_see_the_rules_of_a_peer(self):
        offences = self.in_folder("src/billing/A.cpp", '#include "tours/Pricing.h"\n', "src/tours/Pricing.h")
        self.assert_one(offences, "screens of tours alone")

    def test_nobody_in_src_includes_a_shell(self):
        offences = self.in_folder("src/app/A.cpp", '#include "desktop/Host.h"\n', "desktop/Host.h")
        self.assert_one(offences, "app may not include desktop")

    def test_shells_do_not_include_each_other(self):
        offences = self.in_folder("automation/A.cpp", '#include "desktop/Host.h"\n', "desktop/Host.h")
        self.assert_one(offences, "automation may not include desktop")

    def test_a_header_beside_is_spelled_from_the_root_too(self):
        offences = self.in_folder("src/store/A.cpp", '#include "B.h"\n', "src/store/B.h")
        self.assert_one(offences, '"B.h" is not spelled from the root')

    def test_windows_belong_to_the_desktop(self):
        self.assert_one(self.in_folder("src/forms/A.cpp", "#include <QWidget>\n"), "desktop alone")
        self.assert_one(self.in_folder("automation/A.cpp", "#include <QtCore/QString>\n"), "desktop alone")
        self.assertEqual(self.in_folder("desktop/A.cpp", "#include <QWidget>\n"), [])

    def test_a_library_stands_in_its_folder_alone(self):
        self.assert_one(self.in_folder("src/frame/A.cpp", "#include <curl/curl.h>\n"), "src/platform alone")
        self.assert_one(self.in_folder("tools/A.cpp", "#include <sqlite3.h>\n"), "src/store alone")
        self.assertEqual(self.in_folder("bench/A.cpp", "#include <sqlite3.h>\n"), [])

    def test_a_library_stands_in_one_implementation_file(self):
        files = {"src/store/README.md": "", "src/store/A.cpp": "#include <sqlite3.h>", "src/store/B.cpp": "#include <sqlite3.h>"}
        self.assertEqual(len(self.offences(files)), 2)
        self.assert_one(self.in_folder("src/store/A.h", "#include <sqlite3.h>\n"), "this is a header")

    def test_values_stands_on_the_standard_library(self):
        self.assert_one(self.in_folder("src/values/A.cpp", "#include <unistd.h>\n"), "standard library alone")

    def test_a_source_of_601_lines_is_too_long(self):
        self.assertEqual(self.in_folder("src/store/A.cpp", "\n" * 600), [])
        self.assert_one(self.in_folder("src/store/A.cpp", "\n" * 601), "601 lines")
        self.assertEqual(self.in_folder("tests/A.cpp", "\n" * 601), [])

    def test_macros_are_told(self):
        self.assert_one(self.in_folder("src/store/A.h", "#define X 1\n"), "a macro")

    def test_words_that_say_where_a_rule_was_told(self):
        for text in ("as Pa" + "rt 3.2 says", "see iss" + "ue #12", "read the sp" + "ec", "the C" + "EO wants"):
            with self.subTest(text):
                self.assert_one(self.offences({"notes.md": text}), "notes.md:1")
        self.assertEqual(self.offences({"notes.md": "the specific part 3 of an issue, specially"}), [])

    def test_paths_of_one_machine(self):
        self.assert_one(self.offences({"a.sh": "cd /ho" + "me/me/x"}), "path of one machine")
        self.assertEqual(self.offences({"a.sh": "cd src/wo" + "rk/x; echo https://host/wo" + "rk/1"}), [])

    def test_unfinished_work(self):
        self.assert_one(self.offences({"a.md": "TO" + "DO: later"}), "unfinished")

    def test_a_folder_of_sources_has_a_readme(self):
        self.assert_one(self.offences({"src/store/A.cpp": ""}), "src/store: has no README.md")
        self.assert_one(self.offences({"automation/A.cpp": ""}), "automation: has no README.md")

    def test_a_package_has_its_reason_in_both_places(self):
        listing = "run_packages=(\n    g++   # the compiler\n    cmake\n)\n"
        offences = self.offences({"scripts/packages.sh": listing, "README.md": "`g++` compiles, `cmake` tells what"})
        self.assert_one(offences, "scripts/packages.sh:3", "cmake has no reason")
        offences = self.offences({"scripts/packages.sh": listing.replace("cmake", "cmake # y"), "README.md": "`cmake`"})
        self.assert_one(offences, "README.md", "why g++ is needed")


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
"""Each installed header compiles alone, and a second time without harm, with both compilers and without a warning."""
import concurrent.futures
import os
import shlex
import shutil
import subprocess
import unittest

from stranger import PREFIX, Stranger, listed_headers

WARNINGS = ("-Wall", "-Wextra", "-Wpedantic", "-Werror")


class PublicHeaders(Stranger):
    def faults(self, compiler, headers):
        """What the compiler says of each header that it does not take."""
        flags = shlex.split(self.run_tool("pkg-config", "--cflags", "OrvoAnalysis"))
        cache = shutil.which("ccache")
        launcher = [cache] if cache else []
        environment = dict(self.environment(), CCACHE_BASEDIR=os.path.dirname(PREFIX), CCACHE_NOHASHDIR="1")
        # The compilers' cache is the account's, wherever its home is just now.
        environment.update((name, os.environ[name]) for name in ("HOME", "CCACHE_DIR", "XDG_CACHE_HOME") if name in os.environ)

        def compile_alone(header):
            name = header.replace("/", "-")
            self.write(f"{name}.cpp", f'#include "{header}"\n#include "{header}"\n')
            done = subprocess.run([*launcher, compiler, "-std=c++20", *WARNINGS, *flags, "-c", f"{name}.cpp",
                                   "-o", f"{compiler}-{name}.o"], capture_output=True, text=True, env=environment,
                                  cwd=self.folder, check=False)
            return done.stderr if done.returncode else ""

        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            return {header: fault for header, fault in zip(headers, pool.map(compile_alone, headers)) if fault}

    def test_with_gcc(self):
        self.assertEqual(self.faults("g++", listed_headers()), {})

    def test_with_clang(self):
        self.assertEqual(self.faults("clang++", listed_headers()), {})

    def test_a_header_that_leans_on_another_is_seen(self):
        self.write("leaning.h", "#pragma once\ninline CString Nothing() { return CString(); }\n")
        self.write("warned.h", "#pragma once\ninline int Sum(int first, int second) { return first; }\n")
        for compiler in ("g++", "clang++"):
            found = self.faults(compiler, ["leaning.h", "warned.h", "platform/base/CString.h"])
            self.assertEqual(sorted(found), ["leaning.h", "warned.h"])
            self.assertIn("CString", found["leaning.h"])
            self.assertIn("second", found["warned.h"])


if __name__ == "__main__":
    unittest.main(verbosity=2)

#!/usr/bin/env python3
"""lint_files.py ROOT FLAVOUR... - the checks of tools/lint, over the compile commands of the flavours' build folders."""
import concurrent.futures
import hashlib
import json
import os
import re
import shlex
import subprocess
import sys

# The flags of g++ that clang does not know, and those that only slow it down.
DROPPED = re.compile(r"-fsanitize.*|-fno-sanitize.*|-Winvalid-pch|-Wno-maybe-uninitialized|-g\w*")
INCLUDE = re.compile(rb'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"\n]+)[>"]', re.M)
WINDOWS = re.compile(
    r"windows\.h|win(def|err|error|nls|user|base|reg|ver)\.h|(ole|comm|shell|shl|mlang|hlink)\w*\.h|oaidl\.h|unknwn\.h|htmlhelp\.h|richedit\.h")


class Lint:
    def __init__(self, root, flavours):
        self.root = root
        self.flavours = flavours
        self.stamps = os.path.join(root, "build", "lint")
        os.makedirs(self.stamps, exist_ok=True)
        listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                                cwd=root, check=True, stdout=subprocess.PIPE).stdout
        self.files = sorted(name for name in listed.decode().split("\0")
                            if name and os.path.isfile(os.path.join(root, name)))
        self.sources = [name for name in self.files if name.endswith((".h", ".cpp"))]
        self.contents = {}
        self.closures = {}
        self.mingw = None
        self.faults = 0
        self.used = set()

    def say(self, text):
        self.faults += 1
        print(text, flush=True)

    def read(self, name):
        if name not in self.contents:
            with open(os.path.join(self.root, name), "rb") as file:
                self.contents[name] = file.read()
        return self.contents[name]

    def stamp(self, *parts):
        """The file that says: this has passed."""
        digest = hashlib.sha256()
        for part in parts:
            digest.update(part if isinstance(part, bytes) else part.encode())
            digest.update(b"\0")
        name = os.path.join(self.stamps, digest.hexdigest())
        self.used.add(os.path.basename(name))
        return name

    def check_once(self, jobs):
        """jobs: (stamp, what to say, command). Runs those whose stamp is missing, side by side."""
        def run(job):
            stamp, name, command = job
            done = subprocess.run(command, cwd=self.root, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                                  errors="replace", check=False)
            return stamp, name, done

        waiting = [job for job in jobs if not os.path.exists(job[0])]
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            for stamp, name, done in pool.map(run, waiting):
                if done.returncode == 0:
                    open(stamp, "w").close()
                else:
                    errors = [line for line in done.stderr.splitlines() if not re.match(r"\d+ warnings? |Suppressed |Use -", line)]
                    self.say((done.stdout + "\n".join(errors)).strip() or f"{name}: {command[0]} failed")
        return len(waiting)

    def layout(self):
        style = self.read(".clang-format")
        return self.check_once([(self.stamp("format", style, self.read(name)), name,
                                 ["clang-format", "--dry-run", "-Werror", name]) for name in self.sources])

    def editorconfig(self):
        """Line ends, the file's end, blanks at line ends, and what lines begin with."""
        for name in self.files:
            if not self.is_ours(name):
                continue
            text = self.read(name)
            if b"\0" in text[:4096] or not text:
                continue
            where = f"{name}: .editorconfig: "
            if b"\r" in text:
                self.say(where + "a carriage return")
            if not text.endswith(b"\n"):
                self.say(where + "the last line is not ended")
            unit = 2 if self.is_script(name) or re.search(r"(CMakeLists\.txt|\.cmake|\.json|\.md|\.yml)$", name) else 4
            literal = False
            for number, line in enumerate(text.split(b"\n"), 1):
                if re.search(rb"[ \t]$", line):
                    self.say(f"{name}:{number}: .editorconfig: blanks at the line's end")
                if line.startswith(b"\t"):
                    self.say(f"{name}:{number}: .editorconfig: a tab")
                if self.is_script(name):
                    # Continued lines and here-documents stand where they like.
                    blanks = len(line) - len(line.lstrip(b" "))
                    if not literal and blanks % unit and line.strip() and b"'" not in line:
                        self.say(f"{name}:{number}: .editorconfig: indented by {blanks}")
                    literal = line.endswith(b"\\") or (literal and not re.match(rb"\w+$", line)) or b"<<" in line
            try:
                text.decode("utf-8")
            except UnicodeDecodeError:
                self.say(where + "not UTF-8")

    def is_ours(self, name):
        if re.match(r"(tests/(.*/)?data|fuzz/corpus|examples|pictures|docs/images)/", name):
            return False
        return not re.search(r"\.(bas|cls|frm|ctl|pag|dob|dsr|vbp|vbg|lst|html|css|hh[ckp]|rc|idl|png|svg|ico|reg|nsi|cmd|vbs)$", name)

    def is_script(self, name):
        return bool(re.match(rb"#!.*\b(bash|sh)\b", self.read(name)[:40])) or name.endswith(".sh")

    def scripts(self):
        names = [name for name in self.files if self.is_ours(name) and self.is_script(name)]
        settings = self.read(".shellcheckrc")
        shared = self.read("tools/setup.sh")
        return self.check_once([(self.stamp("shellcheck", settings, shared, self.read(name)), name,
                                 ["shellcheck", "-x", "-f", "gcc", name]) for name in names])

    def diagnostics(self):
        """Every code that a message may have has its paragraph, and no other has one."""
        told = {}
        for name in self.sources:
            if name.startswith("src/"):
                for code in re.findall(rb'"(CV\d{3})\b', self.read(name)):
                    told.setdefault(code.decode(), name)
        page = "docs/diagnostics.md"
        explained = set(re.findall(r"^#+.*?\b(CV\d{3})\b", self.read(page).decode(), re.M))
        for code in sorted(told.keys() - explained):
            self.say(f"{told[code]}: {page} has no paragraph about {code}")
        for code in sorted(explained - told.keys()):
            self.say(f"{page}: nothing in src says {code}")

    def includes(self):
        allowed, used = {}, set()
        for line in self.read("tools/includes.txt").decode().splitlines():
            if line and not line.startswith("#"):
                folder, targets = line.split(":")
                allowed[folder] = targets.split()
        for name in self.sources:
            if not name.startswith("src/"):
                continue
            folder = os.path.dirname(name)[4:]
            if folder not in allowed:
                self.say(f"{name}: tools/includes.txt does not name its folder")
                allowed[folder] = []
            for match in INCLUDE.finditer(self.read(name)):
                target = match.group(2).decode()
                if match.group(1) == b'"' and os.path.exists(os.path.join(self.root, "src", target)):
                    edge = os.path.dirname(target)
                elif match.group(1) == b"<" and WINDOWS.fullmatch(target):
                    edge = "windows"
                else:
                    continue
                used.add((folder, edge))
                if edge != folder and edge not in allowed[folder] and edge + "?" not in allowed[folder]:
                    line = self.read(name).count(b"\n", 0, match.start()) + 1
                    self.say(f"{name}:{line}: {folder} must not include from {edge}: {target}")
        for folder, targets in allowed.items():
            for target in targets:
                if not target.endswith("?") and (folder, target) not in used:
                    self.say(f"tools/includes.txt: {folder} no longer includes from {target}")

    def closure(self, name):
        """The sources of ours that a source includes, itself among them."""
        found, waiting = set(), [name]
        while waiting:
            current = waiting.pop()
            if current in found:
                continue
            found.add(current)
            if current not in self.closures:
                self.closures[current] = list(self.included(current))
            waiting += self.closures[current]
        return found

    def included(self, name):
        for match in INCLUDE.finditer(self.read(name)):
            target = match.group(2).decode()
            for folder in ("src", "tests", "fuzz", "bench", os.path.dirname(name)):
                path = os.path.normpath(os.path.join(folder, target))
                if os.path.isfile(os.path.join(self.root, path)):
                    yield path

    def tidy(self):
        version = subprocess.run(["clang-tidy", "--version"], stdout=subprocess.PIPE, check=True).stdout
        settings = [self.read(name) for name in self.files if os.path.basename(name) == ".clang-tidy"]
        jobs, seen = [], set()
        for flavour in self.flavours:
            with open(os.path.join(self.root, "build", flavour, "compile_commands.json"), encoding="utf-8") as file:
                commands = json.load(file)
            for entry in commands:
                name = os.path.relpath(entry["file"], self.root)
                if name in seen or name not in self.sources:
                    continue
                seen.add(name)
                arguments = self.for_clang(entry["command"], flavour)
                content = [self.read(part) for part in sorted(self.closure(name))]
                place = self.root.encode()
                command = " ".join(arguments).encode().replace(place, b"")
                jobs.append((self.stamp("tidy", version, name, command, *settings, *content), name,
                             ["clang-tidy", "-quiet", os.path.join(self.root, name), "--"] + arguments))
        windows = {name for name in self.sources if re.match(r"(src|tests|fuzz|bench)/.*\.cpp$", name)} - seen
        if len(self.flavours) == 3:
            for name in sorted(windows):
                self.say(f"{name}: no flavour compiles it")
        return self.check_once(jobs)

    def for_clang(self, command, flavour):
        words = shlex.split(command)
        result, skip = [], False
        for at, word in enumerate(words):
            if skip:
                skip = False
            elif word in ("-o", "-MT", "-MF", "-include", "-x"):
                skip = True
            elif at == 0 or word in ("-c", "-MD") or word.endswith((".cpp", "ccache", "++", "++-posix")) or DROPPED.fullmatch(word):
                pass
            else:
                result.append(word)
        if flavour == "windows":
            result = ["--target=i686-w64-mingw32", "-nostdinc++"] + self.mingw_headers() + result
        return result + ["-Wno-error", "-w"]

    def mingw_headers(self):
        """Where the cross compiler looks for the C++ library, which clang does not find."""
        if self.mingw is None:
            asked = subprocess.run(["i686-w64-mingw32-g++-posix", "-E", "-x", "c++", "-v", "/dev/null"], check=True,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True).stderr
            folders = [line.strip() for line in asked.splitlines() if line.startswith(" /") and "/c++" in line]
            self.mingw = [word for folder in folders for word in ("-isystem", os.path.normpath(folder))]
        return self.mingw

    def forget_unused(self):
        for name in os.listdir(self.stamps):
            path = os.path.join(self.stamps, name)
            if name not in self.used and os.path.getmtime(path) < os.path.getmtime(self.stamps) - 30 * 86400:
                os.remove(path)


def main(root, *flavours):
    lint = Lint(root, flavours)
    looked = lint.layout() + lint.scripts()
    lint.editorconfig()
    lint.includes()
    lint.diagnostics()
    if flavours:
        looked += lint.tidy()
    lint.forget_unused()
    print(f"lint: looked at {looked} files anew, found {lint.faults or 'nothing'}")
    sys.exit(1 if lint.faults else 0)


if __name__ == "__main__":
    main(*sys.argv[1:])

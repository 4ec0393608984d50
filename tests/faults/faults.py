#!/usr/bin/env python3
"""Puts the operations of the core under the faults that lose people's work, and prints one table:
operation, fault, points tried, points held. A point holds if the program told the truth: after a success
all files are the new ones, after a failure all are the old ones, and after a kill each is one of the two;
and once the program has tidied up at its next start, all of them together are the old or the new ones.

    faults.py [--quick] [--only=WORDS] DRIVER [FAULT ...]      FAULT: kill refuse full rights power

--only takes the operations of which the name holds WORDS.
--quick leaves out two of the errors and the calls made while the program itself is loaded, which are else
tried with the first operation, and takes no more than 40 points of each operation, spread over all of it.
Exit code 1: a point did not hold; 77: this machine lacks the tool or the right for every fault asked for.
Work is done in TMPDIR."""

import base64
import collections
import concurrent.futures
import fcntl
import os
import re
import resource
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time
import zlib

ERRORS = ["ENOSPC", "EACCES", "EIO", "EDQUOT"]
# What a kill may leave; everything ignores it.
LEFTOVER = re.compile(r".*\.(js|json|jpg|mp3|CSV)\.[A-Za-z0-9]{6}|running-\d\.lock(\.rmlock)?")
KEPT = "kept/"  # earlier versions and what is typed, under whatever name
ARRIVING = "spartiti/arriving"  # new songs' files on the way to their places; everything else ignores it
NOT_FILES = {"execve", "mmap"}  # of the calls that strace counts among those on files


# The archive that an operation finds.

def lines(first, fields):
    return (f"var {first} = [\r\n" + "".join(f'"{field}",\r\n' for field in fields) + " ];\r\n").encode("cp1252")


def archive(count, title):
    return lines("archivio", [field for n in range(1, count + 1)
                              for field in (n, f"{title} {n} {'è' * 20}", "An author", "tags and more tags", n % 34)])


def put(path, data):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as file:
        file.write(data)


def put_nothing(folder, kilobytes):
    pass


def put_stand(folder, kilobytes):
    """An archive whose every file has about so many kilobytes, a scan, and another stand."""
    spartiti = folder + "/spartiti/"
    songs = kilobytes * 1024 // len(archive(1, "Song"))
    put(spartiti + "archivio.js", archive(songs, "Song"))
    put(spartiti + "generi.js", lines("generi", [f"Category {n}" for n in range(1, 34)]))
    put(spartiti + "midi.js", lines("midi", [field for n in range(2, 2 + kilobytes * 4)
                                             for field in (n, *["0,0,12"] * 16)]))
    put(spartiti + "playlist.js", b"var playlist = [\r\n" + b"".join(
        b'"Playlist %d","%s#",\r\n' % (n, b"123," * (kilobytes * 25)) for n in range(10)) + b" ];\r\n")
    for page in ("1L", "1R", "m"):
        put(f"{spartiti}{page}.jpg", os.urandom(1024 * kilobytes))
    put(folder + "/scan.jpg", os.urandom(1024 * kilobytes))
    put(folder + "/other/spartiti/archivio.js", archive(2, "Other song"))
    for page in ("1L", "1R", "2L"):
        put(f"{folder}/other/spartiti/{page}.jpg", os.urandom(1024 * kilobytes))
    for page in (f"{songs + 1}L", f"{songs + 2}R"):  # pages that lie there from before
        put(f"{spartiti}{page}.jpg", os.urandom(512))


# A red picture of 8 by 8; what stands behind its end does not count.
JPEG = base64.b64decode(
    "/9j/4AAQSkZJRgABAQAAAQABAAD/2wBDABALDA4MChAODQ4SERATGCgaGBYWGDEjJR0oOjM9PDkzODdASFxOQERXRTc4UG1RV1"
    "9iZ2hnPk1xeXBkeFxlZ2P/2wBDARESEhgVGC8aGi9jQjhCY2NjY2NjY2NjY2NjY2NjY2NjY2NjY2NjY2NjY2NjY2NjY2NjY2Nj"
    "Y2NjY2NjY2NjY2P/wAARCAAIAAgDASIAAhEBAxEB/8QAFQABAQAAAAAAAAAAAAAAAAAAAAX/xAAUEAEAAAAAAAAAAAAAAAAAAA"
    "AA/8QAFQEBAQAAAAAAAAAAAAAAAAAABQb/xAAUEQEAAAAAAAAAAAAAAAAAAAAA/9oADAMBAAIRAxEAPwCKALXj/9k=")


def png():
    """The same."""
    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", 8, 8, 8, 2, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress((b"\0" + b"\xff\0\0" * 8) * 8)) + chunk(b"IEND", b""))


def put_scans(folder, kilobytes):
    """The same with files that are to become two songs."""
    put_stand(folder, kilobytes)
    put(folder + "/scans/1.jpg", JPEG + os.urandom(1024 * kilobytes))
    put(folder + "/scans/2.png", png())
    put(folder + "/scans/3.mp3", os.urandom(1024 * kilobytes))


def put_history(folder, kilobytes):
    """The same with an earlier version of the archive and of a page, and pages that are links."""
    put_stand(folder, kilobytes)
    put(folder + "/kept/versions/20261101T080000000Z archivio.js", archive(kilobytes * 8, "Earlier song"))
    put(folder + "/kept/versions/20261101T080000000Z 1L.jpg", os.urandom(1024 * kilobytes))


def put_link(folder, kilobytes):
    """The same with a page that is a link, so that a version is a copy."""
    put_history(folder, kilobytes)
    os.rename(folder + "/spartiti/1L.jpg", folder + "/mine.jpg")
    os.symlink("../mine.jpg", folder + "/spartiti/1L.jpg")


def put_typed(folder, kilobytes):
    """The same with what a killed program has left."""
    put_history(folder, kilobytes)
    assert run(folder, "keep-typed") == 0


def put_without_sheet(folder, kilobytes):
    put_stand(folder, kilobytes)
    os.remove(folder + "/spartiti/m.jpg")


def put_wrong_name(folder, kilobytes):
    put_stand(folder, kilobytes)
    os.rename(folder + "/spartiti/1L.jpg", folder + "/spartiti/01l.JPG")


def put_carried(folder, kilobytes):
    """A small archive with a scan, and a stand to which another one was carried long ago."""
    spartiti = folder + "/spartiti/"
    put(spartiti + "archivio.js", archive(2, "Song"))
    put(spartiti + "playlist.js", b'var playlist = [\r\n"Set","2,1,#",\r\n ];\r\n')
    for page in ("1L", "1R"):
        put(f"{spartiti}{page}.jpg", os.urandom(1024 * kilobytes))
    put(folder + "/carried/spartiti/archivio.js", archive(1, "Old song"))
    for page in ("1L", "99L"):
        put(f"{folder}/carried/spartiti/{page}.jpg", os.urandom(512))


# May the version be missing where something failed, or has the operation then to fail too?
Operation = collections.namedtuple("Operation", "name command put may_lose", defaults=[True])
QUICK_POINTS = 40  # of each operation

OPERATIONS = [
    Operation("begin an archive", "start", put_nothing),
    Operation("start on an archive", "start", put_stand),
    Operation("save the archive", "save-archive", put_stand),
    Operation("export as CSV", "export-csv", put_stand),
    Operation("store a left page", "store-left-page", put_stand),
    Operation("store a recording", "store-recording", put_stand),
    Operation("begin playlists", "begin-playlists", put_nothing),
    Operation("open playlists", "begin-playlists", put_stand),
    Operation("save a playlist", "save-playlist", put_stand),
    Operation("save MIDI settings", "save-midi", put_stand),
    Operation("absorb two songs", "absorb", put_stand),
    Operation("bring in two songs", "bring-in", put_scans),
    Operation("save with a version kept", "save-archive", put_history),
    Operation("store a page over a link, with a version kept", "store-left-page", put_link),
    Operation("keep what is typed", "keep-typed", put_history, False),
    Operation("put back what was typed", "put-typed-back", put_typed, False),
    Operation("put aside what was typed", "set-typed-aside", put_typed, False),
    Operation("bring back an archive", "bring-back-archive", put_history, False),
    Operation("bring back a page", "bring-back-page", put_history, False),
    Operation("take two pages away", "take-pages-away", put_history, False),
    Operation("rename a category", "rename-category", put_stand),
    Operation("mend: the empty sheet", "mend", put_without_sheet),
    Operation("mend: a wrong name", "mend", put_wrong_name),
    Operation("copy to the stand", "carry-to-stand", put_carried),
]


# Running and judging.

class Skip(Exception):
    """What this machine lacks."""


def files_in(folder):
    files = {}
    for parent, _, names in os.walk(folder):
        for name in names if ARRIVING not in parent else []:
            if not LEFTOVER.fullmatch(name):
                path = os.path.join(parent, name)
                with open(path, "rb") as file:
                    files[os.path.relpath(path, folder)] = file.read()
    return files


def run(folder, operation, prefix=(), **options):
    """The exit code; negative for a signal."""
    command = [*prefix, driver, folder, operation]
    return subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options).returncode


def strace(*arguments, output=os.devnull):
    return ["strace", "-qq", "-o", output, *arguments]


def injected(call, number, what):
    return strace("-e", f"trace={call}", "-e", f"inject={call}:{what}:when={number}")


def absorbed_in_part(before, wanted, after, pages):
    """All is as wanted but for pages told of: they are missing or as before, and what lay there is kept."""
    kept = [before[page] for page in pages if page in before]
    wrong = [path for path in {*wanted, *after} - pages
             if after.get(path) != wanted.get(path) and not {after.get(path), wanted.get(path)} & {*kept}]
    wrong += [page for page in pages if after.get(page) not in (None, before.get(page))]
    wrong += [page for page in pages if page in before and before[page] not in after.values()]
    return f"told of {pages}, and yet not so: {wrong}" if wrong else None


def troubled_pages(before, code):
    songs = before["spartiti/archivio.js"].count(b"\n") // 5
    files = [f"{songs + 1 + bit // 2}{'LR'[bit % 2]}.jpg" for bit in range(4)] + [f"audio/{songs + 2}.mp3"]
    return {"spartiti/" + file for bit, file in enumerate(files) if code & 1 << bit}


def is_kept_aside(path, before, after):
    """A page from before that could not be looked at was given another name instead of being replaced."""
    return " (old 1)" in path and after.get(path) == before.get(path.replace(" (old 1)", ""))


def without_kept(files):
    return {path: data for path, data in files.items() if not path.startswith(KEPT)}


def verdict(before, wanted, after, code, may_lose=True):
    """What is wrong; nothing if the point holds. What was replaced may be lost only where something failed,
    and not at all unless the operation may_lose it."""
    torn = [path for path, data in after.items()
            if path.startswith(KEPT) and data not in [*before.values(), *wanted.values()]]
    lost = [path for path, data in before.items() if data not in after.values()]
    is_kept = any(path.startswith(KEPT) for path in wanted)
    if is_kept and code == 0 and not may_lose:
        lost += [path for path, data in wanted.items() if data not in after.values()]
    if torn or (lost and is_kept and (code == -signal.SIGKILL or not may_lose)):
        return f"exit code {code}, and yet garbled: {torn}, lost: {lost}"
    before, wanted, after = map(without_kept, (before, wanted, after))
    if code == -signal.SIGKILL:
        wrong = [path for path in {*before, *wanted, *after}
                 if after.get(path) not in (before.get(path), wanted.get(path))]
        return f"neither old nor new: {wrong}" if wrong else None
    if code < 0:
        return f"ended by signal {-code}"
    if code in (5, 6):  # one of two pages was taken away
        stays = "spartiti/1L.jpg" if code == 5 else "spartiti/1R.jpg"
        return None if after == {**wanted, stays: before[stays]} else "not what was told is still there"
    if 32 < code < 64:
        return absorbed_in_part(before, wanted, after, troubled_pages(before, code))
    expected = wanted if code in (0, 3) else before
    if code == 3:  # the left page, without the empty sheet
        expected = {**wanted, "spartiti/1R.jpg": before["spartiti/1R.jpg"]}
    wrong = [path for path in {*expected, *after} if after.get(path) != expected.get(path)
             and not is_kept_aside(path, before, after)]
    return f"exit code {code}, and yet not so: {wrong}" if wrong else None


def carried_in_part(before, wanted, after, code):
    """Each file is the old or the new one, and the archive on the stand a new one only beside all the others."""
    ends = code == 0 or after.get("carried/spartiti/archivio.js") == wanted["carried/spartiti/archivio.js"]
    wrong = [path for path in {*before, *wanted, *after}
             if after.get(path) not in (wanted.get(path), wanted.get(path) if ends else before.get(path))]
    return f"exit code {code}, and yet not so: {wrong}" if wrong else None


class Stand:
    """An operation with the files that it finds, and those that it leaves where nothing fails."""

    def __init__(self, operation, kilobytes=1):
        self.operation = operation
        self.folder = tempfile.mkdtemp(dir=base)
        operation.put(self.folder, kilobytes)
        self.before = files_in(self.folder)
        with self.copy() as folder:
            assert run(folder, operation.command) == 0, operation.name
            self.wanted = files_in(folder)

    def copy(self):
        copy = tempfile.TemporaryDirectory(dir=base)
        shutil.copytree(self.folder, copy.name, dirs_exist_ok=True, symlinks=True)
        return copy

    def verdict(self, folder, code):
        if self.operation.command == "carry-to-stand" and code in (0, 1, -signal.SIGKILL):
            return carried_in_part(self.before, self.wanted, files_in(folder), code)
        return verdict(self.before, self.wanted, files_in(folder), code, self.operation.may_lose)

    def run(self, folder, prefix=(), **options):
        return run(folder, self.operation.command, prefix, **options)

    def attempt(self, prefix=()):
        """One point: the fault, and then a new start that must find everything in order."""
        with self.copy() as folder:
            code = self.run(folder, prefix)
            after = files_in(folder)
            wrong = self.verdict(folder, code)
            whole = [self.before, self.wanted] if self.operation.command in ("absorb", "bring-in") else [after]
            return wrong or self.next_start(folder, whole if code < 0 else [after])

    def next_start(self, folder, good):
        """What is wrong with it; it must leave all files as one of those that are good."""
        run(folder, "tidy")
        if files_in(folder) not in good or os.path.exists(f"{folder}/{ARRIVING}"):
            return "the next start does not tidy up"
        if self.run(folder) not in (0, 7) or run(folder, "check") != 0:
            return "the next start does not get on with it"
        if self.operation.command == "carry-to-stand" and files_in(folder) != self.wanted:
            return "the next copying does not go on"

    def calls(self, *choice, loading=True):
        """The system calls of a run without a fault: (name, its number among those of this name)."""
        trace = self.folder + ".trace"
        with self.copy() as folder:
            if self.run(folder, strace(*choice, output=trace)) != 0:
                raise Skip("strace cannot trace here (ptrace is not allowed)")
        counts = collections.Counter()
        calls = []
        with open(trace) as file:
            for name in re.findall(r"^(\w+)\(", file.read(), re.MULTILINE):
                counts[name] += 1
                calls.append((name, counts[name]))
        is_tried = loading and self.operation is OPERATIONS[0] and not quick  # all are loaded alike
        return calls if is_tried else calls[calls.index(("chdir", 1)) + 1:]


def need(*tools):
    for tool in tools:
        if not shutil.which(tool, path=os.environ["PATH"] + ":/usr/sbin:/sbin"):
            raise Skip(f"{tool} is not installed")


def mounted(what, folder, *options):
    if subprocess.run(["mount", *options, what, folder], stderr=subprocess.DEVNULL).returncode != 0:
        raise Skip(f"mount {' '.join(options)} is not allowed here")


def unmount(folder):
    for _ in range(100):  # a process that has just ended may still hold it
        if subprocess.run(["umount", folder], stderr=subprocess.DEVNULL).returncode == 0:
            return
        time.sleep(0.05)
    sys.exit(f"{folder} cannot be unmounted")


# The faults. Each gives, for an operation, its points: a text that names the point, and a function that
# tries it and tells what is wrong.

def kill(operation):
    """killed before a system call"""
    need("strace")
    stand = Stand(operation)
    for name, number in stand.calls():
        yield f"{name} {number}", lambda n=name, k=number: stand.attempt(injected(n, k, "signal=SIGKILL"))


def refuse(operation):
    """a file system call refused, once or from then on"""
    need("strace")
    stand = Stand(operation)
    for name, number in stand.calls("-e", "trace=%file,%desc"):
        if name in NOT_FILES:
            continue
        for error in ERRORS[:2 if quick else 4]:
            for when in (number, f"{number}+"):
                yield (f"{name} {when} {error}",
                       lambda n=name, k=when, e=error: stand.attempt(injected(n, k, f"error={e}")))


def full_disk(stand, free):
    with tempfile.TemporaryDirectory(dir=base) as disk:
        mounted("none", disk, "-t", "tmpfs", "-o", "size=64m")
        try:
            shutil.copytree(stand.folder, disk, dirs_exist_ok=True, symlinks=True)
            state = os.statvfs(disk)
            used = (state.f_blocks - state.f_bfree) * state.f_frsize // 1024
            mounted("none", disk, "-o", f"remount,size={used + free}k")
            code = stand.run(disk)
            return stand.verdict(disk, code)
        finally:
            unmount(disk)


def limited(stand, free):
    def limit():
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
        resource.setrlimit(resource.RLIMIT_FSIZE, (free * 1024, free * 1024))

    with stand.copy() as folder:
        code = stand.run(folder, preexec_fn=limit, restore_signals=False)
        return stand.verdict(folder, code)


def full(operation):
    """a full disk: 0, 4, 8, 12 KB free, files of 1, 14, 300 KB"""
    for kilobytes in (1, 14, 300):
        stand = Stand(operation, kilobytes)
        for free in (0, 4, 8, 12):
            for way in (full_disk, limited):
                yield f"{kilobytes} KB, {free} KB free, {way.__name__}", lambda w=way, s=stand, f=free: w(s, f)


def read_only_disk(stand):
    with tempfile.TemporaryDirectory(dir=base) as disk:
        mounted("none", disk, "-t", "tmpfs")
        try:
            shutil.copytree(stand.folder, disk, dirs_exist_ok=True, symlinks=True)
            mounted("none", disk, "-o", "remount,ro")
            code = stand.run(disk)
            return stand.verdict(disk, code)
        finally:
            unmount(disk)


def without_rights(stand, folders, files):
    user = {"user": "nobody"} if os.geteuid() == 0 else {}
    with stand.copy() as folder:
        for parent, names, own in os.walk(folder, topdown=False):
            for name in own:
                os.chmod(os.path.join(parent, name), files)
            if parent != folder:
                os.chmod(parent, folders)
            if user:
                for name in ("", *own):
                    shutil.chown(os.path.join(parent, name), "nobody")
        code = stand.run(folder, **user)
        subprocess.run(["chmod", "-R", "u+rwX", folder], check=True)
        return stand.verdict(folder, code)


def rights(operation):
    """rights taken away: a read-only disk, modes of folders and files"""
    stand = Stand(operation)
    yield "read-only disk", lambda: read_only_disk(stand)
    for folders, files in ((0o555, 0o644), (0o000, 0o644), (0o755, 0o444), (0o755, 0o000), (0o311, 0o644)):
        yield f"folders {folders:o}, files {files:o}", lambda d=folders, f=files: without_rights(stand, d, f)


def cut_power(folder, flag):
    handle = os.open(folder, os.O_RDONLY)
    fcntl.ioctl(handle, 0x8004587D, struct.pack("I", flag))  # the shutdown call of ext4
    os.close(handle)


def power_cut(stand, image, options, flag, prefix):
    with tempfile.TemporaryDirectory(dir=base) as disk:
        copy = disk + ".image"
        subprocess.run(["cp", "--sparse=always", image, copy], check=True)
        try:
            mounted(copy, disk, "-o", f"loop,{options}")
            code = stand.run(disk + "/stand", prefix)
            cut_power(disk, flag)
            unmount(disk)
            mounted(copy, disk, "-o", f"loop,{options}")
            wrong = stand.verdict(disk + "/stand", code)
            unmount(disk)
            return wrong
        finally:
            os.remove(copy)


def image_of(stand):
    image = stand.folder + ".image"
    with open(image, "wb") as file:
        file.truncate(32 << 20)
    subprocess.run(["mkfs.ext4", "-q", "-F", "-d", stand.folder + ".parent", image], check=True)
    return image


def power(operation):
    """power cut before a call that changes files, and after the end (ext4)"""
    need("strace", "mkfs.ext4")
    stand = Stand(operation, 14)
    shutil.copytree(stand.folder, stand.folder + ".parent/stand", symlinks=True)
    image = image_of(stand)
    changing = re.compile("open|creat|write|sync|link|rename|mkdir|truncate|chmod|close|exit")
    points = [call for call in stand.calls(loading=False) if changing.search(call[0])]
    for options in ("data=ordered", "data=writeback,noauto_da_alloc"):
        for flag in (1, 2):  # with and without a last write of the journal
            for name, number in points:
                yield (f"{name} {number}, {options}, {flag}",
                       lambda o=options, f=flag, n=name, k=number:
                       power_cut(stand, image, o, f, injected(n, k, "signal=SIGKILL")))
            yield f"after the end, {options}, {flag}", lambda o=options, f=flag: power_cut(stand, image, o, f, ())


def row(operation, fault, pool, lacks):
    points = list(fault(operation))
    if quick:
        points = points[::1 + len(points) // QUICK_POINTS]
    attempts = [(name, pool.submit(attempt)) for name, attempt in points]
    tried = held = 0
    for name, attempt in attempts:
        try:
            wrong = attempt.result()
        except Skip as skip:
            lacks[str(skip)] += 1
            continue
        tried += 1
        held += not wrong
        if wrong:
            print(f"DID NOT HOLD: {operation.name}, {fault.__name__}, {name}: {wrong}", file=sys.stderr)
    if tried > 0:
        print(f"| {operation.name} | {fault.__doc__} | {tried} | {held} |", flush=True)
    return tried, held


def rows(fault, pool):
    lacks = collections.Counter()
    try:
        counts = [row(operation, fault, pool, lacks) for operation in OPERATIONS if only in operation.name]
    except Skip as skip:
        print(f"skipped: {fault.__name__}: {skip}", file=sys.stderr)
        return 0, 0
    for reason, count in lacks.items():
        print(f"skipped: {fault.__name__}, {count} points: {reason}", file=sys.stderr)
    return map(sum, zip(*counts))


def main():
    print("| operation | fault | points tried | points held |\n| --- | --- | ---: | ---: |")
    tried = held = 0
    with concurrent.futures.ThreadPoolExecutor(2 * os.cpu_count()) as pool:
        for name in names or ["kill", "refuse", "full", "rights", "power"]:
            more_tried, more_held = rows(globals()[name], pool)
            tried, held = tried + more_tried, held + more_held
    print(f"| all | | {tried} | {held} |")
    return 1 if held < tried else 77 if tried == 0 else 0


if __name__ == "__main__":
    quick = "--quick" in sys.argv
    only = "".join(argument[len("--only="):] for argument in sys.argv if argument.startswith("--only="))
    arguments = [argument for argument in sys.argv[1:] if not argument.startswith("--")]
    if not arguments:
        sys.exit(__doc__)
    names = arguments[1:]
    os.environ.setdefault("ASAN_OPTIONS", "detect_leaks=0")  # which strace does not let work
    with tempfile.TemporaryDirectory() as base:
        os.chmod(base, 0o755)
        driver = shutil.copy(arguments[0], base)  # where any user may start it
        sys.exit(main())

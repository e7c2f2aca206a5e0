"""Which file of the tree an include means."""

import posixpath
import re

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')


def resolve(root, file, name):
    """The file of the tree that a quoted include means, as the builds' include paths have it; None for no such file."""
    for folder in (posixpath.dirname(file), "src", "", file.split("/")[0], "tests"):
        path = posixpath.normpath(posixpath.join(folder, name))
        if (root / path).is_file():
            return path
    return None


def reached(root, file, known=None):
    """The file and all files of the tree that it includes, directly or not."""
    known = set() if known is None else known
    if file not in known:
        known.add(file)
        for line in (root / file).read_text(encoding="utf-8").splitlines():
            found = INCLUDE.match(line)
            other = resolve(root, file, found[1]) if found and found[1] else None
            if other:
                reached(root, other, known)
    return known

#!/usr/bin/env python3
"""make_zip.py ZIP FOLDER: packs the folder, with its name, so that equal files give equal bytes.

All entries have the time SOURCE_DATE_EPOCH (UTC, even seconds as in every zip file).
"""
import os
import sys
import time
import zipfile


def main(target, folder):
    moment = time.gmtime(int(os.environ["SOURCE_DATE_EPOCH"]))[:6]
    parent = os.path.dirname(os.path.abspath(folder))
    paths = sorted(os.path.join(place, name) for place, _, names in os.walk(folder) for name in names)
    with zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for path in paths:
            entry = zipfile.ZipInfo(os.path.relpath(os.path.abspath(path), parent).replace(os.sep, "/"), moment)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o644 << 16
            with open(path, "rb") as source:
                archive.writestr(entry, source.read())


main(*sys.argv[1:])

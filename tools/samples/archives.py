"""Form archives whose bytes depend on nothing but their members."""

import zipfile

_FIXED_TIME = (2026, 1, 5, 9, 0, 0)


def write_archive(path, members):
    """`members` are pairs of name and bytes, the form's text first."""
    with zipfile.ZipFile(path, "w") as archive:
        for name, data in members:
            entry = zipfile.ZipInfo(name, _FIXED_TIME)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.create_system = 3
            entry.external_attr = 0o644 << 16
            archive.writestr(entry, data, compresslevel=9)


def read_member(path, name):
    with zipfile.ZipFile(path) as archive:
        return archive.read(name)


def csv_bytes(header, rows):
    """Comma-separated values with CR LF, quoted where a value needs it."""
    def written(value):
        text = str(value)
        return f'"{text}"' if any(character in text for character in ',"\n') else text

    return "".join(",".join(map(written, row)) + "\r\n" for row in [header, *rows]).encode()


def type_bytes(types):
    """The companion ".inf" of a table: a section for each column that is not plain text."""
    return "".join(f"[{name}]\r\nDataType={kind}\r\n" for name, kind in types.items()).encode()

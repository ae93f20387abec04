"""Widths of Arial text, so that the generator can refuse a caption that would not fit its box."""

# Advance widths in thousandths of the font size; characters that are missing count as an "m".
_REGULAR = {
    **dict.fromkeys("ijl'|", 222), **dict.fromkeys(" !,./:;ft[]I\\", 278), **dict.fromkeys("()-r", 333),
    **dict.fromkeys("cksvxyzJ", 500), **dict.fromkeys("0123456789abdeghnopqu?_$#L", 556),
    **dict.fromkeys("+<=>~±×÷", 584), **dict.fromkeys("FTZ", 611), **dict.fromkeys("ABEKPSVXY&", 667),
    **dict.fromkeys("wCDHNRU", 722), **dict.fromkeys("GOQ", 778), **dict.fromkeys("mM", 833),
    "*": 389, "\"": 355, "%": 889, "W": 944, "@": 1015, "°": 400, "–": 556, "·": 333, "’": 222, "≥": 549, "≤": 549,
    "Ω": 768, "✓": 800, "²": 333,
}
_BOLD = {
    **_REGULAR, **dict.fromkeys("ijl", 278), **dict.fromkeys("I", 278), **dict.fromkeys("ft-!:;", 333), "r": 389,
    **dict.fromkeys("aceksvxy", 556), "z": 500, "J": 556, **dict.fromkeys("bdghnopqu?L", 611), "w": 778,
    "m": 889, **dict.fromkeys("ABCDHKNRU&", 722), **dict.fromkeys("EPSVXY", 667), "’": 278,
}
_SCREEN_ROUNDING = 1.05  # characters are placed on whole pixels
_TWIPS_PER_POINT = 20
_LINE_HEIGHT = 1.15  # of the font size


def text_width(text, size, bold=False):
    """Width of one line in twips, with a margin for screens that round each character to a pixel."""
    table = _BOLD if bold else _REGULAR
    thousandths = sum(table.get(character, 833) for character in text)
    return thousandths * size * _TWIPS_PER_POINT * _SCREEN_ROUNDING / 1000


def line_height(size):
    return size * _TWIPS_PER_POINT * _LINE_HEIGHT


def wrapped_line_count(text, size, bold, width):
    """How many lines the text takes in a box of that width, broken at blanks. Fails on a word wider than that."""
    count = 0
    for paragraph in text.split("\n"):
        line = ""
        for word in paragraph.split(" "):
            if text_width(word, size, bold) > width:
                raise ValueError(f"'{word}' is wider than its box of {width} twips")
            longer = f"{line} {word}" if line else word
            if line and text_width(longer, size, bold) > width:
                count += 1
                longer = word
            line = longer
        count += 1
    return count


def check_fit(text, size, bold, width, height, where):
    """Raises ValueError when the text does not fit the box; text starts 15 twips right and 45 below its corner."""
    lines = wrapped_line_count(text, size, bold, width - 30) if text else 0
    one_line = text.count("\n") + 1
    needed = max(lines, 1) * line_height(size) + 45
    if needed > height + 1:
        raise ValueError(f"{where}: '{text}' needs {lines} lines ({one_line} written), {needed:.0f} of {height} twips")

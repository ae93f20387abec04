"""What the sample forms have in common: margins, title bands, footers."""

from samples.design import MUTED, RIGHT, CENTRE, WHITE, rgb
from samples.formulas import page_of_pages

MARGIN = 855
TOP = 600


def content_width(page):
    """What lies between the margins, on the grid."""
    return (page.width - 2 * MARGIN + 14) // 15 * 15


class Style:
    """The colours and the footer of one organisation's forms."""

    def __init__(self, organisation, document, dark, light):
        self.organisation, self.document, self.dark, self.light = organisation, document, dark, light

    def band(self, page, y, title, subtitle="", height=510):
        width = content_width(page)
        page.fill(MARGIN, y, width, height, self.dark)
        size = 20 if height > 600 else 14
        page.label(MARGIN + 120, y + 45, width - 240, 540 if height > 600 else 420, title, size=size, bold=True,
                   color=WHITE)
        if subtitle:
            page.label(MARGIN + 120, y + height - 330, width - 240, 270, subtitle, size=9, color=WHITE)

    def section(self, page, y, text, x=MARGIN, width=None):
        page.section(x, y, width or content_width(page), text, self.light, self.dark)

    def footer(self, page):
        y, width = page.height // 15 * 15 - 810, content_width(page)
        third = width // 45 * 15
        page.rule(MARGIN, y, width, self.dark)
        page.label(MARGIN, y + 45, third, 240, self.document, size=8, color=MUTED)
        page.label(MARGIN + third, y + 45, third, 240, self.organisation, size=8, color=MUTED, align=CENTRE)
        page.field("Page Of Pages", MARGIN + width - third, y + 45, third, 240, size=8, color=MUTED, align=RIGHT, inset=30,
                   formula=page_of_pages())


def heading_row(page, y, height, columns, style, size=7):
    """The heads of a table's columns: pairs of width and caption, on a band."""
    page.fill(MARGIN, y, sum(width for width, _ in columns), height, style.dark)
    x = MARGIN
    for width, caption in columns:
        lines = caption.count("\n") + 1
        page.label(x, y + (height - 45 - lines * 165) // 30 * 15, width, 45 + lines * 180, caption, size=size, bold=True,
                   color=WHITE, align=CENTRE)
        x += width


def row_cells(y, widths, height):
    """The boxes of a row's fields, a little inside the rules: (x, y, width, height) each."""
    x = MARGIN
    for width in widths:
        yield x + 45, y + 45, width - 90, height - 60
        x += width


def on_the_line(box):
    """The box of a small text that stands on one line with the fields beside it."""
    x, y, width, height = box
    return x, y + 15, width, height - 15


NAVY_STYLE = Style("Harrowmere Electrical Services", "HES-F-042, revision 3", rgb(31, 58, 95), rgb(228, 235, 243))
TEAL_STYLE = Style("Tarnside Building Inspection", "TBI-F-117, revision 5", rgb(24, 104, 108), rgb(226, 240, 240))
MAROON_STYLE = Style("Meridale Calibration Laboratory", "MCL-F-009, revision 8", rgb(122, 38, 54),
                     rgb(245, 233, 235))

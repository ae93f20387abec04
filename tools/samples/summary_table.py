"""The table at the foot of repeated pages: counts of verdicts on the page, brought forward, to date, and in all."""

from samples import formulas as f
from samples.design import CENTRE
from samples.house_style import MARGIN, heading_row, row_cells

_COUNTS = ("Items", "Passed", "Failed", "Open")
_WIDTHS = [3405, 1110, 1110, 1110, 1110, 1110, 1245]
_ROW = 375


def summary_table(page, style, y, verdicts, captions, last_caption, in_order):
    """`verdicts` are the page's own fields. The last page of the design totals the record: it alone has every other
    page before it, so its sums are right after one recalculation. `in_order` is a condition for a PASS of the whole."""
    style.section(page, y, "Summary", width=sum(_WIDTHS))
    heading_row(page, y + 330, 300, list(zip(_WIDTHS, ("", *captions, "Pass rate", "Result"))), style)
    page.grid(MARGIN, y + 630, _WIDTHS, _ROW, 4)
    own = page.title
    last = f.is_last_page_of(own)
    counted = {"Passed": f.count_equal(verdicts, f.PASS), "Failed": f.count_equal(verdicts, f.FAIL),
               "Open": f.count_equal(verdicts, f.OPEN),
               "Items": f.call("ADD", *[f.ref(own, f"Page {name}") for name in _COUNTS[1:]])}
    rows = (
        ("Page", "This page", counted),
        ("Forward", "Brought forward", {n: f.brought_forward(own, f"To Date {n}") for n in _COUNTS}),
        ("To Date", "To the end of this page",
         {n: f.call("ADD", f.ref(own, f"Forward {n}"), f.ref(own, f"Page {n}")) for n in _COUNTS}),
        ("Record", last_caption,
         {n: f.if_(last, f.call("SUM", f.ref(own, f"Page {n}")), f.EMPTY) for n in _COUNTS}),
    )
    for number, (prefix, caption, counts) in enumerate(rows):
        _row(page, y + 630 + number * _ROW, prefix, caption, counts, in_order if prefix == "Record" else None)


def _row(page, y, prefix, caption, counts, in_order):
    """The items are added up from the other three counts, so these come first."""
    (x, top, width, height), *cells = row_cells(y, _WIDTHS, _ROW)
    bold = in_order is not None
    page.label(x, top, width, height, caption, bold=bold)
    boxes = dict(zip((*_COUNTS, "Rate", "Result"), cells))
    for name in (*_COUNTS[1:], "Items"):
        page.field(f"{prefix} {name}", *boxes[name], align=CENTRE, bold=bold, formula=f.set_me(counts[name]))
    own = {name: f.ref(page.title, f"{prefix} {name}") for name in _COUNTS}
    some = f.call("GREATERTHAN", own["Items"], 0)
    page.field(f"{prefix} Rate", *boxes["Rate"], align=CENTRE, bold=bold,
               formula=f.set_me(f.if_(some, _rate(own), f.EMPTY)))
    page.field(f"{prefix} Result", *boxes["Result"], align=CENTRE, bold=True,
               formula=f.set_me(f.if_(some, _result(own, in_order), f.EMPTY)))


def _rate(own):
    """Cut, not rounded: 999 of 1000 must not show as 100.0."""
    tenths = f.call("TRUNCATE", f.call("MULTIPLY", f.call("PERCENTAGE", own["Passed"], own["Items"]), 10))
    return f.call("CONCATENATE", f.fixed(f.call("DIVIDE", tenths, 10), 1), f.word(" %"))


def _result(own, in_order):
    open_ = f.call("GREATERTHAN", own["Open"], 0)
    if in_order is not None:
        open_ = f.any_of(open_, f.not_(in_order))
    return f.if_(f.call("GREATERTHAN", own["Failed"], 0), f.FAIL, f.if_(open_, f.OPEN, f.PASS))

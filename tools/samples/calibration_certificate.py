"""The Calibration Certificate: a certificate page on the laboratory's own paper, and a page of readings for each range."""

from samples import formulas as f
from samples.calibration_data import READINGS
from samples.design import CENTRE, DATE_FIELD, MUTED, PICTURE_FIELD, RIGHT, UNDERLINE_BORDER, Page
from samples.house_style import MARGIN, MAROON_STYLE, TOP, heading_row, on_the_line, row_cells
from samples.pictures import CERTIFICATE_PAPER_DPI
from samples.summary_table import summary_table

NAME = "calibration_certificate"
DRIVER = "PC50"
CERTIFICATE, READING_PAGE = "Certificate", "Readings"
LINES, STANDARD_LINES = 12, 3
CSV_HEADER = ("Range", "Unit", "Resolution", "Tolerance Percent", "Tolerance Fixed", "Applied", "Reading")
CSV_TYPES = {"Applied": "NUMBER"}


def _source(column):
    return f"{column},DRIVERS\\{DRIVER}"


def _certificate():
    page = Page(CERTIFICATE, pre_printed=f"certificate_paper.png|{CERTIFICATE_PAPER_DPI}|0|0|0|0")
    MAROON_STYLE.band(page, 2010, "Calibration Certificate")
    _customer(page)
    _instrument(page)
    _standards(page)
    _environment(page)
    _conclusion(page)
    MAROON_STYLE.footer(page)
    return page


def _customer(page):
    page.cell(MARGIN, 2640, 3405, "Certificate number", "Certificate Number", bold=True)
    page.cell(4260, 2640, 3390, "Date of issue", "Date Of Issue", kind=DATE_FIELD, Format="Short Date")
    page.cell(7650, 2640, 3405, "Record opened", "Record Opened", kind=DATE_FIELD, editable=True, Format="Short Date",
              formula=f.preset(f.call("TODAY")))
    MAROON_STYLE.section(page, 3390, "Customer")
    page.cell(MARGIN, 3720, 5100, "Customer", "Customer")
    page.cell(5955, 3720, 2550, "Order number", "Order Number")
    page.cell(8505, 3720, 2550, "Received", "Date Received", kind=DATE_FIELD, Format="Short Date")
    page.cell(MARGIN, 4290, 10200, "Address", "Address", height=855, wrap=True)


def _instrument(page):
    MAROON_STYLE.section(page, 5325, "Instrument")
    page.cell(MARGIN, 5655, 3750, "Description", "Description")
    page.cell(4605, 5655, 3750, "Manufacturer and model", "Model")
    page.cell(MARGIN, 6225, 3750, "Serial number", "Serial Number")
    page.cell(4605, 6225, 3750, "Customer's reference", "Reference")
    page.cell(MARGIN, 6795, 3750, "Calibrated on", "Calibrated On", kind=DATE_FIELD, Format="Short Date")
    page.cell(4605, 6795, 3750, "Next calibration, as agreed with the customer", "Next Calibration", kind=DATE_FIELD,
              Format="Short Date")
    page.cell(MARGIN, 7365, 7500, "Condition on receipt", "Condition", size=9)
    page.cell(8355, 5655, 2700, "Instrument as received", "Photograph", height=2280, kind=PICTURE_FIELD)


def _standards(page):
    """Each standard in use must be in date on the day of calibration."""
    MAROON_STYLE.section(page, 8115, "Standards used")
    widths = [2550, 3450, 1350, 1350, 1500]
    heading_row(page, 8445, 300, list(zip(widths, ("Identification", "Description", "Calibrated", "Due", "Status"))),
                MAROON_STYLE)
    page.grid(MARGIN, 8745, widths, 375, STANDARD_LINES)
    for line in range(1, STANDARD_LINES + 1):
        name, description, start, due, status = row_cells(8745 + (line - 1) * 375, widths, 375)
        page.field(f"Standard {line}", *name)
        page.field(f"Standard Description {line}", *description)
        page.field(f"Standard Calibrated {line}", *start, kind=DATE_FIELD, align=CENTRE, Format="Short Date")
        page.field(f"Standard Due {line}", *due, kind=DATE_FIELD, align=CENTRE, Format="Short Date")
        dates = [f.ref(CERTIFICATE, n) for n in ("Calibrated On", f"Standard Calibrated {line}", f"Standard Due {line}")]
        page.field(f"Standard Status {line}", *status, align=CENTRE, bold=True, formula=f.set_me(
            f.if_(f.is_empty(f.ref(CERTIFICATE, f"Standard {line}")), f.EMPTY, f.in_date(*dates))))


LIMITS = {"Temperature": (21, 25), "Humidity": (30, 65)}


def _environment(page):
    MAROON_STYLE.section(page, 10050, "Environment")
    for number, (name, unit) in enumerate((("Temperature", "°C"), ("Humidity", "%"))):
        x = MARGIN + number * 5100
        low, high = LIMITS[name]
        start, end, mean = (f.ref(CERTIFICATE, f"{name} {part}") for part in ("Start", "End", "Mean"))
        page.cell(x, 10380, 1275, f"{name}, {unit}", f"{name} Start", Format="0.0")
        page.cell(x + 1275, 10380, 1275, "At the end", f"{name} End", Format="0.0")
        known = f.all_of(f.is_number(start, signed=True), f.is_number(end, signed=True))
        page.cell(x + 2550, 10380, 1275, "Mean", f"{name} Mean",
                  formula=f.set_me(f.if_(known, f.fixed(f.call("AVERAGE", start, end), 1), f.EMPTY)))
        inside = f.all_of(*[test(value, limit) for value in (start, end) for test, limit in
                            ((f.at_least, low), (f.at_most, high))])
        page.cell(x + 3825, 10380, 1275, f"{low} to {high} {unit}", f"{name} Status", bold=True, formula=f.set_me(
            f.if_(f.is_empty(mean), f.OPEN, f.if_(inside, f.word("Within"), f.word("OUTSIDE")))))


def _conclusion(page):
    MAROON_STYLE.section(page, 11130, "Conclusion")
    statuses = [f.ref(CERTIFICATE, f"Standard Status {line}") for line in range(1, STANDARD_LINES + 1)]
    some_standard = f.not_(f.is_empty(f.call("CONCATENATE", *statuses)))
    unsuitable = f.any_of(f.any_is(statuses, f.word("OUT OF DATE")), f.any_is(statuses, f.OPEN))
    within = f.all_of(*[f.equal(f.ref(CERTIFICATE, f"{name} Status"), f.word("Within")) for name in LIMITS])
    page.cell(MARGIN, 11460, 3405, "Standards and environment", "Conditions", bold=True, formula=f.set_me(
        f.if_(f.all_of(some_standard, f.not_(unsuitable), within), f.word("In order"), f.word("NOT IN ORDER"))))
    page.cell(4260, 11460, 3390, "Ranges calibrated", "Ranges",
              formula=f.set_me(f.call("COUNTDESIGNPAGES", f.word(READING_PAGE))))
    page.cell(7650, 11460, 3405, "Readings stand on pages", "Readings On Pages",
              formula=f.set_me(f.call("DESIGNPAGENUMBERS", f.word(READING_PAGE))))
    page.label(MARGIN, 12105, 10200, 660, "The instrument was compared with the standards named above, which are traceable "
               "to national standards. The readings, the errors found and the result for the whole instrument stand on "
               "the pages of readings, the result on the last of them.")
    page.cell(MARGIN, 12840, 5100, "Calibrated by", "Calibrated By")
    page.cell(5955, 12840, 5100, "Approved signatory", "Approved By")
    page.cell(MARGIN, 13410, 5100, "Signature", "Technician Signature", height=1140, kind=PICTURE_FIELD)
    page.cell(5955, 13410, 5100, "Signature", "Approver Signature", height=1140, kind=PICTURE_FIELD)
    page.rule(MARGIN, 14700, 8850, pattern=2)
    page.outline(9945, 14640, 1110, 1110, MAROON_STYLE.dark, shape=3)
    page.label(9945, 15075, 1110, 240, "Seal", size=8, color=MUTED, align=CENTRE)
    page.label(MARGIN, 14775, 8850, 450, "This certificate may be reproduced only in full. The results relate to the "
               "instrument as it was received, on the day of calibration.", size=8, color=MUTED)


COLUMNS = (("No.", 450, "No."), ("Applied", 1500, "Applied"), ("Reading", 1500, "Reading"), ("Error", 1500, "Error"),
           ("Error Percent", 1350, "Error\n% of applied"), ("Tolerance", 1500, "Tolerance\nplus or minus"),
           ("Used", 1200, "Tolerance\nused, %"), ("Verdict", 1200, "Verdict"))
WIDTHS = [width for _, width, _ in COLUMNS]
ROW, FIRST_ROW = 405, 3120


def _readings():
    page = Page(READING_PAGE, drivers=f"{DRIVER}\\Data")
    MAROON_STYLE.band(page, TOP, "Readings")
    _readings_head(page)
    heading_row(page, 2610, 510, [(width, caption) for _, width, caption in COLUMNS], MAROON_STYLE)
    page.grid(MARGIN, FIRST_ROW, WIDTHS, ROW, LINES)
    for line in range(1, LINES + 1):
        _line(page, line)
    _worst(page, 8235)
    summary_table(page, MAROON_STYLE, 9855, [f.ref(READING_PAGE, f"Verdict {line}") for line in range(1, LINES + 1)],
                  ("Points", "Passed", "Failed", "Open"), "Whole instrument (last page)",
                  f.equal(f.ref(CERTIFICATE, "Conditions"), f.word("In order")))
    page.label(MARGIN, 12135, 10200, 660, "A reading with > or < was reported as over or under range. It passes when that "
               "agrees with what was applied, and has no error in numbers. Errors are in the unit of the range, rounded to three "
               "places; tolerances are cut to three. The verdict compares them as they are printed.", size=8, color=MUTED)
    page.section(MARGIN, 13020, 10200, "Remarks", MAROON_STYLE.light, MAROON_STYLE.dark)
    page.outline(MARGIN, 13350, 10200, 1680)
    page.field("Remarks", MARGIN + 45, 13380, 10110, 1620, wrap=True)
    MAROON_STYLE.footer(page)
    return page


def _readings_head(page):
    first_line = {"MultiRecordIndex": 0}
    page.cell(MARGIN, 1215, 3405, "Range", "Range", DataSource=_source("Range"), KeyLevel=1, NewPageOnChange=True,
              bold=True, **first_line)
    for x, width, caption, name in ((4260, 1350, "Unit", "Unit"), (5610, 1350, "Resolution", "Resolution"),
                                    (6960, 2040, "Tolerance, % of applied", "Tolerance Percent"),
                                    (9000, 2055, "and fixed, in the unit", "Tolerance Fixed")):
        page.cell(x, 1215, width, caption, name, DataSource=_source(name), **first_line)
    for x, width, caption, name in ((MARGIN, 3405, "Certificate number", "Certificate Number"),
                                    (4260, 4740, "Instrument", "Model"), (9000, 2055, "Serial number", "Serial Number")):
        page.cell(x, 1785, width, caption, name, formula=f.set_me(f.call("CONCATENATE", f.ref(CERTIFICATE, name))))


def _line(page, line):
    cells = dict(zip((name for name, _, _ in COLUMNS), row_cells(FIRST_ROW + (line - 1) * ROW, WIDTHS, ROW)))
    own = {name: f.ref(READING_PAGE, f"{name} {line}") for name, _, _ in COLUMNS}
    bound = {"MultiRecordIndex": line - 1}
    page.label(*on_the_line(cells["No."]), str(line), size=8, color=MUTED, align=CENTRE)
    page.field(f"Applied {line}", *cells["Applied"], align=RIGHT, inset=240, DataSource=_source("Applied"), KeyLevel=2,
               NewLineOnReoccur=True, **bound)
    page.field(f"Reading {line}", *cells["Reading"], align=RIGHT, inset=240, DataSource=_source("Reading"), **bound)
    for name, formula in (("Error", _error(own)), ("Error Percent", _error_percent(own)), ("Tolerance", _tolerance(own)),
                          ("Used", _used(own))):
        page.field(f"{name} {line}", *cells[name], align=RIGHT, inset=240, formula=formula)
    page.field(f"Verdict {line}", *cells["Verdict"], bold=True, align=CENTRE, formula=f.set_me(_verdict(own)))


def _marked(reading):
    return f.any_of(f.holds(reading, ">"), f.holds(reading, "<"))


def _error(own):
    """In thousandths first, then written with three places; "over" and "under" stand for marked readings."""
    applied, reading = own["Applied"], own["Reading"]
    thousandths = f.call("ROUND", f.call("MULTIPLY", f.call("SUBTRACT", reading, applied), 1000))
    mark = f.if_(f.holds(reading, ">"), f.word("over"), f.word("under"))
    value = f.if_(_marked(reading), mark, f.if_(f.is_number(reading, signed=True), thousandths, f.EMPTY))
    as_it_is = f.any_of(f.is_empty("ME"), f.holds("ME", "er"))
    return f.set_me(f.if_(f.is_number(applied, signed=True), value, f.EMPTY), f.if_(as_it_is, "ME", f.fixed_signed(1000, 3)))


def _error_percent(own):
    applied = own["Applied"]
    not_zero = f.any_of(f.call("GREATERTHAN", applied, 0), f.call("LESSTHAN", applied, 0))
    percent = f.call("PERCENTAGE", own["Error"], f.magnitude(applied))
    value = f.if_(f.all_of(f.is_number(own["Error"], signed=True), not_zero), f.call("ROUND", f.call("MULTIPLY", percent, 100)), f.EMPTY)
    return f.set_me(value, f.if_(f.is_empty("ME"), "ME", f.fixed_signed(100, 2)))


def _tolerance(own):
    """Cut to three places, so that what is printed never allows more than what was agreed."""
    percent, fixed = (f.ref(READING_PAGE, name) for name in ("Tolerance Percent", "Tolerance Fixed"))
    allowed = f.call("ADD", f.call("PERCENTAGEOF", percent, f.magnitude(own["Applied"])), fixed)
    thousandths = f.call("TRUNCATE", f.call("MULTIPLY", allowed, 1000))
    written = f.fixed(f.call("DIVIDE", thousandths, 1000), 3)
    return f.set_me(f.if_(f.is_number(own["Applied"], signed=True), written, f.EMPTY))


def _used(own):
    assessed = f.all_of(f.is_number(own["Error"], signed=True), f.call("GREATERTHAN", own["Tolerance"], 0))
    share = f.call("PERCENTAGE", f.magnitude(own["Error"]), own["Tolerance"])
    return f.set_me(f.if_(assessed, f.fixed(share, 1), f.EMPTY))


def _verdict(own):
    """A mark is right when what it says is true of the value applied."""
    applied, reading = own["Applied"], own["Reading"]
    marked_value = f.call("MID", reading, 2, 20)
    true_mark = f.if_(f.holds(reading, ">"), f.call("GREATERTHAN", applied, marked_value),
                      f.call("LESSTHAN", applied, marked_value))
    by_mark = f.if_(f.is_number(marked_value, signed=True), f.if_(true_mark, f.PASS, f.FAIL), f.OPEN)
    by_error = f.if_(f.at_most(f.magnitude(own["Error"]), own["Tolerance"]), f.PASS, f.FAIL)
    known = f.all_of(f.is_number(reading, signed=True), f.call("GREATERTHAN", own["Tolerance"], 0))
    judged = f.if_(_marked(reading), by_mark, f.if_(known, by_error, f.OPEN))
    return f.if_(f.is_empty(f.call("CONCATENATE", applied, reading)), f.EMPTY,
                 f.if_(f.is_number(applied, signed=True), judged, f.OPEN))


def _worst(page, y):
    """The largest share of a tolerance: on this page, before it, and to date with the range where it was found."""
    MAROON_STYLE.section(page, y, "Largest share of the tolerance used, %")
    used = [f.ref(READING_PAGE, f"Used {line}") for line in range(1, LINES + 1)]
    here, before, before_range = (f.ref(READING_PAGE, n) for n in ("Worst Here", "Worst Before", "Worst Range Before"))
    one_place = f.if_(f.is_empty("ME"), "ME", f.fixed("ME", 1))
    own_is_worst = f.all_of(f.not_(f.is_empty(here)), f.any_of(f.is_empty(before), f.call("GREATERTHAN", here, before)))
    nearest = {name: f.brought_forward(READING_PAGE, name, f.EMPTY) for name in ("Worst To Date", "Worst Range To Date")}
    rows = (
        ("On this page", "Worst Here", f.set_me(f.call("MAXIMUM", *used), one_place), None, None),
        ("Brought forward, and the range", "Worst Before", f.set_me(nearest["Worst To Date"]), "Worst Range Before",
         f.set_me(nearest["Worst Range To Date"])),
        ("To the end of this page, and the range", "Worst To Date",
         f.set_me(f.call("MAXIMUM", before, here), one_place), "Worst Range To Date",
         f.set_me(f.if_(own_is_worst, f.call("CONCATENATE", f.ref(READING_PAGE, "Range")), before_range))),
    )
    for number, (caption, name, formula, range_name, range_formula) in enumerate(rows):
        top = y + 375 + number * 345
        page.label(MARGIN + 60, top, 4000 // 15 * 15, 285, caption, color=MUTED)
        page.field(name, 5055, top, 1200, 285, bold=True, align=RIGHT, inset=0, border=UNDERLINE_BORDER, formula=formula)
        if range_name:
            page.field(range_name, 6405, top, 4650, 285, border=UNDERLINE_BORDER, formula=range_formula)


def pages():
    return [_certificate(), _readings()]


def _certificate_values():
    values = {
        "Certificate Number": "MCL-26-00417", "Date Of Issue": "26/02/2026", "Record Opened": "23/02/2026",
        "Customer": "Oxenbrook Water Services", "Order Number": "OWS-77120", "Date Received": "20/02/2026",
        "Address": "Instrument Stores, Oxenbrook Treatment Works\nSluice Road, Oxenbrook OX8 2RN",
        "Description": "Process meter, handheld", "Model": "Veldane PM-34", "Serial Number": "PM34-60933",
        "Reference": "OWS-INST-0158", "Calibrated On": "25/02/2026", "Next Calibration": "25/02/2027",
        "Condition": "Clean and complete. No adjustment was made: readings are as received.",
        "Photograph": "process_meter.png", "Temperature Start": "22.6", "Temperature End": "23.0",
        "Humidity Start": "44.0", "Humidity End": "46.0", "Calibrated By": "Hollis Brannock",
        "Approved By": "Dr Wilhelmina Aske", "Technician Signature": "signature_brannock.png",
        "Approver Signature": "signature_aske.png",
    }
    standards = (("MCL-STD-011", "Multifunction calibrator", "14/07/2025", "13/07/2026"),
                 ("MCL-STD-027", "Decade resistance box", "02/10/2025", "01/10/2026"),
                 ("MCL-STD-034", "Dry well and reference probe", "19/01/2026", "18/01/2027"))
    for line, standard in enumerate(standards, 1):
        values.update(zip((f"Standard {line}", f"Standard Description {line}", f"Standard Calibrated {line}",
                           f"Standard Due {line}"), standard))
    return values


def data():
    """What importing the calibrator's file gives: a page for each range, points in rising order."""
    found = [(CERTIFICATE, _certificate_values())]
    for range_name in sorted({row[0] for row in READINGS}):
        rows = sorted((row for row in READINGS if row[0] == range_name), key=lambda row: float(row[5]))
        values = dict(zip(CSV_HEADER[:5], rows[0]))
        for line, row in enumerate(rows, 1):
            values.update({f"Applied {line}": row[5], f"Reading {line}": row[6]})
        found.append((READING_PAGE, values))
    found[-1][1]["Remarks"] = "The probe supplied with the meter was used for all temperatures."
    return found

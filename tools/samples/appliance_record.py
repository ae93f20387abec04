"""The Appliance Test Record: a cover with the inputs that hold for the whole record, and results pages of 20 lines."""

from samples import formulas as f
from samples.appliance_data import ROWS
from samples.design import CENTRE, DATE_FIELD, MUTED, PICTURE_FIELD, RIGHT, Page
from samples.house_style import MARGIN, NAVY_STYLE, TOP, heading_row, on_the_line, row_cells
from samples.summary_table import summary_table

NAME = "appliance_test_record"
DRIVER = "AT310"
LIST = "appliance_types"
LINES = 20
COVER, RESULTS = "Cover", "Test Results"
CSV_HEADER = ("Test Date", "Operator", "Location", "Asset", "Description", "Class", "Visual", "Earth", "Insulation",
              "Leakage")
CSV_TYPES = {"Test Date": "DATE", "Visual": "NUMBER"}
LIST_HEADER = ("Description", "Class", "Retest Months")
LIST_TYPES = {"Retest Months": "NUMBER"}
LIST_ROWS = (
    ("Band saw, bench", "I", 6), ("Bench grinder", "I", 6), ("Centrifuge", "I", 12), ("Charger, laptop", "II", 24),
    ("Desk lamp", "II", 24), ("Extension lead, 4 way", "I", 6), ("Fume cupboard fan", "I", 12),
    ("Glue gun", "II", 6), ("Heat gun", "II", 6), ("Hot plate, laboratory", "I", 12), ("Kettle", "I", 12),
    ("Microscope lamp", "II", 24), ("Monitor, 24 inch", "I", 48), ("Oscilloscope", "I", 12),
    ("Pillar drill", "I", 6), ("Power supply, bench", "I", 12), ("Projector", "I", 48), ("Refrigerator", "I", 24),
    ("Soldering station", "I", 6), ("Vacuum cleaner", "II", 6), ("Water bath", "I", 12),
)
LIMITS = (("Earth Limit", "Earth continuity, at most, Ω", 0.3), ("Insulation Limit I", "Insulation I, at least, MΩ", 1),
          ("Insulation Limit II", "Insulation II, at least, MΩ", 2), ("Leakage Limit I", "Leakage I, at most, mA", 0.75),
          ("Leakage Limit II", "Leakage II, at most, mA", 0.25))


def _source(column):
    return f"{column},DRIVERS\\{DRIVER}"


def _cover():
    page = Page(COVER)
    page.picture(MARGIN, TOP, 900, 900, "harrowmere_emblem.png")
    page.label(1905, 660, 7200, 420, NAVY_STYLE.organisation, size=16, bold=True, color=NAVY_STYLE.dark)
    page.label(1905, 1095, 7200, 240, "Unit 4, Lockgate Mill, Pellworth  ·  telephone 01632 960 418", size=8, color=MUTED)
    NAVY_STYLE.band(page, 1680, "Appliance Test Record", "In-service inspection and testing of electrical equipment", 900)
    _client(page)
    _instrument(page)
    _limits(page)
    _reading_guide(page)
    _declaration(page)
    NAVY_STYLE.footer(page)
    return page


def _client(page):
    NAVY_STYLE.section(page, 2760, "Client and site")
    page.cell(MARGIN, 3090, 5100, "Client", "Client")
    page.cell(5955, 3090, 2550, "Contact", "Contact")
    page.cell(8505, 3090, 2550, "Order number", "Order Number")
    page.cell(MARGIN, 3660, 5100, "Site address", "Site Address", height=1140, wrap=True)
    page.cell(5955, 3660, 2550, "Record number", "Record Number")
    page.cell(8505, 3660, 2550, "Record opened", "Record Opened", kind=DATE_FIELD, Format="Short Date")
    page.cell(5955, 4230, 2550, "Testing started", "Testing Started", kind=DATE_FIELD, Format="Short Date")
    page.cell(8505, 4230, 2550, "Testing completed", "Testing Completed", kind=DATE_FIELD, Format="Short Date")


def _instrument(page):
    NAVY_STYLE.section(page, 4980, "Test instrument")
    page.cell(MARGIN, 5310, 2550, "Instrument", "Instrument", List="Orvane AT310,Orvane AT330")
    page.cell(3405, 5310, 2040, "Serial number", "Serial Number")
    page.cell(5445, 5310, 1800, "Calibrated on", "Calibrated On", kind=DATE_FIELD, Format="Short Date")
    page.cell(7245, 5310, 1800, "Calibration due", "Calibration Due", kind=DATE_FIELD, Format="Short Date")
    page.cell(9045, 5310, 2010, "On the day of testing", "Calibration Status", bold=True, formula=f.set_me(
        f.in_date(*(f.ref(COVER, name) for name in ("Testing Completed", "Calibrated On", "Calibration Due")))))


def _limits(page):
    NAVY_STYLE.section(page, 6060, "Limits applied in this record")
    for number, (name, caption, preset) in enumerate(LIMITS):
        page.cell(MARGIN + number * 2040, 6390, 2040, caption, name, editable=True, Format="0.00",
                  formula=f.preset(preset))
    page.label(MARGIN, 6975, 10200, 240, "An empty limit takes the working procedure's value when the record is saved. "
               "Limits hold for every results page.", size=8, color=MUTED)


def _reading_guide(page):
    NAVY_STYLE.section(page, 7410, "How to read the results")
    entries = (
        ("PASS", "Visual inspection in order, and every reading that the class needs lies within its limit."),
        ("FAIL", "A defect was seen, or at least one reading lies outside its limit. Take the item out of use."),
        ("OPEN", "Something needed for a verdict is missing: the class, the visual inspection or a reading."),
        (">  <", "The instrument reports a reading above or below its range. Over range passes a lower limit and fails an "
                 "upper limit."),
        ("n/a", "Earth continuity is not measured on Class II equipment."),
        ("Visual", "Tick: in order. Question mark: defect found. Dash: could not be inspected. Blank: not yet inspected."),
    )
    for number, (term, meaning) in enumerate(entries):
        y = 7800 + number * 315
        page.label(MARGIN + 60, y, 900, 270, term, bold=True, color=NAVY_STYLE.dark)
        page.label(1815, y, 9240, 270, meaning, size=8)
        page.rule(MARGIN, y + 285, 10200)
    NAVY_STYLE.section(page, 9930, "Contents of this record")
    page.cell(MARGIN, 10260, 2550, "Results pages", "Results Pages",
              formula=f.set_me(f.call("COUNTDESIGNPAGES", f.word(RESULTS))))
    page.cell(3405, 10260, 7650, "Results stand on pages (the last of them gives the result of the whole record)",
              "Results On Pages", formula=f.set_me(f.call("DESIGNPAGENUMBERS", f.word(RESULTS))))


def _declaration(page):
    NAVY_STYLE.section(page, 11010, "Declaration")
    page.outline(MARGIN, 11370, 10200, 540)
    page.label(MARGIN + 60, 11385, 10080, 495, "The equipment listed in this record has been inspected and tested with the "
               "instrument and against the limits named above. The results describe its condition on the day of testing.")
    page.cell(MARGIN, 12000, 3405, "Name", "Declared By")
    page.cell(4260, 12000, 3390, "Position", "Position", List="Test technician,Senior technician,Contracts manager")
    page.cell(7650, 12000, 3405, "Date", "Date Declared", kind=DATE_FIELD, Format="Short Date")
    page.cell(MARGIN, 12570, 3405, "Signature", "Signature", height=1140, kind=PICTURE_FIELD)
    page.cell(4260, 12570, 6795, "Remarks on the record", "Remarks", height=1140, size=9, wrap=True)


COLUMNS = (("No.", 360), ("Asset", 1170), ("Description", 2355), ("Class", 495), ("Visual", 480), ("Earth", 705),
           ("Earth Result", 525), ("Insulation", 705), ("Insulation Result", 525), ("Leakage", 705),
           ("Leakage Result", 525), ("Retest", 600), ("Verdict", 1050))
WIDTHS = [width for _, width in COLUMNS]
ROW, FIRST_ROW = 390, 2445


def _results():
    page = Page(RESULTS, drivers=f"{DRIVER}\\Data")
    NAVY_STYLE.band(page, TOP, "Test Results")
    _results_head(page)
    heading_row(page, 1935, 510, (
        (360, "No."), (1170, "Asset"), (2355, "Description"), (495, "Class"), (480, "Visual"), (1230, "Earth\nΩ"),
        (1230, "Insulation\nMΩ"), (1230, "Leakage\nmA"), (600, "Retest\nmonths"), (1050, "Verdict")), NAVY_STYLE)
    page.grid(MARGIN, FIRST_ROW, WIDTHS, ROW, LINES)
    for line in range(1, LINES + 1):
        _line(page, line)
    _extremes(page, FIRST_ROW + LINES * ROW)
    summary_table(page, NAVY_STYLE, 10860, [f.ref(RESULTS, f"Verdict {line}") for line in range(1, LINES + 1)],
                  ("Items", "Passed", "Failed", "Open"), "Whole record (last results page)",
                  f.equal(f.ref(COVER, "Calibration Status"), f.word("In date")))
    page.section(MARGIN, 13125, 10200, "Remarks", NAVY_STYLE.light, NAVY_STYLE.dark)
    page.outline(MARGIN, 13455, 10200, 1080)
    page.field("Remarks", MARGIN + 45, 13485, 10110, 1020, wrap=True)
    page.cell(MARGIN, 14715, 5100, "Checked by", "Checked By")
    page.cell(5955, 14715, 5100, "Date checked", "Date Checked", kind=DATE_FIELD, Format="Short Date")
    NAVY_STYLE.footer(page)
    return page


def _results_head(page):
    page.cell(MARGIN, 1215, 3825, "Location", "Location", DataSource=_source("Location"), KeyLevel=1, MultiRecordIndex=0,
              NewPageOnChange=True)
    page.cell(4680, 1215, 1785, "Test date", "Test Date", kind=DATE_FIELD, Format="Short Date",
              DataSource=_source("Test Date"), MultiRecordIndex=0)
    page.cell(6465, 1215, 2295, "Operator", "Operator", DataSource=_source("Operator"), MultiRecordIndex=0)
    page.cell(8760, 1215, 2295, "Record number", "Record Number",
              formula=f.set_me(f.call("CONCATENATE", f.ref(COVER, "Record Number"))))


def _line(page, line):
    cells = dict(zip((name for name, _ in COLUMNS), row_cells(FIRST_ROW + (line - 1) * ROW, WIDTHS, ROW)))
    own = {name: f.ref(RESULTS, f"{name} {line}") for name, _ in COLUMNS}
    bound = {"MultiRecordIndex": line - 1}
    x, y, width, height = cells["No."]
    page.label(x - 15, y + 15, width + 15, height - 15, str(line), size=8, color=MUTED, align=CENTRE)
    page.field(f"Asset {line}", *cells["Asset"], DataSource=_source("Asset"), KeyLevel=2, NewLineOnReoccur=True, **bound)
    page.field(f"Description {line}", *cells["Description"], List=f"@LISTS\\{LIST},Description",
               DataSource=_source("Description"), **bound)
    page.field(f"Class {line}", *cells["Class"], align=CENTRE, List="I,II",
               DataSource=f"{_source('Class')};LISTS\\{LIST},Class", **bound)
    x, y, width, height = cells["Visual"]
    page.check(f"Visual {line}", x + 105, y, 300, height, DataSource=_source("Visual"), **bound)
    for name in ("Earth", "Insulation", "Leakage"):
        page.field(f"{name} {line}", *cells[name], align=RIGHT, DataSource=_source(name), **bound)
        page.field(f"{name} Result {line}", *on_the_line(cells[f"{name} Result"]), size=8, align=CENTRE,
                   formula=f.set_me(_reading_result(name, own)))
    page.field(f"Retest {line}", *cells["Retest"], align=CENTRE, formula=f.set_me(_retest(own)))
    page.field(f"Verdict {line}", *cells["Verdict"], bold=True, align=CENTRE, formula=f.set_me(
        f.line_verdict(own["Asset"], own["Visual"], [own[f"{n} Result"] for n in ("Earth", "Insulation", "Leakage")])))


def _reading_result(name, own):
    """Blank lines stay blank; a class other than I and II can't be judged."""
    test = f.within_minimum if name == "Insulation" else f.within_maximum
    first = f.judged(own[name], f.ref(COVER, "Earth Limit" if name == "Earth" else f"{name} Limit I"), test)
    second = f.word("n/a") if name == "Earth" else f.judged(own[name], f.ref(COVER, f"{name} Limit II"), test)
    by_class = f.if_(f.equal(own["Class"], f.word("I")), first,
                     f.if_(f.equal(own["Class"], f.word("II")), second, f.word("Open")))
    return f.if_(f.is_empty(own["Asset"]), f.EMPTY, by_class)


def _retest(own):
    """The list's months. Where the list is not at hand the field keeps what it has."""
    list_file = f.word(f"{LIST}.csv")
    known = f.is_empty(f.call("LISTLOOKUP", list_file, f.word("Description"), f.EMPTY))
    months = f.call("LISTLOOKUP", list_file, f.word("Retest Months"), f.EMPTY, f.word("Description"), own["Description"])
    return f.if_(f.is_empty(own["Asset"]), f.EMPTY, f.if_(known, "ME", months))


def _extremes(page, y):
    """The worst reading of each column; marks of the instrument come through as they are."""
    cells = dict(zip((name for name, _ in COLUMNS), row_cells(y, WIDTHS, ROW)))
    page.fill(MARGIN + 15, y + 15, 10185, ROW - 15, NAVY_STYLE.light)
    page.rule(MARGIN, y + ROW, 10215)
    page.label(MARGIN + 60, y + 60, 4740, 300, "Worst readings of this page", size=8,
               bold=True, color=NAVY_STYLE.dark)
    for name, function in (("Earth", "MAXIMUM"), ("Insulation", "MINIMUM"), ("Leakage", "MAXIMUM")):
        x, top, width, height = cells[name]
        worst = f.call(function, *[f.ref(RESULTS, f"{name} {line}") for line in range(1, LINES + 1)])
        as_it_is = f.any_of(f.is_empty("ME"), f.holds("ME", ">"), f.holds("ME", "<"))
        page.field(f"Worst {name}", x, top, width, height, bold=True, align=RIGHT,
                   formula=f.set_me(worst, f.if_(as_it_is, "ME", f.fixed("ME", 2))))


def pages():
    return [_cover(), _results()]


def _cover_values():
    return {
        "Client": "Ashlarfield College, Estates Department", "Contact": "Morwenna Tate", "Order Number": "AC-26-1187",
        "Site Address": "Ashlarfield College\nWeir Lane\nPellworth PW4 9QT", "Record Number": "HES-2026-0318",
        "Record Opened": "09/03/2026", "Testing Started": "10/03/2026", "Testing Completed": "12/03/2026",
        "Instrument": "Orvane AT310", "Serial Number": "AT3-20714", "Calibrated On": "22/09/2025",
        "Calibration Due": "21/09/2026", "Declared By": "Jory Penhallick", "Position": "Senior technician",
        "Date Declared": "13/03/2026", "Signature": "signature_penhallick.png",
        "Remarks": "Items marked FAIL were labelled and handed to the caretaker. The open item is to be tested when the "
                   "refrigerator has been cleared.",
    }


def _results_values(rows):
    first = dict(zip(CSV_HEADER, rows[0]))
    year, month, day = first["Test Date"][:4], first["Test Date"][4:6], first["Test Date"][6:]
    values = {"Location": first["Location"], "Test Date": f"{day}/{month}/{year}", "Operator": first["Operator"]}
    for line, row in enumerate(rows, 1):
        record = dict(zip(CSV_HEADER, row))
        values.update({f"{name} {line}": record[name] for name in CSV_HEADER[3:]})
    return values


def data():
    """What importing the instrument's file gives: sorted by location and asset, a page for each 20 of a location."""
    rows = sorted(ROWS, key=lambda row: (row[2], row[3]))
    found = [(COVER, _cover_values())]
    for location in sorted({row[2] for row in rows}):
        here = [row for row in rows if row[2] == location]
        found += [(RESULTS, _results_values(here[at:at + LINES])) for at in range(0, len(here), LINES)]
    found[-1][1].update({"Checked By": "Tamsin Orrell", "Date Checked": "13/03/2026"})
    return found

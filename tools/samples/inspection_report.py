"""The Installation Inspection Report: report page, schedule of inspections, and pairs of landscape circuit schedules."""

from samples import formulas as f
from samples.design import CENTRE, DATE_FIELD, LANDSCAPE, MUTED, PICTURE_FIELD, RIGHT, UNDERLINE_BORDER, Page
from samples.house_style import MARGIN, TEAL_STYLE, TOP, heading_row, on_the_line, row_cells
from samples.inspection_data import CIRCUITS, ITEMS, OBSERVATIONS
from samples.summary_table import summary_table

NAME = "installation_inspection_report"
DRIVER = "MF720"
LIST = "wiring_systems"
REPORT, SCHEDULE, DETAILS, TESTS = "Report", "Schedule of Inspections", "Circuit Details", "Circuit Tests"
LINKED_PAGES = f"{DETAILS}|{TESTS}\r\n".encode()
LINES, OBSERVATION_LINES = 12, 6
CSV_HEADER = ("Test Date", "Board", "Board Location", "Circuit", "Description", "Wiring", "Points", "Live", "CPC", "Device",
              "Rating", "Breaking", "RCD mA", "R1R2", "Insulation", "Max Zs", "Zs", "RCD ms", "Polarity")
CSV_TYPES = {"Test Date": "DATE", "Circuit": "NUMBER", "Polarity": "BOOLEAN"}
LIST_HEADER = ("Code", "Wiring system")
LIST_TYPES = {}
LIST_ROWS = (("A", "Flat twin and earth"), ("B", "Singles in steel conduit"), ("C", "Singles in plastic conduit"),
             ("D", "Singles in trunking"), ("E", "Steel wire armoured"), ("F", "Mineral insulated"),
             ("G", "Flexible cord"))


def _source(column):
    return f"{column},DRIVERS\\{DRIVER}"


def _report():
    page = Page(REPORT)
    page.picture(MARGIN, TOP, 1050, 1050, "companylogo.bmp")
    page.label(2055, 705, 7200, 420, TEAL_STYLE.organisation, size=16, bold=True, color=TEAL_STYLE.dark)
    page.label(2055, 1170, 7200, 240, "11 Customs Quay, Tarnside  ·  telephone 01632 960 227", size=8, color=MUTED)
    TEAL_STYLE.band(page, 1830, "Installation Inspection Report",
                    "Periodic inspection and testing of a fixed electrical installation", 900)
    _installation(page)
    _extent(page)
    _supply(page)
    _instrument(page)
    _assessment(page)
    TEAL_STYLE.footer(page)
    return page


def _installation(page):
    TEAL_STYLE.section(page, 2910, "Installation")
    page.cell(MARGIN, 3240, 5100, "Client", "Client")
    page.cell(5955, 3240, 2550, "Report number", "Report Number")
    page.cell(8505, 3240, 2550, "Use of the premises", "Use", List="Dwelling,Shop,Office,Workshop,School")
    page.cell(MARGIN, 3810, 5100, "Address of the installation", "Address", height=1140, wrap=True)
    page.cell(5955, 3810, 2550, "Date of inspection", "Inspection Date", kind=DATE_FIELD, Format="Short Date")
    date = f.ref(REPORT, "Inspection Date")
    page.cell(8505, 3810, 2550, "Day of the week", "Inspection Day", formula=f.set_me(f.call("DAYOFWEEK", date)))
    page.cell(5955, 4380, 2550, "Estimated age, years", "Age")
    page.cell(8505, 4380, 2550, "Last inspection", "Last Inspection", kind=DATE_FIELD, Format="Short Date")


def _extent(page):
    TEAL_STYLE.section(page, 5130, "Extent and limitations")
    page.cell(MARGIN, 5460, 5100, "Covered by this report", "Extent", height=1245, size=9, wrap=True)
    page.cell(5955, 5460, 5100, "Limitations agreed with the client", "Limitations", height=1245, size=9, wrap=True)


def _supply(page):
    TEAL_STYLE.section(page, 6885, "Supply and limits")
    page.cell(MARGIN, 7215, 1695, "Earthing", "Earthing", List="TN-S,TN-C-S,TT,IT")
    page.cell(2550, 7215, 1695, "Nominal voltage, V", "Voltage", List="230,400")
    page.cell(4245, 7215, 1695, "External impedance, Ω", "Ze", Format="0.00")
    page.cell(5940, 7215, 1710, "Prospective fault, kA", "Fault Current", Format="0.00")
    page.cell(7650, 7215, 1695, "Insulation, at least, MΩ", "Insulation Limit", editable=True, Format="0.00",
              formula=f.preset(1))
    page.cell(9345, 7215, 1710, "RCD trip, at most, ms", "RCD Limit", editable=True, Format="0", formula=f.preset(300))


def _instrument(page):
    TEAL_STYLE.section(page, 7965, "Test instrument")
    page.cell(MARGIN, 8295, 2550, "Instrument", "Instrument", List="Orvane MF720,Orvane MF740")
    page.cell(3405, 8295, 2040, "Serial number", "Serial Number")
    page.cell(5445, 8295, 1800, "Calibrated on", "Calibrated On", kind=DATE_FIELD, Format="Short Date")
    page.cell(7245, 8295, 1800, "Calibration due", "Calibration Due", kind=DATE_FIELD, Format="Short Date")
    page.cell(9045, 8295, 2010, "On the day of testing", "Calibration Status", bold=True, formula=f.set_me(
        f.in_date(*(f.ref(REPORT, name) for name in ("Inspection Date", "Calibrated On", "Calibration Due")))))


def _assessment(page):
    TEAL_STYLE.section(page, 9045, "Assessment by the inspector")
    page.cell(MARGIN, 9375, 5100, "Overall assessment of the installation", "Assessment", bold=True,
              List="SATISFACTORY,UNSATISFACTORY")
    page.cell(5955, 9375, 5100, "Next inspection recommended within, months", "Months To Next", List="12,36,60,120")
    page.cell(MARGIN, 9945, 5100, "General condition", "Condition", height=1260, size=9, wrap=True)
    page.cell(5955, 9945, 5100, "Distribution board as found", "Photograph", height=2400, kind=PICTURE_FIELD)
    page.cell(MARGIN, 11205, 5100, "Inspected and tested by", "Inspector")
    page.cell(MARGIN, 11775, 5100, "Date", "Date Signed", kind=DATE_FIELD, Format="Short Date")
    page.cell(MARGIN, 12345, 5100, "Signature", "Signature", height=1140, kind=PICTURE_FIELD)
    page.cell(5955, 12345, 5100, "Authorised for issue by", "Authorised By")
    page.cell(5955, 12915, 5100, "Circuit tests stand on pages", "Tests On Pages",
              formula=f.set_me(f.call("DESIGNPAGENUMBERS", f.word(TESTS))))
    page.label(MARGIN, 13740, 10200, 660, "The assessment is the inspector's own. The last page of circuit tests derives "
               "one from the schedules and says whether the two agree. This report describes the condition of the "
               "installation on the date of inspection and is to be kept with its records.", size=8, color=MUTED)


def _schedule():
    page = Page(SCHEDULE)
    TEAL_STYLE.band(page, TOP, SCHEDULE)
    _legend(page)
    y = {0: 1635, 1: 1635}
    for number, (title, items) in enumerate(ITEMS):
        column = number % 2
        x = MARGIN + column * 5175
        TEAL_STYLE.section(page, y[column], f"{number + 1}  {title}", x=x, width=5025)
        y[column] += 375
        for item, caption in enumerate(items, 1):
            page.check(f"Item {number + 1}.{item}", x + 60, y[column], 4965, 330, f"{number + 1}.{item}  {caption}")
            y[column] += 345
        y[column] += 120
    _observations(page, 10080)
    _outcome(page, 13440)
    TEAL_STYLE.footer(page)
    return page


def _legend(page):
    page.label(MARGIN, 1215, 10200, 270, "Blank: not yet inspected   ·   Tick: satisfactory   ·   Dash: not applicable   ·   "
               "Question mark: see observations below", size=9, color=MUTED)


def _observations(page, y):
    TEAL_STYLE.section(page, y, "Observations")
    widths = [360, 1005, 7575, 1260]
    heading_row(page, y + 330, 300, list(zip(widths, ("No.", "Item", "Observation", "Priority"))), TEAL_STYLE)
    page.grid(MARGIN, y + 630, widths, 375, OBSERVATION_LINES)
    for line in range(1, OBSERVATION_LINES + 1):
        number, item, text, priority = row_cells(y + 630 + (line - 1) * 375, widths, 375)
        page.label(*on_the_line(number), str(line), size=8, color=MUTED, align=CENTRE)
        page.field(f"Observed Item {line}", *item, align=CENTRE)
        page.field(f"Observation {line}", *text)
        page.field(f"Priority {line}", *priority, align=CENTRE, bold=True, List="A,B,C")
    page.label(MARGIN, y + 2910, 10200, 240, "A: danger present, made safe or disconnected   ·   B: potentially dangerous, "
               "urgent remedy   ·   C: improvement recommended", size=8, color=MUTED)


def _outcome(page, y):
    """Each observation is rated on its own first; the fields of these ratings are neither shown nor printed."""
    ratings = []
    for line in range(1, OBSERVATION_LINES + 1):
        item, text, priority = (f.ref(SCHEDULE, f"{name} {line}") for name in ("Observed Item", "Observation", "Priority"))
        rating = f.call("INTERPRET", priority, f.word("A"), f.FAIL, f.word("B"), f.FAIL, f.word("C"), f.PASS)
        blank = f.is_empty(f.call("CONCATENATE", item, text, priority))
        known = f.any_of(*[f.equal(priority, f.word(letter)) for letter in "ABC"])
        page.field(f"Rating {line}", MARGIN + line * 600, y + 1500, 570, hidden=True,
                   formula=f.set_me(f.if_(blank, f.EMPTY, f.if_(known, rating, f.OPEN))))
        ratings.append(f.ref(SCHEDULE, f"Rating {line}"))
    TEAL_STYLE.section(page, y, "Outcome of the inspection")
    boxes = [f.ref(SCHEDULE, name) for name in page.checks]
    counts = (("Not Inspected", "Not inspected", f.call("SUBTRACT", len(boxes), f.call("ADD", *[
        f.count_equal(boxes, state) for state in (1, 2, 3)]))), ("Satisfactory", "Satisfactory", f.count_equal(boxes, 1)),
        ("Not Applicable", "Not applicable", f.count_equal(boxes, 2)),
        ("For Observation", "With observation", f.count_equal(boxes, 3)))
    for number, (name, caption, count) in enumerate(counts):
        page.cell(MARGIN + number * 1785, y + 330, 1785, caption, name, formula=f.set_me(count))
    page.cell(MARGIN + 7140, y + 330, 3060, "Outcome", "Outcome", bold=True, formula=f.set_me(_outcome_word(ratings)))
    page.cell(MARGIN, y + 900, 10200, "Remarks", "Remarks", height=1140, size=9, wrap=True)


def _outcome_word(ratings):
    """A question mark without any observation leaves the schedule incomplete."""
    left = f.call("GREATERTHAN", f.ref(SCHEDULE, "Not Inspected"), 0)
    unexplained = f.all_of(f.call("GREATERTHAN", f.ref(SCHEDULE, "For Observation"), 0),
                           f.is_empty(f.call("CONCATENATE", *ratings)))
    incomplete = f.any_of(left, unexplained, f.any_is(ratings, f.OPEN))
    return f.if_(f.any_is(ratings, f.FAIL), f.word("UNSATISFACTORY"),
                 f.if_(incomplete, f.word("INCOMPLETE"), f.word("SATISFACTORY")))


ROW, FIRST_ROW = 375, 2400


def _board_head(page):
    page.cell(MARGIN, 1215, 3000, "Board", "Board", DataSource=_source("Board"), KeyLevel=1, MultiRecordIndex=0,
              NewPageOnChange=True)
    page.cell(3855, 1215, 5535, "Location", "Board Location", DataSource=_source("Board Location"), MultiRecordIndex=0)
    page.cell(9390, 1215, 3000, "Test date", "Test Date", kind=DATE_FIELD, Format="Short Date",
              DataSource=_source("Test Date"), MultiRecordIndex=0)
    page.cell(12390, 1215, 3600, "Report number", "Report Number",
              formula=f.set_me(f.call("CONCATENATE", f.ref(REPORT, "Report Number"))))


def _circuit(page, line, cells):
    bound = {"MultiRecordIndex": line - 1}
    page.field(f"Circuit {line}", *cells["Circuit"], align=CENTRE, DataSource=_source("Circuit"), KeyLevel=2,
               NewLineOnReoccur=True, **bound)
    page.field(f"Description {line}", *cells["Description"], DataSource=_source("Description"), **bound)
    return bound


DETAIL_COLUMNS = (("Circuit", 900, "Circuit"), ("Description", 4200, "Description"), ("Wiring", 1200, "Wiring\nsystem"),
                  ("Points", 1050, "Points\nserved"), ("Live", 1200, "Live\nmm²"), ("CPC", 1200, "Protective\nmm²"),
                  ("Device", 2100, "Protective\ndevice"), ("Rating", 1095, "Rating\nA"),
                  ("Breaking", 1095, "Breaking\nkA"), ("RCD mA", 1095, "RCD\nmA"))


def _details():
    page = Page(DETAILS, LANDSCAPE, drivers=f"{DRIVER}\\Data")
    TEAL_STYLE.band(page, TOP, DETAILS)
    _board_head(page)
    widths = [width for _, width, _ in DETAIL_COLUMNS]
    heading_row(page, 1890, 510, [(width, caption) for _, width, caption in DETAIL_COLUMNS], TEAL_STYLE)
    page.grid(MARGIN, FIRST_ROW, widths, ROW, LINES)
    for line in range(1, LINES + 1):
        boxes = row_cells(FIRST_ROW + (line - 1) * ROW, widths, ROW)
        cells = dict(zip((name for name, _, _ in DETAIL_COLUMNS), boxes))
        bound = _circuit(page, line, cells)
        for name, _, _ in DETAIL_COLUMNS[2:]:
            more = {"List": f"@LISTS\\{LIST},Code"} if name == "Wiring" else {}
            page.field(f"{name} {line}", *cells[name], align=CENTRE, DataSource=_source(name), **bound, **more)
    TEAL_STYLE.section(page, 7140, "Wiring systems")
    for number, (code, meaning) in enumerate(LIST_ROWS):
        x, y = MARGIN + number % 4 * 3780, 7500 + number // 4 * 300
        page.label(x + 60, y, 300, 270, code, bold=True, color=TEAL_STYLE.dark)
        page.label(x + 360, y, 3300, 270, meaning)
    TEAL_STYLE.section(page, 8250, "Remarks on the board")
    page.outline(MARGIN, 8580, 15135, 2040)
    page.field("Remarks", MARGIN + 45, 8610, 15045, 1980, wrap=True)
    TEAL_STYLE.footer(page)
    return page


TEST_COLUMNS = (("Circuit", 900, "Circuit"), ("Description", 3285, "Description"), ("R1R2", 1155, "R1+R2\nΩ"),
                ("Insulation", 1155, "Insulation\nMΩ"), ("Insulation Result", 900, "Result"), ("Max Zs", 1155, "Zs allowed\nΩ"),
                ("Zs", 1155, "Zs measured\nΩ"), ("Zs Result", 900, "Result"), ("RCD mA", 975, "RCD\nmA"),
                ("RCD ms", 975, "RCD trip\nms"), ("RCD Result", 900, "Result"), ("Polarity", 780, "Polarity"),
                ("Verdict", 900, "Verdict"))


def _tests():
    page = Page(TESTS, LANDSCAPE, drivers=f"{DRIVER}\\Data")
    TEAL_STYLE.band(page, TOP, TESTS)
    _board_head(page)
    widths = [width for _, width, _ in TEST_COLUMNS]
    heading_row(page, 1890, 510, [(width, caption) for _, width, caption in TEST_COLUMNS], TEAL_STYLE)
    page.grid(MARGIN, FIRST_ROW, widths, ROW, LINES)
    for line in range(1, LINES + 1):
        boxes = row_cells(FIRST_ROW + (line - 1) * ROW, widths, ROW)
        _test_line(page, line, dict(zip((name for name, _, _ in TEST_COLUMNS), boxes)))
    summary_table(page, TEAL_STYLE, 7125, [f.ref(TESTS, f"Verdict {line}") for line in range(1, LINES + 1)],
                  ("Circuits", "Passed", "Failed", "Open"), "All circuits (last page of tests)",
                  f.equal(f.ref(REPORT, "Calibration Status"), f.word("In date")))
    _agreement(page)
    TEAL_STYLE.section(page, 9435, "Remarks on the tests")
    page.outline(MARGIN, 9765, 15135, 1050)
    page.field("Remarks", MARGIN + 45, 9795, 15045, 990, wrap=True)
    TEAL_STYLE.footer(page)
    return page


def _test_line(page, line, cells):
    own = {name: f.ref(TESTS, f"{name} {line}") for name, _, _ in TEST_COLUMNS}
    bound = _circuit(page, line, cells)
    x, y, _, height = cells["Polarity"]
    page.check(f"Polarity {line}", x + 240, y, 300, height, DataSource=_source("Polarity"), **bound)
    for name in ("R1R2", "Insulation", "Max Zs", "Zs", "RCD mA", "RCD ms"):
        page.field(f"{name} {line}", *cells[name], align=RIGHT, inset=150, DataSource=_source(name), **bound)
    rcd = f.judged(own["RCD ms"], f.ref(REPORT, "RCD Limit"), f.within_maximum)
    results = {
        "Insulation Result": f.judged(own["Insulation"], f.ref(REPORT, "Insulation Limit"), f.within_minimum),
        "Zs Result": f.judged(own["Zs"], own["Max Zs"], f.within_maximum),
        "RCD Result": f.if_(f.is_empty(own["RCD mA"]), f.word("n/a"), rcd),
    }
    for name, result in results.items():
        page.field(f"{name} {line}", *on_the_line(cells[name]), size=8, align=CENTRE,
                   formula=f.set_me(f.if_(f.is_empty(own["Circuit"]), f.EMPTY, result)))
    page.field(f"Verdict {line}", *cells["Verdict"], bold=True, align=CENTRE,
               formula=f.set_me(f.line_verdict(own["Circuit"], own["Polarity"], [own[name] for name in results])))


def _agreement(page):
    """What the schedules say together, on the last page of tests, against what the inspector stated."""
    x, y, width = 11340, 7125, 4650
    TEAL_STYLE.section(page, y, "Result of the report", x=x, width=width)
    last = f.is_last_page_of(TESTS)
    schedule, stated = f.ref(SCHEDULE, "Outcome"), f.ref(REPORT, "Assessment")
    tests, derived = f.ref(TESTS, "Record Result"), f.ref(TESTS, "Derived Assessment")
    bad, good = f.word("UNSATISFACTORY"), f.word("SATISFACTORY")
    together = f.if_(f.any_of(f.equal(schedule, bad), f.equal(tests, f.FAIL)), bad,
                     f.if_(f.all_of(f.equal(schedule, good), f.equal(tests, f.PASS)), good, f.word("INCOMPLETE")))
    agreement = f.if_(f.is_empty(stated), f.word("Not stated"),
                      f.if_(f.equal(derived, stated), f.word("Agrees"), f.word("DIFFERS, see page 1")))
    rows = (("Schedule of inspections", "Schedule Outcome", schedule), ("Circuit tests", "Tests Outcome", tests),
            ("Derived from both", "Derived Assessment", together), ("Stated by the inspector", "Stated Assessment", stated),
            ("Comparison", "Agreement", agreement))
    for number, (caption, name, value) in enumerate(rows):
        top = y + 360 + number * 345
        page.label(x + 60, top, 2190, 270, caption, color=MUTED)
        page.field(name, x + 2295, top, 2355, 285, bold=True, border=UNDERLINE_BORDER,
                   formula=f.set_me(f.if_(last, f.call("CONCATENATE", value), f.EMPTY)))


def pages():
    return [_report(), _schedule(), _details(), _tests()]


def _report_values():
    return {
        "Client": "Pellworth Packaging Ltd", "Report Number": "TBI-2026-0094", "Use": "Workshop",
        "Address": "Unit 7, Sallow Road\nPellworth\nPW2 3LD", "Inspection Date": "18/03/2026", "Age": "14",
        "Last Inspection": "22/03/2021",
        "Extent": "All circuits of boards DB1 and DB2, with every outlet of the workshop and the offices that could be "
                  "reached without dismantling machinery.",
        "Limitations": "Cables in the ceiling void were not followed. The compressor stayed connected during insulation "
                       "tests and was tested between live conductors joined and earth only.",
        "Earthing": "TN-C-S", "Voltage": "400", "Ze": "0.18", "Fault Current": "2.36", "Instrument": "Orvane MF720",
        "Serial Number": "MF7-11852", "Calibrated On": "04/08/2025", "Calibration Due": "03/08/2026",
        "Assessment": "SATISFACTORY", "Months To Next": "36",
        "Condition": "Well kept. Boards are labelled and closed, terminals tight, no signs of heat.",
        "Photograph": "distribution_board.png", "Inspector": "Rowan Castell", "Date Signed": "19/03/2026",
        "Signature": "signature_castell.png", "Authorised By": "Imogen Farr",
    }


def _schedule_values():
    values = {f"Item {group}.{item}": 1 for group, (_, items) in enumerate(ITEMS, 1) for item in range(1, len(items) + 1)}
    values.update({"Item 1.6": 2, "Item 3.5": 2, "Item 4.4": 2, "Item 4.7": 2, "Item 2.7": 3, "Item 3.8": 3})
    for line, observation in enumerate(OBSERVATIONS, 1):
        values.update(zip((f"Observed Item {line}", f"Observation {line}", f"Priority {line}"), observation))
    return values


def _board_values(page, rows):
    first = dict(zip(CSV_HEADER, rows[0]))
    date = first["Test Date"]
    values = {"Board": first["Board"], "Board Location": first["Board Location"],
              "Test Date": f"{date[6:]}/{date[4:6]}/{date[:4]}"}
    for line, row in enumerate(rows, 1):
        for name, value in list(zip(CSV_HEADER, row))[3:]:
            if f"{name} {line}" in page.fields:
                values[f"{name} {line}"] = value
            elif f"{name} {line}" in page.checks:
                values[f"{name} {line}"] = abs(value)
    return values


def data():
    """What importing the instrument's file gives: a pair of pages for each board."""
    details, tests = _details(), _tests()
    found = [(REPORT, _report_values()), (SCHEDULE, _schedule_values())]
    for board in sorted({row[1] for row in CIRCUITS}):
        rows = sorted((row for row in CIRCUITS if row[1] == board), key=lambda row: row[3])
        found += [(DETAILS, _board_values(details, rows)), (TESTS, _board_values(tests, rows))]
    return found

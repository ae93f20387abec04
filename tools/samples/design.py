"""Design pages of a form: every element a record of keys, placed in twips on a grid of 15 (one screen pixel)."""

from samples.text_metrics import check_fit, text_width

LEFT, RIGHT, CENTRE = 0, 1, 2
PORTRAIT, LANDSCAPE = 1, 2
TEXT_FIELD, PICTURE_FIELD, DATE_FIELD = 0, 1, 2
NO_BORDER, BOX_BORDER, UNDERLINE_BORDER = 0, 1, 2
GRID = 15
A4_CODE = 9
A4_SHORT, A4_LONG = 11906, 16838
LINE_BREAK = "\x7f"


def rgb(red, green, blue):
    """A colour as forms hold it: red in the low byte."""
    return red + green * 256 + blue * 65536


INK = rgb(26, 30, 36)
MUTED = rgb(92, 102, 114)
RULE = rgb(168, 178, 189)
WHITE = rgb(255, 255, 255)


class Page:
    """One design page: its own keys, its records in drawing order, and what a data page of it holds."""

    def __init__(self, title, orientation=PORTRAIT, drivers="", pre_printed=""):
        self.title = title
        self.orientation = orientation
        self.width, self.height = (A4_SHORT, A4_LONG) if orientation == PORTRAIT else (A4_LONG, A4_SHORT)
        self.keys = {"Title": title, "BackGround": WHITE, "Orientation": orientation, "PaperSize": A4_CODE}
        if drivers:
            self.keys["Drivers"] = drivers
        if pre_printed:
            self.keys["PrePrinted"] = pre_printed
        self.records = []
        self.fields, self.checks, self.picture_fields = {}, [], []
        self._tab = 0

    # --- fixed elements ---

    def label(self, x, y, width, height, text, size=9, bold=False, italic=False, align=LEFT, color=INK,
              border=NO_BORDER):
        check_fit(text, size, bold, width, height, self.title)
        self._add("LABEL", {"Caption": text.replace("\n", LINE_BREAK), **self._box(x, y, width, height),
                            **_font(size, bold, italic, color), "Alignment": align, "BorderStyle": border})

    def rule(self, x, y, width, color=RULE, thickness=1, pattern=1):
        self._line(x, y, width, GRID, color, thickness, pattern)

    def upright(self, x, y, height, color=RULE, thickness=1):
        self._line(x, y, GRID, height, color, thickness, 1)

    def frame(self, x, y, width, height):
        self._add("FRAME", {**self._box(x, y, width, height), "BorderStyle": BOX_BORDER})

    def fill(self, x, y, width, height, color, shape=0):
        self._shape(x, y, width, height, color, 0, color, shape)

    def outline(self, x, y, width, height, color=RULE, shape=0):
        self._shape(x, y, width, height, WHITE, 1, color, shape)

    def picture(self, x, y, width, height, file_name, border=NO_BORDER):
        self._add("PICTURE", {"Picture": file_name, "Left": x, "Top": y, **self._box(x, y, width, height),
                              "Stretch": True, "BorderStyle": border})

    # --- elements with data ---

    def field(self, name, x, y, width, height=270, kind=TEXT_FIELD, size=9, bold=False, align=LEFT, color=INK,
              border=NO_BORDER, wrap=False, formula=None, editable=False, hidden=False, inset=60, **more):
        """A data field. One with a formula is read-only unless `editable`. A right-aligned one ends `inset` before its
        box. `more` are further keys as they stand."""
        if align == RIGHT:
            width -= inset
        self._remember(name)
        self.fields[name] = {"size": size, "bold": bold, "width": width, "height": height, "wrap": wrap}
        if kind == PICTURE_FIELD:
            self.picture_fields.append(name)
        record = {"Name": name, "FieldType": kind, **self._box(x, y, width, height), **_font(size, bold, False, color),
                  "WordWrap": wrap, "Alignment": align, "ReadOnly": bool(formula) and not editable,
                  "BorderStyle": border, "TabIdx": self._next_tab()}
        if hidden:
            record.update({"Visible": False, "Printable": False})
        if formula:
            record["Formula"] = formula
        self._add("FIELD", {**record, **more})

    def check(self, name, x, y, width, height, caption="", size=9, **more):
        """A check box of four states: blank, tick, dash, question mark."""
        if caption:
            check_fit(caption, size, False, width - 260, height, self.title)
        self._remember(name)
        self.checks.append(name)
        self._add("CHECK", {"Name": name, "Style": 0, "Caption": caption, "States": 4,
                            **self._box(x, y, width, height), **_font(size, False, False, INK),
                            "TabIdx": self._next_tab(), **more})

    # --- groups ---

    def section(self, x, y, width, text, fill, color):
        """A heading on a light band."""
        self.fill(x, y, width, 330, fill)
        self.label(x + 60, y + 15, width - 120, 300, text, size=10, bold=True, color=color)

    def cell(self, x, y, width, caption, name, height=570, **more):
        """A boxed field under its small caption."""
        self.outline(x, y, width + (GRID if x + width + GRID < self.width - 855 else 0), height + GRID)
        self.label(x + 45, y + 15, width - 90, 210, caption, size=7, color=MUTED)
        self.field(name, x + 45, y + 225, width - 90, height - 255, **{"size": 10, **more})

    def grid(self, x, y, widths, row_height, rows):
        """The rules of a table: `rows` rows below `y`."""
        for row in range(rows + 1):
            self.rule(x, y + row * row_height, sum(widths))
        edges = [x + sum(widths[:column]) for column in range(len(widths))]
        for edge in [*edges, x + sum(widths) - GRID]:
            self.upright(edge, y, rows * row_height + GRID)

    # --- text ---

    def lines(self, number):
        """The page's lines in a form's text."""
        yield f"\tBEGIN PAGE {number}"
        yield from (f"\t\t{key}={value}" for key, value in self.keys.items())
        for word, keys in self.records:
            yield f"\t\tBEGIN {word}"
            yield from (f"\t\t\t{key}={value}" for key, value in keys.items())
            yield f"\t\tEND {word}"
        yield "\tEND PAGE"

    def data_lines(self, number, design, values):
        """The lines of one data page, in the order in which the program writes them: fields, boxes, pictures."""
        unknown = set(values) - set(self.fields) - set(self.checks)
        if unknown:
            raise ValueError(f"{self.title}: no such elements: {sorted(unknown)}")
        yield f"\tBEGIN PAGE {number} DESIGN={design}"
        texts = [name for name in self.fields if name not in self.picture_fields]
        for name in texts:
            value = str(values.get(name, ""))
            self._check_value(name, value)
            yield f"\t\t{name}={value}".replace("\n", LINE_BREAK)
        yield from (f"\t\t{name}={values.get(name, 0)}" for name in self.checks)
        yield from (f"\t\t{name}={values.get(name, '')}" for name in self.picture_fields)
        yield "\tEND PAGE"

    def _check_value(self, name, value):
        place = self.fields[name]
        if place["wrap"]:
            check_fit(value, place["size"], place["bold"], place["width"], place["height"], f"{self.title}, {name}")
        elif text_width(value, place["size"], place["bold"]) > place["width"] - 30:
            raise ValueError(f"{self.title}, {name}: '{value}' is wider than its field")

    def _line(self, x, y, width, height, color, thickness, pattern):
        self._add("LINE", {**self._box(x, y, width, height), "BorderType": pattern, "BorderWidth": thickness,
                           "Direction": 0, "BorderColor": color})

    def _shape(self, x, y, width, height, fill, style, border, shape):
        self._add("SHAPE", {**self._box(x, y, width, height), "Shape": shape, "BorderType": 1, "BorderWidth": 1,
                            "BorderColor": border, "FillColor": fill, "FillStyle": style})

    def _box(self, x, y, width, height):
        off_grid = [value for value in (x, y, width, height) if value % GRID]
        if off_grid:
            raise ValueError(f"{self.title}: {off_grid} lie off the grid")
        if min(x, y) < 0 or min(width, height) <= 0 or x + width > self.width or y + height > self.height:
            raise ValueError(f"{self.title}: box {x}, {y}, {width}, {height} leaves the paper")
        return {"AbsLeft": x, "AbsTop": y, "Width": width, "Height": height}

    def _add(self, word, keys):
        self.records.append((word, keys))

    def _remember(self, name):
        if name in self.fields or name in self.checks:
            raise ValueError(f"{self.title}: two elements named '{name}'")

    def _next_tab(self):
        self._tab += 1
        return self._tab


def _font(size, bold, italic, color):
    return {"FontName": "Arial", "FontSize": size, "FontBold": bold, "FontItalic": italic, "FontUnderline": False,
            "FontStrikethru": False, "ForeColor": color}


def form_text(pages, data=()):
    """A form's whole text. `data` are pairs of a design's title and the values of one data page."""
    numbers = {page.title: number for number, page in enumerate(pages, 1)}
    lines = ["VERSION 1.0.0", "BEGIN DESIGN"]
    for number, page in enumerate(pages, 1):
        lines += page.lines(number)
    lines += ["END DESIGN", "BEGIN DATA"]
    for number, (title, values) in enumerate(data, 1):
        lines += pages[numbers[title] - 1].data_lines(number, numbers[title], values)
    lines.append("END DATA")
    return "".join(line + "\r\n" for line in lines)

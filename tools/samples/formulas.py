"""Formulas of the sample forms, put together from calls, so that no blank or parenthesis goes astray.

Verdicts have three words: PASS, FAIL and OPEN. OPEN means that something needed for a verdict is missing or can't be
read, so nothing passes by accident: a text that is no number reads as 0 in a comparison.
"""


def call(name, *arguments):
    return f"{name}({','.join(str(argument) for argument in arguments)})"


def word(text):
    """A text literal. Parentheses in one would spoil the search for a call's end."""
    if any(character in text for character in "()\""):
        raise ValueError(f"'{text}' can't stand in a formula")
    return f'"{text}"'


EMPTY = word("")
PASS, FAIL, OPEN = word("PASS"), word("FAIL"), word("OPEN")


def ref(design, field):
    return f"{{FIELDS\\{design},{field}}}"


def set_me(*values):
    """One statement for each value; a later one sees the earlier as ME."""
    return ";".join(call("SETME", value) for value in values)


def if_(condition, yes, no):
    return call("IF", condition, yes, no)


def is_empty(value):
    return call("ISEMPTY", value)


def any_of(*conditions):
    return call("OR", *conditions)


def all_of(*conditions):
    return call("AND", *conditions)


def not_(condition):
    return call("NOT", condition)


def equal(value, other):
    return call("EQUAL", value, other)


def holds(value, part):
    return call("INSTRING", value, word(part))


def at_most(value, limit):
    return not_(call("GREATERTHAN", value, limit))


def at_least(value, limit):
    return not_(call("LESSTHAN", value, limit))


def starts_with(value, part):
    """The letter in front keeps both sides texts: a literal that looks like a number would become one."""
    return equal(call("CONCATENATE", word("a"), call("MID", value, 1, len(part))), word("a" + part))


def is_plain(value):
    """No letters, and no comma that this system would not read as the decimal point. A number is read as far as it
    goes, so "0,47" would else be 0 and "1.2 k" would be 1.2. Letters shorten the number behind the leading 1."""
    digits = call("CONCATENATE", 1, call("STRIPNONALPHA", value))
    no_letters = equal(call("LENGTH", call("ADD", digits, 0)), call("LENGTH", digits))
    return all_of(no_letters, any_of(not_(holds(value, ",")), holds(call("DIVIDE", 1, 2), ",")))


def is_number(value, signed=False):
    """A number above 0, or one that begins like a written 0; with `signed` also one below."""
    accepted = [call("GREATERTHAN", value, 0), starts_with(value, "0")]
    if signed:
        accepted += [call("LESSTHAN", value, 0), starts_with(value, "-0")]
    return all_of(is_plain(value), any_of(*accepted))


def without_mark(value, mark):
    return if_(holds(value, mark), call("MID", value, 2, 20), value)


def is_reading(value):
    """A number of 0 or more, also one marked as over or under range."""
    marked = any_of(holds(value, ">"), holds(value, "<"))
    return is_number(if_(marked, call("MID", value, 2, 20), value))


def within_maximum(reading, limit):
    """A reading over range fails a maximum whatever stands behind the mark."""
    return if_(holds(reading, ">"), word("False"), at_most(without_mark(reading, "<"), limit))


def within_minimum(reading, limit):
    return if_(holds(reading, "<"), word("False"), at_least(without_mark(reading, ">"), limit))


def judged(reading, limit, test, passed=word("Pass"), failed=word("Fail"), open_=word("Open")):
    """One reading against a limit above 0."""
    usable = all_of(is_reading(reading), call("GREATERTHAN", limit, 0))
    return if_(usable, if_(test(reading, limit), passed, failed), open_)


def line_verdict(present, check, results):
    """A line of a table: a four-state box (1 in order, 3 defect) and the results of its readings."""
    failed = any_of(equal(check, 3), any_is(results, word("Fail")))
    complete = all_of(equal(check, 1), not_(any_is(results, word("Open"))))
    return if_(is_empty(present), EMPTY, if_(failed, FAIL, if_(complete, PASS, OPEN)))


def in_date(day, first, last):
    """Dates compare as texts in stamp form; date fields keep them padded, so that they sort."""
    missing = any_of(*map(is_empty, (day, first, last)))
    return if_(missing, OPEN, if_(call("INRANGE", day, first, last), word("In date"), word("OUT OF DATE")))


def preset(value):
    """A field that the user may change; an empty one takes the value."""
    return set_me(if_(is_empty("ME"), value, "ME"))


def any_is(words, value):
    """Whether one of the words is `value`. Without a pass word OVERALL finds it wherever it stands."""
    return equal(call("OVERALL", EMPTY, value, *words), value)


def count_equal(values, wanted):
    return call("ADD", *[if_(equal(value, wanted), 1, 0) for value in values])


def fixed(value, digits):
    """A number of 0 or more with exactly so many digits behind the point."""
    scale = 10 ** digits
    scaled = call("ROUND", call("MULTIPLY", value, scale))
    fraction = call("MID", call("ADD", scale, call("REMAINDER", scaled, scale)), 2, digits)
    return call("CONCATENATE", call("TRUNCATE", call("DIVIDE", scaled, scale)), word("."), fraction)


def fixed_signed(scale, digits):
    """A second statement: ME holds `scale` times the number, rounded, or ""."""
    digits_text = fixed(call("DIVIDE", magnitude("ME"), scale), digits)
    return call("CONCATENATE", if_(call("LESSTHAN", "ME", 0), word("-"), EMPTY), digits_text)


def magnitude(value):
    return if_(call("LESSTHAN", value, 0), call("NEGATE", value), call("ADD", value, 0))


def _marked_page_numbers(design, before, after):
    return call("CONCATENATE", word(before), call("DESIGNPAGENUMBERS", word(design)), word(after))


def is_first_page_of(design):
    """Whether the page in hand is the first of its design: the numbers are separated by one blank."""
    return call("INSTRING", _marked_page_numbers(design, "~", " "), call("CONCATENATE", word("~"), "PAGENUMBER",
                                                                          word(" ")))


def is_last_page_of(design):
    return call("INSTRING", _marked_page_numbers(design, " ", "~"), call("CONCATENATE", word(" "), "PAGENUMBER",
                                                                          word("~")))


def brought_forward(design, field, start=0):
    """The field's value on the page before of that design. The first page says so itself: PREVIOUSVALUE would keep
    what stood there before pages were moved."""
    return if_(is_first_page_of(design), start, call("PREVIOUSVALUE", ref(design, field)))


def page_of_pages():
    return set_me(call("CONCATENATE", word("Page "), "PAGENUMBER", word(" of "), "PAGECOUNT"))

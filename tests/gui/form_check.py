"""Compares a window on the screen with the table that it should be made from, and its texts with the
room that they have."""

from gui_case import to_pixels

BUTTON_TYPE = 0xF
OWNER_DRAWN = 11
DROP_LIST_TYPE = 3

# The class of a control of each kind, and of a button its types; a push button may be the default.
CLASSES = {
    "static": ("static", None),
    "push button": ("button", (0, 1)),
    "multiline button": ("button", (0, 1)),
    "owner-drawn button": ("button", (OWNER_DRAWN,)),
    "check box": ("button", (3,)),
    "radio button": ("button", (9,)),
    "group box": ("button", (7,)),
    "drop list": ("combobox", None),
    "field": ("edit", None),
    "multiline field": ("edit", None),
    "list": ("listbox", None),
    "tab control": ("systabcontrol32", None),
    "tab page": ("cwl_tabpage", None),
    "focus sink": ("button", (0,)),
    "multiline field": ("edit", None),
    "slider": ("msctls_trackbar32", None),
    "numeric up-down": ("cwl_numericupdown", None),
    "splitter": ("splittercontrol", None),
    "digit count": ("digitcountcontrol", None),
    "container": ("scicalccontainercontrol", None),
    "number base": ("numberbasecontrol", None),
    "number type": ("numbertypecontrol", None),
    "unbroken field": ("edit", None),
    "grid": ("simplegridctl", None),
}

# Texts whose controls are as wide as Segoe UI needs. Under Wine another font stands in for it, and
# at some resolutions that is wider, so that their last letters are cut off there.
WIDE_IN_STAND_IN = {
    "Wissenschaftlicher Rechner",
    "Primzahlen && Primfaktoren",
    "Automatische Auswahl",
    "Tausendertrennzeichen",
    "Next prime number",
    "Prime number test",
    "Number of divisors",
    "probabilistic (max. 1253 decimal digits)",
    "probabilistisch (max. 1253 Dezimalziff.)",
    "Multiplicity",
    "Vielfachheit",
    "Genauigkeit",
}
# Labels that are lower than a line. Their letters have nothing down there.
LOW_LABELS = {"Base", "Basis"}
STAND_IN_EXCESS = 1.07  # as much wider or higher at most, mark and margins included


def offset_in(parent, control):
    return [control.rect[0] - parent.client[0], control.rect[1] - parent.client[1]]


def check_control(case, control, row, parent, text, dpi):
    kind = row["kind"]
    class_name, button_types = CLASSES[kind]
    case.assertEqual(class_name, control.class_name.lower())
    case.assertEqual(text, control.text)
    if button_types:
        case.assertIn(control.style & BUTTON_TYPE, button_types)
    if kind == "tab page":
        # What the titles of the tabs leave; the system knows how much that is.
        x, y = offset_in(parent, control)
        case.assertGreaterEqual(y, to_pixels([16], dpi)[0])
        case.assertLessEqual(x + control.rect[2], parent.client[2])
        case.assertLessEqual(y + control.rect[3], parent.client[3])
        return
    place = to_pixels(row["place"], dpi)
    case.assertEqual(place[:2], offset_in(parent, control))
    case.assertEqual(place[2], control.rect[2])
    if kind == "drop list":
        # A closed list is as high as its font asks for.
        case.assertEqual(DROP_LIST_TYPE, control.style & DROP_LIST_TYPE)
    else:
        case.assertEqual(place[3], control.rect[3])


def check_form(case, window, form, size, dpi, texts=None):
    """The controls of the window are those of the table, in its order, at their places and with
    their texts, or with those that `texts` has for a row; the client area has its size."""
    case.assertEqual(to_pixels(size, dpi), window.client[2:])
    shown = {-1: window}
    for index, row in enumerate(form):
        parent = shown[row["parent"]]
        siblings = [i for i, other in enumerate(form) if other["parent"] == row["parent"]]
        case.assertEqual(len(siblings), len(parent.children))
        control = parent.children[siblings.index(index)]
        shown[index] = control
        with case.subTest(dpi=dpi, row=index, kind=row["kind"]):
            text = (texts or {}).get(index, row["text"] or "")
            check_control(case, control, row, parent, text, dpi)


def text_places(window, texts):
    """The place of what is written in each static, and of every other control."""
    needed = {text["handle"]: text["needed"] for text in texts}
    for control in window.children:
        x, y, width, height = control.rect
        if control.class_name.lower() == "static":
            width, height = needed[control.handle]
        yield control, (x, y, width, height)


def check_texts(case, program, window, dpi):
    """Nothing is cut off or covered that somebody must read."""
    texts = program.probe.texts(window)
    handles = {text["handle"] for text in texts}
    for control in window.walk():
        if control.class_name.lower() in ("static", "button", "combobox", "systabcontrol32"):
            drawn_by_window = control.class_name.lower() == "button" \
                and control.style & BUTTON_TYPE == OWNER_DRAWN
            case.assertNotEqual(drawn_by_window, control.handle in handles, control.text)
    for text in texts:
        with case.subTest(dpi=dpi, text=text["text"]):
            excess = STAND_IN_EXCESS if text["text"] in WIDE_IN_STAND_IN else 1
            case.assertLessEqual(text["needed"][0], text["room"][0] * excess)
            excess = STAND_IN_EXCESS if text["text"] in LOW_LABELS else 1
            case.assertLessEqual(text["needed"][1], text["room"][1] * excess)
    places = list(text_places(window, texts))
    for i, (control, (x, y, width, height)) in enumerate(places):
        for other, (x2, y2, width2, height2) in places[:i]:
            case.assertFalse(x < x2 + width2 and x2 < x + width
                             and y < y2 + height2 and y2 < y + height,
                             f"{control.text!r} and {other.text!r} overlap at {dpi} dpi")

"""Compares a window on the screen with the table that it should be made from."""

from gui_case import to_pixels

BUTTON_TYPE = 0xF
DROP_LIST_TYPE = 3

# The class of a control of each kind, and of a button its types; a push button may be the default.
CLASSES = {
    "static": ("static", None),
    "push button": ("button", (0, 1)),
    "multiline button": ("button", (0, 1)),
    "owner-drawn button": ("button", (11,)),
    "check box": ("button", (3,)),
    "radio button": ("button", (9,)),
    "group box": ("button", (7,)),
    "drop list": ("combobox", None),
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
}


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

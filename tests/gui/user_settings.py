"""The settings file of a user, as the program reads and writes it."""


def settings_text(language="(automatic)", decimal="(automatic)", thousands="(automatic)",
                  grouping=(0, 0, 0), precision=10, hint=0):
    """The text of a settings file of somebody who has met About before."""
    return "\r\n".join([
        "[options]",
        f"language = {language}",
        f"decimal_separator = {decimal}",
        f"thousands_separator = {thousands}",
        f"thousands_sep_sci_calc = {grouping[0]}",
        f"thousands_sep_equations = {grouping[1]}",
        f"thousands_sep_prime_nums = {grouping[2]}",
        "[scientific_calculator]",
        "angle_type = rad",
        "number_type = real",
        f"decimal_precision = {precision}",
        "output_number_base = 10",
        "use_lower_case_hex = 0",
        "[hints]",
        f"show_welcome_hint = {hint}",
        ""])


def file_bytes(settings):
    return b"\xff\xfe" + settings.encode("utf-16-le")

"""Number, text and error rules of the control, each as the plainest code that states it.

The reference model follows the rules of the control one statement at a time; the tests hold the real thing against it.
"""
import re
import struct

DESCRIPTIONS = {
    5: "Invalid procedure call or argument",
    6: "Overflow",
    9: "Subscript out of range",
    13: "Type mismatch",
    457: "This key is already associated with an element of this collection",
}
LOWEST, HIGHEST = -(2**31), 2**31 - 1
NUMBER = re.compile(r"[+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eEdD][+-]?[0-9]+)?")
HEXADECIMAL = re.compile(r"&[Hh]([0-9A-Fa-f]+)")
OCTAL = re.compile(r"&[Oo]([0-7]+)")


class RunTimeError(Exception):
    """A run-time error with its number and description."""

    def __init__(self, number, description=None):
        super().__init__(number)
        self.number = number
        self.description = DESCRIPTIONS[number] if description is None else description


class Refused(Exception):
    """A call that fails towards the host."""


class Stopped(Exception):
    """Ends what was still running when the control was stopped."""


def trapped(location):
    """Makes a procedure report its run-time errors in the error dialog and return normally."""

    def wrap(procedure):
        def run(self, *arguments):
            try:
                return procedure(self, *arguments)
            except RunTimeError as error:
                self.report(error, location)
                return None

        return run

    return wrap


def leading_number(text):
    """The number at the start of a text, 0 when there is none; blanks, tabs and line feeds do not count."""
    text = "".join(character for character in text if character not in " \t\n")
    if found := HEXADECIMAL.match(text):
        return int(found[1], 16)
    if found := OCTAL.match(text):
        return int(found[1], 8)
    if found := NUMBER.match(text):
        return float(found[0].lower().replace("d", "e"))
    return 0


def checked_long(value):
    """A whole number that must fit 32 bits."""
    if not LOWEST <= value <= HIGHEST:
        raise RunTimeError(6)
    return value


def to_long(text):
    """The leading number, halves to the even neighbour, as a signed 32-bit integer."""
    value = leading_number(text)
    if value in (float("inf"), float("-inf")):
        raise RunTimeError(6)
    return checked_long(round(value))


def to_boolean(text):
    """True and False in any case, or a number that is not 0."""
    if text.lower() in ("true", "false"):
        return text.lower() == "true"
    try:
        return float(text) != 0
    except ValueError:
        raise RunTimeError(13) from None


def cell_number(text):
    """What a cell or a figure of our own holds; an empty one is 0."""
    return int(text) if text else 0


def single(value):
    """The single-precision neighbour of a double."""
    return struct.unpack("f", struct.pack("f", value))[0]


def rate_text(count, hours):
    """Count over hours with two decimals, as the shortest text of the single-precision value."""
    if hours == 0:
        return "0"
    value = single(round(count / hours * 100) / 100)
    for digits in range(17):
        text = f"{value:.{digits}e}"
        if single(float(text)) == value:
            return plain_notation(text)
    raise AssertionError(value)


def plain_notation(scientific):
    """1.25e+03 as 1250, 5e-02 as 0.05."""
    mantissa, exponent = scientific.split("e")
    sign = "-" if mantissa.startswith("-") else ""
    whole, _, fraction = mantissa.lstrip("-").partition(".")
    digits, point = whole + fraction, len(whole) + int(exponent)
    if digits.strip("0") == "":
        return "0"
    if point <= 0:
        digits, point = "0" * (1 - point) + digits, 1
    digits = digits.ljust(point, "0")
    fraction = digits[point:].rstrip("0")
    return sign + digits[:point] + ("." + fraction if fraction else "")


def fold(text):
    """Lower case, each character by itself and one for one."""
    return "".join(character.lower()[0] for character in text)


def add_new(dictionary, key, value):
    """Adds to a dictionary that takes each key once."""
    if key in dictionary:
        raise RunTimeError(457)
    dictionary[key] = value


def join_ids(ids):
    """Ids with a bar between them."""
    return "|".join(ids)


class FoldedCollection:
    """An ordered collection whose keys ignore letter case; a missing key gives None."""

    def __init__(self):
        self.members = {}

    def item(self, key):
        return self.members.get(fold(key))

    def add(self, key, member):
        add_new(self.members, fold(key), member)
        return member

    def remove(self, key):
        self.members.pop(fold(key), None)

    def __contains__(self, key):
        return fold(key) in self.members

    def __iter__(self):
        return iter(list(self.members.values()))

    def __len__(self):
        return len(self.members)

"""Texts and numbers as the desk compares and shows them."""
from decimal import ROUND_HALF_UP, Decimal

ZERO = Decimal(0)
MARK = "\U0010FFFD"  # behind the letter after which a letter of the alphabet stands
TURKISH = {"ç": "c" + MARK, "ğ": "g" + MARK, "ı": "h" + MARK, "İ": "i" + MARK, "ö": "o" + MARK, "ş": "s" + MARK, "ü": "u" + MARK}
AN_I = "İIiı"


def fold(text):
    """What compares and orders: case ignored, "I" the capital of "i", "ı" and "İ" letters of their own."""
    return "".join(TURKISH.get(letter if letter == "İ" else letter.lower(), letter if letter == "İ" else letter.lower()) for letter in text)


def same(one, other):
    return fold(one) == fold(other)


def begins(text, start):
    return [fold(letter) for letter in text[:len(start)]] == [fold(letter) for letter in start]


def begins_with_any_i(text, start, any_of=AN_I):
    """The start with each of the letters i as a wild card."""
    return len(text) >= len(start) and all(b in any_of or fold(a) == fold(b) for a, b in zip(text, start))


def lower(text):
    return "".join({"İ": "i", "I": "ı"}.get(letter, letter.lower()) for letter in text)


def rounded(number, places=2):
    return number.quantize(Decimal(1).scaleb(-places), ROUND_HALF_UP) + ZERO


def number(text):
    """What a field of an amount tells."""
    return Decimal(text.replace(".", "").replace(",", ".") or "0")


def shown(value, places=2):
    """1.234,50"""
    return f"{rounded(value, places):,.{places}f}".translate(str.maketrans(",.", ".,"))


def plain(value):
    """1234,5"""
    text = f"{value:f}"
    if "." in text:
        text = text.rstrip("0").rstrip(".")
    return text.replace(".", ",") or "0"


def grouped(text):
    """A typed amount with its thousands parted: 1.500,5"""
    whole, comma, rest = text.replace(".", "").partition(",")
    return f"{int(whole or '0'):,}".replace(",", ".") + comma + rest

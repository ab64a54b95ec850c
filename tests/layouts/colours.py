"""Colours as style sheets write them, and the contrast between two.

Knows what the shipped sheets use: #rgb, #rrggbb, black, white, var(--name), color-mix(in srgb, A p%, B) and oklch(from A l c h) with
numbers, `l`, `c`, `h`, min() and max(). A colour is three linear sRGB components between 0 and 1.
"""
import math
import re

NAMED = {"black": "#000000", "white": "#ffffff"}


def contrast(one, other):
    """By WCAG 2: from 1 (the same) to 21 (black and white)."""
    lighter, darker = sorted((luminance(one), luminance(other)), reverse=True)
    return (lighter + 0.05) / (darker + 0.05)


def luminance(colour):
    red, green, blue = colour
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue


def evaluate(text, variables=None):
    """The colour that `text` stands for; `variables` holds the texts of custom properties."""
    text = NAMED.get(text.strip(), text.strip())
    if text.startswith("#"):
        return _hex(text)
    name, arguments = re.fullmatch(r"([\w-]+)\((.*)\)", text, re.S).groups()
    if name == "var":
        return evaluate(variables[arguments.strip()], variables)
    if name == "oklch":
        return _relative(arguments, variables)
    if name == "color-mix":
        return _mixed(arguments, variables)
    raise ValueError("not a colour: " + text)


def _hex(text):
    digits = text[1:]
    if len(digits) == 3:
        digits = "".join(2 * digit for digit in digits)
    if not re.fullmatch(r"[0-9a-fA-F]{6}", digits):
        raise ValueError("not a colour: " + text)
    return tuple(_linear(int(digits[i:i + 2], 16) / 255) for i in (0, 2, 4))


def _relative(arguments, variables):
    origin, components = re.fullmatch(r"\s*from\s+(#\w+|var\([^)]*\))\s+(.*)", arguments, re.S).groups()
    lightness, chroma, hue = to_oklch(evaluate(origin, variables))
    values = {"l": lightness, "c": chroma, "h": hue}
    return from_oklch(*(_number(component, values) for component in _split(components, " ")))


def _number(text, values):
    call = re.fullmatch(r"(min|max)\((.*)\)", text)
    if call:
        return {"min": min, "max": max}[call[1]](_number(part.strip(), values) for part in call[2].split(","))
    return values[text] if text in values else float(text)


def _mixed(arguments, variables):
    space, first, second = (part.strip() for part in _split(arguments, ","))
    if space != "in srgb":
        raise ValueError("not a known colour space: " + space)
    first, share = re.fullmatch(r"(.*?)\s+(\d+)%", first).groups()
    share = int(share) / 100
    return tuple(_linear(share * _encoded(a) + (1 - share) * _encoded(b))
                 for a, b in zip(evaluate(first, variables), evaluate(second, variables)))


def _split(text, separator):
    """Parts at the separator, but not inside brackets."""
    parts, depth, part = [], 0, ""
    for character in text:
        depth += (character == "(") - (character == ")")
        if character == separator and depth == 0:
            parts.append(part)
            part = ""
        else:
            part += character
    return [part for part in parts + [part] if part]


def _linear(value):
    return value / 12.92 if value <= 0.04045 else ((value + 0.055) / 1.055) ** 2.4


def _encoded(value):
    return value * 12.92 if value <= 0.0031308 else 1.055 * value ** (1 / 2.4) - 0.055


# Matrices of Oklab's definition (Bjoern Ottosson, 2020).

def to_oklch(colour):
    red, green, blue = colour
    l = (0.4122214708 * red + 0.5363325363 * green + 0.0514459929 * blue) ** (1 / 3)
    m = (0.2119034982 * red + 0.6806995451 * green + 0.1073969566 * blue) ** (1 / 3)
    s = (0.0883024619 * red + 0.2817188376 * green + 0.6299787005 * blue) ** (1 / 3)
    lightness = 0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s
    a = 1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s
    b = 0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s
    return lightness, math.hypot(a, b), math.degrees(math.atan2(b, a))


def from_oklch(lightness, chroma, hue):
    """Components that the screen cannot show are cut off, as browsers do."""
    a, b = chroma * math.cos(math.radians(hue)), chroma * math.sin(math.radians(hue))
    l = (lightness + 0.3963377774 * a + 0.2158037573 * b) ** 3
    m = (lightness - 0.1055613458 * a - 0.0638541728 * b) ** 3
    s = (lightness - 0.0894841775 * a - 1.2914855480 * b) ** 3
    rgb = (4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s,
           -1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s,
           -0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s)
    return tuple(min(1.0, max(0.0, component)) for component in rgb)

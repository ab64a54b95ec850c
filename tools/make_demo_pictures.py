#!/usr/bin/env python3
"""Draws the pictures of the demo project: demo/drawings/*.svg, and from these demo/pix/*.jpg with previews
of 160 pixels (NAME_xs.jpg) for pages that show many.

  make_demo_pictures.py [NAME ...]        all, or those named (without extension)

The drawings come out the same each time. Rendering needs the command "vips" (Debian package libvips-tools).
"""
import math
import os
import random
import subprocess
import sys

from demo_drawing import (
    beach_chair, circle, cutter, ellipse, fence, gradient, grass, GREENS, group, gull, H, house, lighthouse, line,
    noise, path, rect, sand, sea, sky, SOFT, spots_along, sunpath, tint, W, window)

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "demo")


def haus_vorne(rng):
    return (sky("h", ["#4f97cf", "#8fc3e4", "#dcedf3"], (1, 1, 1), 12, 300)
            + sea("m", 236, 268, ["#6fa6bd", "#3f82a0"], 5)
            + sand("d1", "M0 250C60 226 110 236 170 250C260 226 330 262 420 240C500 226 540 250 580 244V320H0Z", "#e6dcae",
                "#c9bd85", 4)
            + grass(rng, spots_along(rng, 0, 580, 60, lambda x: 254 + 6 * math.sin(x / 60), (.5, .9)), 20, GREENS, 5)
            + path("M0 290C140 272 420 272 580 292V390H0Z", "#86a04c")
            + noise("wiese", ".25 .5", 9, tint(.2, .28, .05, "0 0 0 2 -.9"), 3)
            + path("M0 290C140 272 420 272 580 292V390H0Z", "#fff", "filter='url(#wiese)'")
            + group(house(), "translate(132 312) scale(1.08)")
            + path("M276 318H330C336 346 352 370 380 390H236C262 370 274 346 276 318Z", "#dccfae")
            + path("M276 318H330C336 346 352 370 380 390H236C262 370 274 346 276 318Z", "#fff",
                "filter='url(#wiese)' opacity='.25'")
            + fence(8, 232, 352) + fence(376, 575, 352)
            + "".join(circle(x + rng.uniform(-8, 8), 316 + rng.uniform(-14, 3), rng.uniform(5, 8),
                rng.choice(["#c86a8c", "#d98aa8", "#b5577c"]))
                      + circle(x, 320, 7, "#5d7a3c") for x in (168, 186, 204, 222, 392, 408, 424))
            + grass(rng, spots_along(rng, 0, 580, 46, lambda x: 388 - 6 * rng.random(), (.8, 1.3)), 26,
                ["#5d7a34", "#7b9a44", "#93ac52"], 6)
            + gull(96, 80, 15) + gull(140, 58, 10) + gull(470, 96, 12))


def haus_garten(rng):
    tree = "".join(circle(96 + rng.gauss(0, 36), 168 + rng.gauss(0, 28), rng.uniform(12, 26),
        rng.choice(["#5f8a3c", "#6f9a46", "#4f7833", "#80a850"]))
                   for _ in range(60))
    apples = "".join(circle(96 + rng.uniform(-58, 58), 170 + rng.uniform(-36, 40), 4.2,
        rng.choice(["#c8402f", "#d9632f", "#b8352a"])) for _ in range(26))
    return (sky("h", ["#5aa0d6", "#a9d3ea", "#e8f2ee"], (1, 1, 1), 31, 300, -1.25)
            + path("M0 262C150 246 430 246 580 264V390H0Z", "#8fae52")
            + noise("wiese", ".3 .6", 21, tint(.15, .26, .05, "0 0 0 2 -.92"), 3)
            + group(house(wall="#f8f0e0", seed=8), "translate(246 276) scale(.98)")
            + path("M0 262C150 246 200 262 240 276H580V390H0Z", "#86a84c")
            + path("M0 262C150 246 200 262 240 276H580V390H0Z", "#fff", "filter='url(#wiese)'")
            + ellipse(100, 304, 86, 12, "#47642c", "opacity='.45'")
            + path("M88 304C92 262 86 230 92 196H104C106 232 102 262 112 304Z", "#6b4d34") + tree + apples
            + group(beach_chair("#c2543c"), "translate(330 352) scale(.82)")
            + ellipse(438, 352, 46, 7, "#47642c", "opacity='.4'")
            + ellipse(438, 318, 40, 8, "#efe9dc") + line("M438 322V350M420 352H456", "#8a7a66", 4)
            + rect(424, 302, 11, 14, "#ffffff", "rx='2'") + ellipse(452, 314, 9, 3, "#c98f52") + circle(452, 309, 6, "#d9a05e")
            + "".join(line("M%g %gv-%g" % (x, 388, h), "#5d7a34", 2) + circle(x, 388 - h, 6, c)
            + circle(x, 388 - h, 2.4, "#f0d25a")
                      for x, h, c in [(rng.uniform(8, 572), rng.uniform(12, 34), rng.choice(["#d9668c", "#f4f0f4", "#e8a13c",
                          "#8a6ab8"])) for _ in range(40)]))


def strand_morgen(rng):
    foam = lambda y, a: line("M0 %g" % y + "".join("q24 %g 48 0" % (rng.uniform(-a, a)) for _ in range(13)), "#ffffff", 3.4,
        "opacity='.85'")
    return (sky("h", ["#6fa9d2", "#b4d4e4", "#f6e6cf"], (1, .97, .92), 44, 190)
            + sea("m", 176, 320, ["#7fb4c8", "#4f97ac", "#8cc0bc"], 7)
            + foam(252, 5) + foam(281, 7)
            + sand("s", "M0 312C90 298 180 318 290 304C400 292 480 312 580 298V390H0Z", "#d9c594", "#efdfb4", 15)
            + path("M0 306C90 292 180 312 290 298C400 286 480 306 580 292V302C480 318 400 300 290 310C180 326 90 304 0 318Z",
                "#ffffff", "opacity='.8'")
            + path("M0 318C90 304 180 326 290 312C400 302 480 318 580 304V312C480 328 400 312 290 322C180 334 90 314 0 328Z",
                "#a89060", "opacity='.35'")
            + "".join(ellipse(rng.uniform(10, 570), rng.uniform(330, 384), rng.uniform(1.5, 4), rng.uniform(1, 2.4),
                rng.choice(["#f8f2e4", "#b59a78", "#8d7b66", "#e8cdbb"]))
                      for _ in range(46))
            + "".join(ellipse(130 + i * 30, 366 - i * 4 + (7 if i % 2 else 0), 5, 2.6, "#a88f5c",
                "opacity='.7'") for i in range(9))
            + group(beach_chair(), "translate(484 350) scale(.72)")
            + group(beach_chair("#3f8f6a"), "translate(410 332) scale(.5)")
            + gull(120, 92, 14) + gull(160, 110, 9) + gull(300, 66, 11))


def sonnenuntergang(rng):
    return (sky("h", ["#2f3c6e", "#8a4f7c", "#e5744f", "#f9c15c"], (.98, .55, .38), 58, 232, -1.2)
            + SOFT % 9 + circle(318, 214, 60, "#ffd982", "filter='url(#soft)' opacity='.75'") + circle(318, 214, 27, "#fff1c0")
            + sea("m", 228, 390, ["#e08a54", "#8f5468", "#33355c"], 17, (1, .72, .42))
            + sunpath(318, 232, 384, rng, "#ffe3a0", 110, 60)
            + path("M0 346C70 322 150 330 214 362C236 374 246 384 250 390H0Z", "#2a2436")
            + grass(rng, spots_along(rng, 0, 215, 60, lambda x: 352 - 16 * math.sin(x / 70), (.8, 1.4)), 38,
                ["#2a2436", "#352c40", "#41344a"], 6)
            + group(cutter("#3a2c3c"), "translate(470 250) scale(.5)")
            + gull(150, 120, 13, "#2a2438") + gull(196, 98, 9, "#2a2438") + gull(236, 132, 8, "#3a3048"))


def duenen(rng):
    return (sky("h", ["#4c8fc8", "#9ac8e4", "#e6f0ee"], (1, 1, 1), 63, 240)
            + sea("m", 196, 226, ["#6fa6bd", "#46869e"], 27)
            + sand("d1", "M0 226C80 186 170 200 240 226C330 190 430 186 580 220V390H0Z", "#efe2b4", "#d8c48c", 5)
            + grass(rng, spots_along(rng, 0, 580, 80, lambda x: 224 + 10 * math.sin(x / 50), (.5, .9)), 26, GREENS, 6)
            + sand("d2", "M0 300C100 232 210 250 268 300C330 262 470 226 580 268V390H0Z", "#f4e8bf", "#ddca92", 25)
            + grass(rng, spots_along(rng, 0, 232, 60, lambda x: 292 - 34 * math.sin((x + 20) / 84), (.7, 1.2)), 36, GREENS, 7)
            + grass(rng, spots_along(rng, 320, 580, 70, lambda x: 278 - 14 * math.sin((x - 300) / 90), (.7, 1.3)), 36, GREENS, 7)
            + path("M262 298C250 318 300 330 286 350C274 366 240 376 214 390H360C352 372 330 362 330 346C330 328 284 318 276 298Z", "#fbf3d6")
            + "".join(rect(268 - i * 3.2, 306 + i * 8 + i * i * .25, 14 + i * 8, 3 + i * .45, "#b89b70",
                "opacity='.85'") for i in range(8))
            + fence(364, 560, 372, 24, "#c9b68e", 34) + fence(20, 190, 380, 24, "#c9b68e", 34)
            + grass(rng, spots_along(rng, 0, 190, 26, lambda x: 390 - 8 * rng.random(), (1, 1.5)), 44, GREENS, 7)
            + gull(420, 70, 15) + gull(470, 96, 10))


def leuchtturm(rng):
    return (sky("h", ["#3f86c0", "#8dc0e0", "#d8eaf0"], (1, 1, 1), 72, 300, -1.1)
            + sea("m", 250, 330, ["#5f9ab4", "#357a96"], 37)
            + sand("d1", "M150 300C230 256 330 246 420 262C490 274 540 262 580 256V390H90Z", "#e8dcae", "#c2b27a", 35)
            + path("M120 330C230 284 430 268 580 282V390H60Z", "#7f9a4a")
            + noise("wiese", ".25 .5", 19, tint(.2, .28, .05, "0 0 0 2 -.9"), 3)
            + path("M120 330C230 284 430 268 580 282V390H60Z", "#fff", "filter='url(#wiese)'")
            + group(lighthouse(), "translate(396 294) scale(1.22)")
            + group(rect(-44, -30, 46, 30, "#f3eee2") + path("M-50 -28L-21 -52L8 -28Z", "#a8493a")
            + window(-36, -22, 10, 10, "#6f8ea2")
                    + rect(-16, -20, 10, 20, "#3a6f8f"), "translate(370 296) scale(1.1)")
            + "".join(ellipse(rng.uniform(0, 130), rng.uniform(336, 386), rng.uniform(9, 24), rng.uniform(6, 12),
                rng.choice(["#7c7f80", "#676b6e", "#8f9292"]))
                      for _ in range(30))
            + "".join(line("M%g %gq12 -6 24 0" % (rng.uniform(0, 140), rng.uniform(322, 340)), "#ffffff", 2,
                "opacity='.8'") for _ in range(12))
            + grass(rng, spots_along(rng, 140, 580, 80, lambda x: 386 - 8 * rng.random(), (.8, 1.4)), 34, GREENS, 6)
            + "".join(group(ellipse(0, 0, 13, 9, "#f4f1ea") + circle(11, -5, 4.4, "#4a4644")
            + line("M-6 8v7M5 8v7", "#4a4644", 2),
                            "translate(%g %g) scale(%g)" % place) for place in ((240, 334, 1), (282, 346, 1.1),
                                (500, 340, -1)) if place[2] > 0)
            + gull(330, 90, 13) + gull(470, 70, 11) + gull(200, 130, 10))


def watt(rng):
    ripples = "".join(line("M%g %gq%g -3 %g 0" % (x, y, (8 + (y - 200) * .2) / 2, 8 + (y - 200) * .2), "#6f6654", .8
        + (y - 200) / 120, "opacity='.5'")
                      for x, y in [(rng.uniform(-20, 580), rng.uniform(212, 388)) for _ in range(320)])
    pools = "".join(ellipse(rng.uniform(0, 580), y, (y - 190) * rng.uniform(.3, .7), (y - 190) * .045, "#b9cfd8", "opacity='.85'")
                    for y in sorted(rng.uniform(215, 385) for _ in range(16)))
    birds = "".join(ellipse(x, y, 5, 3, "#2f3336") + line("M%g %gl6 2M%g %gv7M%g %gv7" % (x + 5, y - 1, x - 1, y + 2, x + 2, y
        + 2), "#c8562c", 1.1)
                    for x, y in [(rng.uniform(60, 520), rng.uniform(236, 290)) for _ in range(9)])
    return (sky("h", ["#7f9fbb", "#b9cdd8", "#eee7d6"], (.98, .97, .95), 83, 206, -1.0)
            + gradient("wattf", (0, "#b7ab90"), (1, "#857a62")) + rect(0, 200, W, 190, "url(#wattf)")
            + noise("schlick", ".02 .12", 81, tint(.3, .26, .18, "0 0 0 2.2 -1"), 4)
            + rect(0, 200, W, 190, "#fff", "filter='url(#schlick)'")
            + pools + path("M580 214C470 226 420 236 470 256C540 280 350 300 300 330C270 352 330 372 300 390H420C440 370 420 350 450 330C510 300 580 296 580 262Z", "#c2d6dd")
            + ripples + birds
            + "".join(line("M%g %gv-%g" % (x, y, h), "#5a4b38", 2 + h / 24) for x, y,
                h in ((92, 250, 34), (120, 246, 30), (144, 242, 26), (164, 239, 23), (182, 236, 20), (196, 234, 18)))
            + rect(470, 196, 70, 6, "#6d7f78", "opacity='.8'") + group(lighthouse(), "translate(508 200) scale(.22)")
            + gull(250, 90, 14) + gull(300, 70, 10) + gull(330, 104, 8))


def hafen(rng):
    front = "".join(rect(x, 210 - h, w, h, c) + path("M%g %gL%g %gL%g %gZ" % (x - 4, 210 - h, x + w / 2, 210 - h - r, x + w
        + 4, 210 - h), "#8c4636")
                    + "".join(window(x + 8 + k * 17, 218 - h, 9, 12, "#6f8ea2") for k in range(int((w - 8) // 17)))
                    for x, w, h, r, c in ((10, 62, 44, 30, "#e8d9b4"), (80, 52, 52, 28, "#c9d8d4"), (142, 70, 40, 32,
                        "#f1e7d6"), (222, 56, 54, 26, "#d9b6a0"),
                                          (288, 66, 44, 30, "#eee9dc"), (364, 50, 50, 28, "#bccbd6"),
                                              (424, 74, 42, 32, "#ead2a6"), (508, 60, 50, 28, "#dfe3da")))
    return (sky("h", ["#5c9ccb", "#a4cde4", "#ecf1ea"], (1, 1, 1), 92, 220)
            + path("M0 196C120 176 420 176 580 192V230H0Z", "#7f9a72") + front + rect(0, 206, W, 20, "#8a8378")
            + rect(0, 206, W, 4, "#b5aea2")
            + sea("m", 224, 390, ["#4f8a9c", "#2f6a84", "#25566e"], 47)
            + group(ellipse(0, 12, 70, 7, "#16394c", "opacity='.5'") + cutter(), "translate(180 286) scale(1.35)")
            + group(ellipse(0, 12, 70, 7, "#16394c", "opacity='.5'") + cutter("#2f6f8f"), "translate(430 250) scale(.9)")
            + "".join(rect(x, 300, 13, 90, "#5a4634") + rect(x - 1, 298, 15, 5, "#7c6650") for x in (20, 300, 540))
            + path("M0 366H580V390H0Z", "#6f5a44") + "".join(rect(x, 366, 1.6, 24, "#4d3d2c") for x in range(0, 580, 29))
            + group(ellipse(0, 0, 15, 10, "#fafafa") + circle(13, -9, 6, "#fafafa") + path("M18 -10l10 3l-10 2z", "#e0a02c")
            + circle(15, -10, 1.2, "#222")
                    + path("M-18 -3Q0 -10 8 2Q-6 6 -18 -3Z", "#a9b4bc") + line("M-3 9v8M4 9v8", "#e08a2c", 2),
                        "translate(306 279)")
            + gull(120, 60, 13) + gull(420, 84, 11) + gull(460, 64, 8))


def room(wall, floor, seed):
    return (gradient("w", (0, wall), (1, "#e4dccb")) + rect(0, 0, W, 300, "url(#w)")
            + noise("putz", ".6", seed, tint(.4, .35, .28, "0 0 0 .8 -.42"), 2)
            + rect(0, 0, W, 300, "#fff", "filter='url(#putz)'")
            + rect(0, 286, W, 14, "#fbfaf6") + gradient("b", (0, floor), (1, "#8f6a42")) + rect(0, 300, W, 90, "url(#b)")
            + noise("holz", ".01 .35", seed + 1, tint(.3, .17, .05, "0 0 0 2 -.9"), 3)
            + rect(0, 300, W, 90, "#fff", "filter='url(#holz)'")
            + "".join(line("M%g 300L%g 390" % (290 + (x - 290) * .8, 290 + (x - 290) * 1.15), "#6b4a2a", .8,
                "opacity='.6'") for x in range(-120, 720, 56)))


def view(x, y, w, h, seed):
    """A window with the sea behind it."""
    return (gradient("aus%d" % seed, (0, "#8fc3e6"), (.55, "#dcecf2"), (.56, "#5c97b0"), (.8, "#4b86a0"), (.81, "#e2d4a2"),
            (1, "#cdbb82"))
            + rect(x - 8, y - 8, w + 16, h + 16, "#fdfcf8") + rect(x, y, w, h, "url(#aus%d)" % seed)
            + noise("wolke%d" % seed, ".012 .03", seed, tint(1, 1, 1, "0 0 0 3 -1.4"), 4)
            + rect(x, y, w, h * .5, "#fff", "filter='url(#wolke%d)'" % seed)
            + rect(x + w / 2 - 3, y, 6, h, "#fdfcf8") + rect(x, y + h * .33, w, 4, "#fdfcf8")
            + rect(x - 14, y + h + 8, w + 28, 8, "#efeadd")
            + gull(x + w * .25, y + h * .2, 8) + gull(x + w * .72, y + h * .28, 6))


def curtain(x, y, h, colour, mirrored=False):
    d = "M0 0H34C32 40 26 90 30 %gC20 %g 8 %g -2 %gZ" % (h, h + 4, h - 4, h)
    folds = line("M8 4C8 60 4 110 6 %gM20 4C19 60 15 110 18 %g" % (h - 4, h - 4), "#000", 1, "opacity='.12'")
    return group(path(d, colour) + folds, "translate(%g %g) scale(%d 1)" % (x, y, -1 if mirrored else 1))


def wohnzimmer(rng):
    cushion = lambda x, c: rect(x, 232, 44, 40, c, "rx='9' transform='rotate(%g %g 250)'" % (rng.uniform(-9, 9), x + 20))
    stove = (rect(470, 196, 78, 104, "#3c4044", "rx='4'") + rect(480, 212, 58, 50, "#1c1e20") + SOFT % 5
             + ellipse(509, 246, 24, 18, "#f08a2c", "filter='url(#soft)' opacity='.9'")
             + path("M494 262C488 244 502 240 500 222C512 232 514 240 512 248C518 244 518 238 518 234C528 246 528 256 522 262Z",
                 "#ffd25c")
             + rect(480, 212, 58, 50, "none", "stroke='#5a6066' stroke-width='3'") + rect(500, 0, 18, 196, "#44494e")
             + rect(462, 300, 94, 8, "#7c7f82"))
    return (room("#f6f0e2", "#c89a62", 3) + view(150, 56, 236, 140, 4) + curtain(122, 40, 200, "#7fa6bd")
            + curtain(414, 40, 200, "#7fa6bd", True)
            + line("M104 40H432", "#8a6a48", 5) + stove
            + ellipse(240, 362, 190, 24, "#b0563f", "opacity='.9'") + ellipse(240, 362, 170, 19, "#d9b486")
            + ellipse(240, 362, 140, 14, "#b0563f", "opacity='.7'")
            + rect(92, 214, 280, 76, "#4f7f9c", "rx='14'") + rect(80, 244, 300, 66, "#5b8cab", "rx='12'")
            + rect(70, 234, 34, 84, "#4a7894", "rx='12'")
            + rect(358, 234, 34, 84, "#4a7894", "rx='12'") + line("M232 250V306", "#3f6a86", 1.6) + cushion(112, "#e8d9b0")
            + cushion(300, "#c8584a")
            + rect(80, 318, 12, 10, "#5a4030") + rect(370, 318, 12, 10, "#5a4030")
            + ellipse(250, 340, 74, 12, "#9c6f42") + ellipse(250, 337, 74, 12, "#b98a56")
            + line("M200 346V370M300 346V370", "#7c5632", 5)
            + rect(226, 318, 14, 17, "#f7f5ef", "rx='2'") + path("M268 334C262 322 276 316 274 306C286 316 284 328 280 334Z",
                "#3f7a5a") + rect(266, 326, 18, 10, "#d9e2e4", "rx='2'")
            + rect(26, 92, 60, 46, "#8a6a48") + rect(31, 97, 50, 36, "#dcebf0")
            + path("M31 120C46 112 60 124 81 116V133H31Z", "#5c97b0") + path("M48 118l10 -16v16z", "#fff"))


def kueche(rng):
    shelf = "".join(rect(56 + i * 24, 92, 16, 22, c, "rx='3'") + rect(56 + i * 24, 88, 16, 5, "#8a6a48") for i,
        c in enumerate(("#dcc38a", "#b0563f", "#7f9a5a", "#e8e0cc", "#5c8ca8")))
    cups = "".join(rect(60 + i * 30, 60, 14, 14, c, "rx='2'") + line("M%g 63q7 3 0 8" % (74 + i * 30), c, 2) for i,
        c in enumerate(("#f4f1ea", "#5c97b0", "#f4f1ea", "#c8584a")))
    tiles = "".join(rect(x, y, 27, 27, rng.choice(["#f1f4f2", "#eaf0ef", "#dfe9ea", "#e6eeee"])) for x in range(0, 580,
        29) for y in (146, 175))
    fronts = "".join(rect(x, 236, 88, 72, "#f3f1e8") + rect(x + 6, 242, 76, 60, "none", "stroke='#c9c3b2' stroke-width='1.5'")
        + circle(x + 76, 272, 3, "#8a7a58") for x in range(4, 560, 96))
    return (room("#f3ecd8", "#c08a58", 13) + tiles + rect(46, 114, 150, 6, "#9c7448") + rect(46, 74, 150, 6, "#9c7448") + shelf
            + cups
            + view(262, 40, 150, 106, 14) + curtain(246, 30, 118, "#c8584a") + curtain(428, 30, 118, "#c8584a", True)
            + line("M236 30H438", "#8a6a48", 4)
            + rect(0, 214, W, 18, "#a87848") + rect(0, 214, W, 4, "#c4955e") + fronts + rect(0, 308, W, 8, "#5a4a3a")
            + rect(470, 236, 96, 72, "#e2e4e4") + rect(480, 256, 76, 44, "#3c4448") + rect(482, 243, 72, 4, "#9aa2a6")
            + rect(470, 210, 96, 5, "#3c4044") + path("M492 210C490 190 496 184 518 184C540 184 546 190 544 210Z", "#c8584a")
            + rect(512, 178, 12, 6, "#3c4044")
            + rect(300, 206, 74, 8, "#cdd4d6") + line("M337 206V184Q337 176 350 178V186", "#b4bcc0", 4)
            + path("M150 214C140 200 146 186 160 186C174 186 180 200 170 214Z", "#5c97b0")
            + grass(rng, [(160, 186, 1)] * 3, 34, ["#5f8a3c", "#80a850"], 8)
            + ellipse(200, 214, 22, 4, "#d9b486") + circle(192, 208, 7, "#c8402f") + circle(205, 207, 7, "#d9a03c")
            + circle(199, 202, 6.5, "#8aa84a")
            + ellipse(290, 366, 120, 14, "#6b4a2a", "opacity='.4'") + rect(180, 332, 220, 10, "#b98a56", "rx='4'")
            + rect(194, 342, 10, 40, "#9c7042") + rect(376, 342, 10, 40, "#9c7042")
            + rect(258, 312, 12, 20, "#7fa6bd", "rx='2'") + grass(rng, [(264, 312, .7)] * 2, 30, ["#5f8a3c", "#80a850"], 6)
            + circle(256, 290, 5, "#e8c23c") + circle(270, 286, 5, "#d9668c") + circle(264, 280, 5, "#f4f1ea"))


def schlafzimmer(rng):
    stripes = "".join(rect(150 + i * 28, 262, 14, 60, "#5b8cab", "opacity='.8'") for i in range(10))
    return (room("#eef2f0", "#c89a62", 23) + path("M0 0H120L0 170Z", "#e6ddc8") + path("M580 0H460L580 170Z", "#d9cfb8")
            + line("M120 0L0 170M460 0L580 170", "#a88858", 7) + view(230, 30, 120, 92, 24)
            + rect(130, 150, 320, 120, "#b98a56", "rx='10'") + "".join(rect(148
                + i * 36, 162, 24, 92, "#a87848", "rx='4'") for i in range(8))
            + rect(140, 246, 300, 94, "#f7f5ef", "rx='8'") + rect(164, 214, 110, 44, "#fdfdfb", "rx='14'")
            + rect(306, 214, 110, 44, "#fdfdfb", "rx='14'")
            + rect(176, 224, 86, 24, "#e9eef0", "rx='10' opacity='.6'")
            + rect(318, 224, 86, 24, "#e9eef0", "rx='10' opacity='.6'")
            + rect(136, 258, 308, 78, "#dbe7ec", "rx='8'") + stripes
            + path("M136 262C200 254 260 270 320 260C380 252 420 264 444 260V276C400 270 360 280 300 276C240 272 180 282 136 274Z", "#ffffff", "opacity='.9'")
            + rect(136, 330, 14, 24, "#9c7042") + rect(430, 330, 14, 24, "#9c7042")
            + rect(60, 252, 56, 56, "#c4955e", "rx='3'") + rect(64, 268, 48, 16, "#b0814c") + circle(88, 276, 2.4, "#5a4030")
            + path("M74 232H102L96 208H80Z", "#f6e2a8") + rect(85, 232, 6, 20, "#8a6a48") + SOFT % 12
            + ellipse(88, 226, 40, 30, "#fff0b8", "filter='url(#soft)' opacity='.6'")
            + rect(478, 170, 78, 138, "#f3f1e8", "rx='3'") + line("M517 172V306", "#c9c3b2", 1.6)
            + circle(511, 240, 2.4, "#8a7a58") + circle(523, 240, 2.4, "#8a7a58")
            + ellipse(290, 366, 170, 15, "#5b8cab", "opacity='.55'") + ellipse(290, 366, 150, 11, "#dbe7ec", "opacity='.8'"))


def strandkorb(rng):
    return (sky("h", ["#57a0d6", "#9fcfe8", "#e4f1f2"], (1, 1, 1), 105, 210)
            + sea("m", 190, 252, ["#5fa3bc", "#3d87a4", "#7fb8c0"], 57)
            + sand("s", "M0 246C120 236 300 252 580 240V390H0Z", "#efe0b2", "#d8c28a", 45)
            + path("M0 240C120 230 300 246 580 234V242C300 254 120 240 0 250Z", "#ffffff", "opacity='.85'")
            + group(beach_chair("#3f8f6a"), "translate(96 286) scale(.55)")
            + group(beach_chair("#c2543c"), "translate(500 282) scale(.5)")
            + group(beach_chair(), "translate(290 366) scale(1.75)")
            + group(path("M-20 0L-15 -28H15L20 0Z", "#e8b23c") + line("M-16 -28q16 -22 32 0", "#8a6a2c", 2.4)
            + rect(-19, -10, 38, 3, "#c2543c"), "translate(430 368)")
            + group(path("M0 0C-10 -4 -12 -14 0 -18C12 -14 10 -4 0 0Z", "#f0e2d0")
            + line("M0 0V-17M-4 -2L-6 -14M4 -2L6 -14", "#c9a98c", 1), "translate(150 372)")
            + group(path("M0 -10l3 7l8 1l-6 5l2 8l-7 -4l-7 4l2 -8l-6 -5l8 -1z", "#d9743c"), "translate(196 380) rotate(14)")
            + "".join(ellipse(rng.uniform(0, 580), rng.uniform(300, 388), rng.uniform(1, 3), rng.uniform(.8, 1.8),
                rng.choice(["#f8f2e4", "#b59a78", "#8d7b66"])) for _ in range(50))
            + gull(130, 80, 14) + gull(178, 62, 9) + gull(452, 92, 12))


def moewe(rng):
    wing = "M0 0C40 -60 110 -104 196 -96C160 -80 120 -40 60 8Z"
    return (sky("h", ["#3f8acb", "#7fb8e2", "#cfe6f2"], (1, 1, 1), 117, 390, -1.1)
            + group(path(wing, "#dfe6ea") + path("M100 -76C130 -94 164 -100 196 -96C176 -86 150 -64 124 -40Z", "#4a5157")
                    + path("M-118 44C-70 10 -10 -18 50 -12C92 -8 116 6 128 16C120 30 70 50 10 48C-40 46 -80 50 -118 44Z",
                        "#fbfcfc")
                    + path("M-118 44C-150 44 -176 58 -190 66C-176 40 -146 32 -100 30Z", "#f3f6f7")
                    + path("M-96 46C-40 52 40 54 100 28C60 56 -40 62 -96 46Z", "#cdd7de")
                    + path("M20 -8C-30 -70 -110 -128 -216 -116C-160 -92 -110 -30 -40 26Z", "#c3ced6")
                    + path("M-116 -98C-150 -116 -186 -120 -216 -116C-190 -104 -166 -82 -144 -58Z", "#3f464c")
                    + path("M20 -8C-30 -70 -110 -128 -216 -116C-120 -106 -50 -54 4 6Z", "#dbe3e8")
                    + circle(118, 8, 23, "#fdfdfd") + path("M138 4C152 4 168 10 172 18C164 18 148 20 137 17Z", "#e8a92c")
                    + circle(162, 15, 2.6, "#c8402f")
                    + circle(124, 3, 3.2, "#22262a") + circle(125, 2, 1, "#ffffff")
                    + line("M-20 48q-14 10 -30 10M0 50q-14 12 -32 14", "#e0962c", 3.4), "translate(300 206) scale(1.06)")
            + gull(90, 330, 14, "#5a6670") + gull(130, 348, 10, "#5a6670") + gull(500, 320, 12, "#5a6670"))


def winter(rng):
    return (sky("h", ["#6d86a8", "#a9bccd", "#f1dfd0"], (.97, .96, .97), 131, 300, -1.0)
            + sea("m", 240, 272, ["#7f98a8", "#5f7c8f"], 67)
            + path("M0 262C90 236 160 252 240 262C340 238 460 244 580 256V390H0Z", "#e9f0f6")
            + grass(rng, spots_along(rng, 0, 580, 40, lambda x: 266 + 6 * math.sin(x / 60), (.5, .8)), 20,
                ["#b5a878", "#c9bd92", "#9c9068"], 4)
            + path("M0 296C140 276 420 276 580 298V390H0Z", "#f4f8fb")
            + group(house(snow=True, glass=(("0", "#f6c65c"), ("1", "#ffe7a8"))), "translate(132 314) scale(1.08)")
            + SOFT % 12 + ellipse(302, 300, 30, 24, "#ffdf8c", "filter='url(#soft)' opacity='.35'")
            + noise("schnee", ".02 .08", 77, tint(.45, .55, .68, "0 0 0 1.8 -.85"), 3)
            + path("M0 318C140 306 420 306 580 320V390H0Z", "#f9fbfd")
            + path("M0 318C140 306 420 306 580 320V390H0Z", "#fff", "filter='url(#schnee)' opacity='.6'")
            + path("M280 318H328C334 346 350 370 372 390H244C266 370 278 346 280 318Z", "#e2eaf1")
            + fence(8, 232, 356, 13, "#8d8478") + fence(376, 575, 356, 13, "#8d8478")
            + "".join(rect(x, 329, 8, 4, "#ffffff", "rx='2'") for x in list(range(7, 230, 13)) + list(range(375, 572, 13)))
            + "".join(circle(rng.uniform(0, 580), rng.uniform(0, 390), rng.uniform(.8, 2.4), "#ffffff",
                "opacity='.85'") for _ in range(170)))


def plan(content):
    """Ink on paper."""
    return (gradient("p", (0, "#fbf7ea"), (1, "#f1ead4")) + rect(0, 0, W, H, "url(#p)")
            + noise("papier", ".04", 6, tint(.5, .42, .25, "0 0 0 .5 -.2"), 4)
            + rect(0, 0, W, H, "#fff", "filter='url(#papier)' opacity='.35'") + content)


def label(x, y, text, size=15, colour="#2f4a5c", more=""):
    return "<text x='%g' y='%g' font-family='DejaVu Sans, Arial, sans-serif' font-size='%g' fill='%s' text-anchor='middle' %s>%s</text>" % (x, y, size, colour, more, text)


def grundriss(rng):
    walls = line("M60 70H520V330H60Z", "#3a4650",
        8) + line("M270 70V190M270 232V330M60 210H170M212 210H270M270 190H360M404 190H520", "#3a4650", 5)
    doors = line("M270 190A42 42 0 0 0 312 232M170 210A42 42 0 0 1 212 168M360 190A44 44 0 0 0 404 234", "#8a97a0", 1.2)
    windows = line("M110 70H220M320 70H470M60 110V170M60 250V300M520 230V300M330 330H460", "#d4ecf8", 4) + line("M290 330H316",
        "#fbf7ea", 9)
    things = (rect(84, 92, 84, 60, "#dbe7ec", "stroke='#8a97a0'") + rect(90, 98, 30, 18, "#fff", "stroke='#8a97a0'")
        + rect(130, 98, 30, 18, "#fff", "stroke='#8a97a0'")
              + rect(84, 236, 60, 76, "#e6dcc2", "stroke='#8a97a0'") + circle(170, 280, 18, "#e6dcc2", "stroke='#8a97a0'")
              + rect(440, 84, 66, 28, "#e4e7e6", "stroke='#8a97a0'") + circle(456, 98, 8, "#cfd6d6")
              + circle(488, 98, 8, "#cfd6d6") + rect(300, 92, 80, 50, "#e6dcc2", "stroke='#8a97a0'")
              + rect(400, 296, 96, 26, "#c9dae4", "stroke='#8a97a0'") + rect(478, 220, 30, 30, "#d0b8a8", "stroke='#8a97a0'"))
    return plan(label(290, 42, "Haus M\u00f6we \u2013 Erdgescho\u00df", 20) + things + walls + doors + windows
                + label(200, 178, "Schlafen 14 m\u00b2", 13) + label(208, 318, "Kammer 11 m\u00b2", 13)
                + label(400, 166, "K\u00fcche 16 m\u00b2", 14) + label(390, 272, "Wohnen 28 m\u00b2", 15)
                + label(303, 352, "Eingang", 12) + line("M60 372H160M60 368V376M160 368V376", "#3a4650", 1.4)
                + label(110, 366, "3 m", 11))


def lageplan(rng):
    return plan(path("M0 0H580V96C480 120 420 84 330 112C240 138 140 104 0 140Z", "#a9cfe0")
        + noise("m", ".01 .12", 3, tint(1, 1, 1, "0 0 0 2 -1"), 3)
                + path("M0 0H580V96C480 120 420 84 330 112C240 138 140 104 0 140Z", "#fff", "filter='url(#m)'")
                + path("M0 140C140 104 240 138 330 112C420 84 480 120 580 96V132C480 152 420 122 330 146C240 172 140 140 0 172Z", "#f0e0ae")
                + path("M0 172C140 140 240 172 330 146C420 122 480 152 580 132V196C470 206 300 214 0 224Z", "#cfd6a0")
                + line("M0 322C140 300 260 330 360 300C440 278 500 300 580 286", "#ffffff", 11)
                + line("M0 322C140 300 260 330 360 300C440 278 500 300 580 286", "#e3a33c", 6)
                + line("M352 302C344 262 330 236 306 214", "#ffffff", 7)
                + line("M306 214C290 190 286 170 296 140", "#a88858", 2.4, "stroke-dasharray='6 5'")
                + line("M120 312C110 270 130 240 120 206", "#ffffff", 6) + line("M470 290C480 330 476 360 490 390", "#ffffff", 7)
                + "".join(rect(x, y, 18, 12, "#c9a58c") for x, y in ((90, 330), (120, 336), (150, 322), (180, 336), (210, 320),
                    (104, 352), (138, 356), (172, 356), (420, 310), (446, 316)))
                + group(rect(-12, -10, 24, 16, "#c8402f") + path("M-16 -9L0 -24L16 -9Z", "#8a2c20"), "translate(300 208)")
                + label(384, 214, "Haus M\u00f6we", 16, "#8a2c20", "font-weight='bold'")
                + group(lighthouse(), "translate(96 214) scale(.3)") + label(62, 236, "Leuchtturm", 12)
                + label(290, 60, "Nordsee", 24, "#3f7a9c", "font-style='italic'") + label(450, 138, "Strand", 13, "#8a6a2c")
                + label(450, 178, "D\u00fcnen", 13, "#5d7038")
                + label(150, 380, "Ort mit B\u00e4cker und Bahnhof", 13) + label(522, 376, "Hafen 2 km", 12)
                + label(262, 180, "Bohlenweg", 11, "#7c6236")
                + group(circle(0, 0, 20, "#fbf7ea", "stroke='#2f4a5c'") + path("M0 -17L5 0H-5Z", "#c8402f")
                + path("M0 17L5 0H-5Z", "#2f4a5c") + label(0, -24, "N", 12), "translate(540 54)"))


def logo(rng):
    """The shared head: 560 x 84 on the colour of the site's frame."""
    return (rect(0, 0, 560, 84, "#23648c")
            + path("M0 66C60 54 110 76 170 64C230 52 290 76 350 64C410 54 470 74 560 60V84H0Z", "#3f86ac")
            + path("M0 74C70 64 130 82 200 72C280 62 360 82 430 72C480 66 520 76 560 70V84H0Z", "#e9dcae")
            + gradient("rand", (0, "#23648c"), (.16, "#23648c", 0), (.84, "#23648c", 0), (1, "#23648c"), across=True)
            + rect(0, 50, 560, 34, "url(#rand)")
            + group(path("M-30 6C-18 -12 -4 -16 0 0C4 -16 18 -12 30 6C18 -2 8 0 0 8C-8 0 -18 -2 -30 6Z", "#ffffff"),
                "translate(58 30) scale(1.15)")
            + label(240, 44, "Ferienhaus M\u00f6we", 31, "#ffffff", "font-weight='bold'")
            + label(474, 44, "an der Nordsee", 15, "#f3e3b8", "font-style='italic'"))


DRAWINGS = [haus_vorne, haus_garten, strand_morgen, sonnenuntergang, duenen, leuchtturm, watt, hafen, wohnzimmer, kueche,
    schlafzimmer,
            strandkorb, moewe, winter, grundriss, lageplan, logo]
PREVIEWS = {haus_vorne, haus_garten, strand_morgen, duenen, leuchtturm, watt, hafen, wohnzimmer, strandkorb, moewe}
OPTIONS = "[Q=82,strip,optimize_coding,background=255]"


def main():
    wanted = set(sys.argv[1:])
    for draw in DRAWINGS:
        name = draw.__name__
        if wanted and name not in wanted:
            continue
        width, height = (560, 84) if draw is logo else (W, H)
        svg, jpeg = os.path.join(ROOT, "drawings", name + ".svg"), os.path.join(ROOT, "pix", name + ".jpg")
        text = ("<svg xmlns='http://www.w3.org/2000/svg' width='%d' height='%d' viewBox='0 0 %d %d'>%s</svg>\n"
                % (width, height, width, height, draw(random.Random(name)).replace("><", ">\n<")))
        with open(svg, "w", encoding="utf-8") as file:
            file.write(text)
        subprocess.run(["vips", "copy", svg, jpeg + OPTIONS], check=True)
        if draw in PREVIEWS:
            preview = os.path.join(ROOT, "pix", name + "_xs.jpg")
            subprocess.run(["vips", "thumbnail", jpeg, preview + OPTIONS, "160"], check=True)
        print("%-16s drawing %3d kB, picture %3d kB" % (name, os.path.getsize(svg) // 1000, os.path.getsize(jpeg) // 1000))


if __name__ == "__main__":
    main()

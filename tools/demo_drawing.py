"""Parts of the demo project's drawings: sky, sea and sand, grass, houses and boats, as pieces of SVG text."""

W, H = 580, 390


def gradient(name, *stops, across=False):
    end = "x2='1' y2='0'" if across else "x2='0' y2='1'"
    marks = "".join("<stop offset='%s' stop-color='%s' stop-opacity='%s'/>" % ((s + (1,))[:3]) for s in stops)
    return "<linearGradient id='%s' x1='0' y1='0' %s>%s</linearGradient>" % (name, end, marks)


def noise(name, frequency, seed, matrix, octaves=4, kind="fractalNoise"):
    """A filter that fills its element's box with noise of one colour. The matrix row gives the alpha from the noise."""
    return ("<filter id='%s' x='0' y='0' width='1' height='1' color-interpolation-filters='sRGB'>"
            "<feTurbulence type='%s' baseFrequency='%s' numOctaves='%d' seed='%d'/>"
            "<feColorMatrix values='%s'/><feComposite in2='SourceGraphic' operator='in'/></filter>"
            % (name, kind, frequency, octaves, seed, matrix))


def tint(red, green, blue, alpha):
    return "0 0 0 0 %s  0 0 0 0 %s  0 0 0 0 %s  %s" % (red, green, blue, alpha)


def rect(x, y, w, h, fill, more=""):
    return "<rect x='%g' y='%g' width='%g' height='%g' fill='%s' %s/>" % (x, y, w, h, fill, more)


def path(d, fill, more=""):
    return "<path d='%s' fill='%s' %s/>" % (d, fill, more)


def line(d, colour, width, more=""):
    return "<path d='%s' fill='none' stroke='%s' stroke-width='%g' stroke-linecap='round' %s/>" % (d, colour, width, more)


def circle(x, y, r, fill, more=""):
    return "<circle cx='%g' cy='%g' r='%g' fill='%s' %s/>" % (x, y, r, fill, more)


def ellipse(x, y, rx, ry, fill, more=""):
    return "<ellipse cx='%g' cy='%g' rx='%g' ry='%g' fill='%s' %s/>" % (x, y, rx, ry, fill, more)


def group(content, transform):
    return "<g transform='%s'>%s</g>" % (transform, content)


SOFT = "<filter id='soft' x='-.5' y='-.5' width='2' height='2'><feGaussianBlur stdDeviation='%g'/></filter>"


def sky(name, colours, cloud, seed, height, cover=-1.15):
    stops = [(i / (len(colours) - 1), c) for i, c in enumerate(colours)]
    r, g, b = cloud
    return (gradient(name, *stops) + noise(name + "c", ".006 .016", seed, tint(r, g, b, "0 0 0 2.9 %g" % cover), 6)
            + gradient(name + "f", (0, "#fff", .25), (.35, "#fff", 1), (1, "#fff", .45))
            + "<mask id='%sm'>%s</mask>" % (name, rect(0, 0, W, height, "url(#%sf)" % name))
            + rect(0, 0, W, height, "url(#%s)" % name)
            + "<g mask='url(#%sm)'>%s</g>" % (name, rect(0, 0, W, height, "#fff", "filter='url(#%sc)'" % name)))


def sea(name, top, bottom, colours, seed, light=(1, 1, 1), strength=2.6):
    stops = [(i / (len(colours) - 1), c) for i, c in enumerate(colours)]
    r, g, b = light
    return (gradient(name, *stops)
            + noise(name + "a", ".006 .22", seed, tint(r, g, b, "0 0 0 %g -1.35" % strength), 3)
            + noise(name + "b", ".02 .09", seed + 1, tint(0, .12, .25, "0 0 0 2.2 -1.05"), 3)
            + rect(0, top, W, bottom - top, "url(#%s)" % name)
            + rect(0, top, W, bottom - top, "#fff", "filter='url(#%sb)' opacity='.55'" % name)
            + rect(0, top, W, bottom - top, "#fff", "filter='url(#%sa)' opacity='.8'" % name))


def sand(name, d, light, dark, seed, shade=".42 .30 .14"):
    r, g, b = shade.split()
    return (gradient(name, (0, light), (1, dark))
            + noise(name + "n", ".7 .9", seed, tint(r, g, b, "0 0 0 1.5 -.72"), 2)
            + noise(name + "w", ".012 .05", seed + 3, tint(r, g, b, "0 0 0 1.7 -.78"), 3)
            + path(d, "url(#%s)" % name) + path(d, "#fff", "filter='url(#%sw)' opacity='.5'" % name)
            + path(d, "#fff", "filter='url(#%sn)' opacity='.5'" % name))


def grass(rng, spots, height, colours, blades=7, lean=.5, width=1.5):
    """Tufts at the spots (x, y, scale). Blades of one colour and width are one path."""
    strokes = {}
    for x, y, scale in spots:
        for _ in range(blades):
            tall = height * scale * rng.uniform(.55, 1)
            bend = tall * rng.uniform(-.35, .75) * lean * 2
            foot = x + rng.uniform(-6, 6) * scale
            look = rng.choice(colours), round(2 * width * scale * rng.uniform(.6, 1)) / 2 or .5
            strokes.setdefault(look, []).append("M%.0f %.0fq%.0f %.0f %.0f %.0f" % (foot, y, bend * .15, -tall * .7, bend, -tall))
    return "".join(line("".join(blades_of_look), *look) for look, blades_of_look in strokes.items())


def spots_along(rng, x0, x1, count, y, scale=(.7, 1.2)):
    """Places on the line y(x), the lowest last, so that what is in front covers what is behind."""
    found = [(x, y(x), rng.uniform(*scale)) for x in (rng.uniform(x0, x1) for _ in range(count))]
    return sorted(found, key=lambda spot: spot[1])


def gull(x, y, size, colour="#4a5560"):
    return line("M%g %gq%g %g %g %gq%g %g %g %g" % (x - size, y, size * .5, -size * .55, size, size * .05,
                                                  size * .5, -size * .6, size, -size * .05), colour, max(1, size / 8))


def sunpath(x, top, bottom, rng, colour, count=70, spread=46):
    out = []
    for _ in range(count):
        t = rng.random() ** 1.3
        y, half = top + (bottom - top) * t, rng.uniform(4, 16) * (.4 + t)
        out.append(ellipse(x + rng.gauss(0, .35) * spread * (.35 + t), y, half, .6 + 1.1 * t, colour,
            "opacity='%.2f'" % rng.uniform(.25, .8)))
    return "".join(out)


GREENS = ["#6f7f3d", "#87954a", "#a3a858", "#5d7038", "#b7b46a"]


def window(x, y, w, h, glass="url(#glas)", frame="#ffffff"):
    return (rect(x - 2.5, y - 2.5, w + 5, h + 5, frame) + rect(x, y, w, h, glass)
            + rect(x + w / 2 - 1, y, 2, h, frame) + rect(x, y + h * .42, w, 2, frame)
            + rect(x - 4, y + h + 2, w + 8, 3, "#dfe3e4"))


def house(roof="#8a7358", wall="#f7f3e8", seed=3, glass=(("0", "#5f7f96"), ("1", "#b8d2df")), snow=False):
    """A thatched house, 300 wide, 170 high, the ground at y = 0."""
    body = [gradient("glas", *glass), gradient("wand", (0, wall), (1, "#dcd5c2")), gradient("dach", (0, roof), (1, "#5d4a36")),
            noise("reet", ".35 .03", seed, tint(.16, .11, .05, "0 0 0 2.4 -1.0"), 3),
            noise("putz", ".5", seed + 1, tint(.4, .35, .25, "0 0 0 .9 -.45"), 2)]
    front = "M20 0V-74H280V0Z"
    body += [path(front, "url(#wand)"), path(front, "#fff", "filter='url(#putz)'"), rect(20, -10, 260, 10, "#8d5a48")]
    body += [window(38, -58, 34, 34), window(86, -58, 34, 34), window(194, -58, 30, 34), window(236, -58, 30, 34)]
    roof_line = "M2 -66C10 -84 34 -140 52 -166Q150 -174 248 -166C266 -140 290 -84 298 -66Q284 -62 270 -68Q150 -74 30 -68Q16 -62 2 -66Z"
    body += [rect(206, -182, 20, 30, "#9c5644"), rect(203, -185, 26, 5, "#7c4234")]
    body += [path(roof_line, "url(#dach)"), path(roof_line, "#fff", "filter='url(#reet)' opacity='.75'")]
    body += [path("M50 -164Q150 -172 250 -164L247 -155Q150 -163 53 -155Z", "#6b5a3f")]
    gable = "M122 -66C126 -96 140 -122 157 -130C174 -122 188 -96 192 -66Z"
    body += [path("M114 -60C118 -100 136 -132 157 -140C178 -132 196 -100 200 -60L190 -64Q157 -122 124 -64Z", "#6e5a42")]
    body += [path(gable, "url(#wand)"), path("M130 0V-80H184V0Z", "url(#wand)"), window(144, -108, 26, 26)]
    body += [rect(139, -64, 36, 64, "#f4f6f6"), rect(143, -60, 28, 60, "#2f6f8f"), rect(147, -55, 20, 20, "url(#glas)"),
             rect(147, -30, 20, 24, "#28607c"), circle(168, -30, 1.6, "#e8d48a")]
    body += [path("M134 0H180L186 6H128Z", "#b9a58a")]
    if snow:
        body += [path("M2 -66C10 -84 34 -140 52 -166Q150 -176 248 -166C266 -140 290 -84 298 -66C288 -74 276 -84 262 -80C250 -98 230 -92 216 -88"
                      "Q190 -130 157 -143Q124 -130 96 -90C80 -88 62 -96 46 -82C30 -86 16 -74 2 -66Z", "#fbfdff"),
                 path("M114 -60C118 -100 136 -134 157 -143C178 -134 196 -100 200 -60Q192 -66 188 -74Q172 -122 157 -126Q142 -122 126 -74Z", "#eef4fa"),
                 rect(202, -190, 28, 7, "#fbfdff", "rx='3'")]
    return "".join(body)


def fence(x0, x1, y, step=13, colour="#f3f1ea", height=24):
    posts = "".join(path("M%g %gv-%gl3 -4l3 4v%gz" % (x, y, height, height), colour) for x in range(x0, x1, step))
    return rect(x0 - 3, y - height * .85, x1 - x0, 3, colour) + rect(x0 - 3, y - height * .4, x1 - x0, 3, colour) + posts


def beach_chair(stripe="#2f78a8"):
    """A hooded wicker beach chair, 90 wide, 110 high, the ground at y = 0."""
    hood = "M-40 -52C-44 -92 -30 -112 0 -112C30 -112 44 -92 40 -52Z"
    out = [noise("korb", ".4 .12", 8, tint(.25, .17, .08, "0 0 0 2 -.9"), 2), gradient("korbf", (0, "#d8b988"), (1, "#b08c58")),
           ellipse(4, 1, 54, 6, "#5a4a30", "opacity='.28'"), path("M-43 0V-54H43V0Z", "url(#korbf)"), path(hood, "url(#korbf)"),
           path("M-43 0V-54H43V0Z", "#fff", "filter='url(#korb)'"), path(hood, "#fff", "filter='url(#korb)'"),
           path("M-32 -50C-36 -84 -24 -102 0 -102C24 -102 36 -84 32 -50Z", "#f7f5ee")]
    out += [path("M%g -50C%g -78 %g -94 %g -%gL%g -%gC%g -94 %g -78 %g -50Z" % (
        x, x - 1, x * .85, x * .8, 100 - abs(x) * .35, x * .8 + 5.5, 100 - abs(x + 6) * .35, x * .85 + 6, x + 6, x + 7), stripe)
        for x in (-28, -14, 0, 14)]
    out += [rect(-33, -52, 66, 18, stripe), rect(-33, -52, 66, 4, "#ffffff", "opacity='.55'"), rect(-36, -34, 72, 22, "#f7f5ee")]
    out += [rect(x, -34, 7, 22, stripe) for x in (-30, -16, -2, 12, 26)]
    out += [rect(-44, -60, 9, 30, "#c8a878"), rect(35, -60, 9, 30, "#c8a878")]
    return "".join(out)


def lighthouse():
    """40 wide at its foot, 190 high."""
    out = [gradient("turm", (0, "#fff", 0), (.35, "#fff", .35), (1, "#000", .4), across=True)]
    tower = lambda y: 20 - (-y) * 9 / 150
    for i, colour in enumerate(("#c8382c", "#f6f3ec") * 3):
        y0, y1 = -i * 25, -(i + 1) * 25
        out.append(path("M%g %gH%gL%g %gH%gZ" % (-tower(y0), y0, tower(y0), tower(y1), y1, -tower(y1)), colour))
    out += [path("M-20 0H20L11 -150H-11Z", "url(#turm)"), rect(-16, -155, 32, 5, "#3c4650"), rect(-9, -174, 18, 19, "#ffe9a0"),
            rect(-9, -174, 18, 19, "url(#turm)"), line("M-9 -174V-155M0 -174V-155M9 -174V-155", "#3c4650", 1.4),
            path("M-12 -174H12L0 -188Z", "#a82e24"), line("M0 -188V-196", "#3c4650", 1.6), line("M-15 -162H15", "#3c4650", 1.2),
            rect(-4, -16, 8, 16, "#5a4030"), rect(-3, -62, 6, 8, "#44525e"), rect(-2.6, -110, 5.2, 7, "#44525e")]
    return "".join(out)


def cutter(hull="#a83a30"):
    """A fishing boat, 150 long, the water line at y = 0."""
    return "".join([
        path("M-74 -20C-60 -16 40 -16 76 -32C74 -16 66 2 58 8H-62C-70 0 -74 -10 -74 -20Z", hull),
        path("M-74 -20C-60 -16 40 -16 76 -32L75 -27C42 -11 -60 -11 -73 -15Z", "#f2efe6"), rect(-20, -46, 34, 28, "#f7f5ef"),
        rect(-23, -50, 40, 5, "#2f6f8f"), rect(-15, -41, 9, 9, "#5f7f96"), rect(-2, -41, 9, 9, "#5f7f96"),
        line("M24 -22V-118M-44 -18V-84", "#6b4b32", 3), line("M24 -112L-22 -50M24 -112L74 -32M-44 -82L-70 -22M-44 -82L-20 -48",
            "#50463c", .9),
        line("M24 -70L60 -96M24 -70L-8 -98", "#6b4b32", 2.2), path("M24 -117l15 5l-15 5z", "#d8b23a"),
        path("M60 -96C64 -74 58 -54 46 -28C52 -50 54 -74 60 -96Z", "#7f8f6a", "opacity='.75'"),
            ellipse(-56, -19, 6, 6, "#e07b2c"),
        ellipse(-56, -19, 3, 3, "#f7f5ef")])

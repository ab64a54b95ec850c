"""Small GIF files as the system writes them, and what they mean: a coder and a decoder that know nothing of each other."""

LEVELS = (0, 64, 128, 192, 255)


def cube():
    colours = [(red, green, blue) for red in LEVELS for green in LEVELS for blue in LEVELS]
    return colours + [(0, 0, 0)] * (256 - len(colours))


def nearest(colour, palette):
    """Number of the first of the nearest colours."""
    distances = [sum((a - b) ** 2 for a, b in zip(colour, entry)) for entry in palette]
    return distances.index(min(distances))


class Coder:
    """The dictionary has strings of three-digit numbers as its keys, the stream is a text of bits."""

    def __init__(self):
        self.bits = []
        self.dictionary = {}
        self.next_code = 0

    def put_bits(self, code, count):
        self.bits += [(code >> position) & 1 for position in range(count)]

    def put_code(self, code):
        self.next_code += 1
        if self.next_code > 511:
            self.next_code = 258
            self.put_bits(256, 9)
            self.dictionary = {}
        self.put_bits(code, 9)

    def code_of(self, text):
        return int(text) if len(text) == 3 else self.dictionary[text]

    def row(self, pixels):
        self.dictionary, self.next_code = {}, 257
        self.put_bits(256, 9)
        prefix = "%03d" % pixels[0]
        for pixel in pixels[1:]:
            key = "%03d" % pixel
            if prefix + key in self.dictionary:
                prefix += key
            else:
                self.put_code(self.code_of(prefix))
                self.dictionary[prefix + key] = self.next_code
                prefix = key
        self.put_code(self.code_of(prefix))

    def data(self):
        self.put_bits(257, 9)
        self.bits += [0] * (-len(self.bits) % 8)
        return bytes(sum(bit << i for i, bit in enumerate(self.bits[at:at + 8])) for at in range(0, len(self.bits), 8))


def encode(rows, palette):
    """`rows` are lists of numbers, `palette` holds up to 256 triples."""
    width, height = len(rows[0]), len(rows)
    sizes = width.to_bytes(2, "little") + height.to_bytes(2, "little")
    table = b"".join(bytes(entry) for entry in list(palette) + [(0, 0, 0)] * (256 - len(palette)))
    coder = Coder()
    for row in rows:
        coder.row(row)
    data = coder.data()
    blocks = b"".join(bytes([len(data[at:at + 255])]) + data[at:at + 255] for at in range(0, len(data), 255))
    return (b"GIF87a" + sizes + bytes([0x80 | 0x70 | 7, 0, 0]) + table
            + bytes([44, 0, 0, 0, 0]) + sizes + bytes([0, 8]) + blocks + bytes([0, 59]))


def encode_colours(rows, palette=None):
    """`rows` are lists of colours: by the table where it has them all, else the nearest of the cube."""
    if palette and all(colour in palette for row in rows for colour in row):
        return encode([[palette.index(colour) for colour in row] for row in rows], palette)
    colours = cube()
    numbers = {colour: nearest(colour, colours) for row in rows for colour in row}
    return encode([[numbers[colour] for colour in row] for row in rows], colours)


def decode(data):
    """Width, height and the colours row by row, by the format's own description."""
    assert data[:6] in (b"GIF87a", b"GIF89a"), data[:6]
    width, height = (int.from_bytes(data[at:at + 2], "little") for at in (6, 8))
    entries = 2 << (data[10] & 7)
    palette = [tuple(data[13 + 3 * i:16 + 3 * i]) for i in range(entries)]
    at = 13 + 3 * entries
    assert data[at] == 44 and data[at + 9] == 0
    code_size, at = data[at + 10], at + 11
    stream = b""
    while data[at]:
        stream += data[at + 1:at + 1 + data[at]]
        at += 1 + data[at]
    assert data[at + 1:] == b";"
    pixels = unpack(stream, code_size)
    assert len(pixels) == width * height
    return width, height, [[palette[p] for p in pixels[y * width:(y + 1) * width]] for y in range(height)]


def unpack(stream, code_size):
    clear, end = 1 << code_size, (1 << code_size) + 1
    value, available, at = 0, 0, 0
    width, table, last, out = code_size + 1, None, None, []
    while True:
        while available < width:
            value |= stream[at] << available
            available, at = available + 8, at + 1
        code, value, available = value & ((1 << width) - 1), value >> width, available - width
        if code == clear:
            width, table, last = code_size + 1, [[i] for i in range(clear)] + [None, None], None
            continue
        if code == end:
            assert at == len(stream)
            return out
        if last is None:
            entry = table[code]
        else:
            entry = table[code] if code < len(table) else last + last[:1]
            table.append(last + entry[:1])
            if len(table) == 1 << width and width < 12:
                width += 1
        out += entry
        last = entry

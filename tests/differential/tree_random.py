"""Random trees of pages and random things to do with them."""
from tree_reference import MOST_CHILDREN, MOST_LEVELS, ROOT, Placement

HEADINGS = ("Haus", "Küche", "Anna's Zimmer", "Ä*?", "- - -", "[1]", "")
BODIES = ("\\N", "<p>Text</p>", "<h3 id=ueberschrift>Größe</h3>", "'; DROP TABLE Seite; --")
PLACEMENTS = (Placement.BEFORE, Placement.BEFORE, Placement.BEHIND, Placement.BEHIND, Placement.UNDER)
WORDS = {Placement.BEFORE: "before", Placement.BEHIND: "behind", Placement.UNDER: "under"}


def contents(dice, serial):
    """A row's columns behind the id; no two rows have the same."""
    heading = f"{dice.choice(HEADINGS)} {serial}"
    date = dice.choice(("\\N", f"2003-04-{serial % 28 + 1:02} 08:00:00"))
    return "\t".join((heading, dice.choice(BODIES), dice.choice(("*.htm", "\\N", "seite*.php")),
                      dice.choice("\\N 1 1 2 3 4".split()), dice.choice(("\\N", "start()")), date, dice.choice("01")))


class Tree:
    """Ids of a random tree of one kind, and whether it is broken."""

    def __init__(self, dice):
        self.dice = dice
        self.kind = dice.choice(("dense", "dense", "small", "gaps", "gaps", "wide", "deep"))
        self.ids = [ROOT]
        {"dense": self.grow_dense, "small": self.grow_small, "gaps": self.grow_with_gaps, "wide": self.grow_wide,
         "deep": self.grow_deep}[self.kind]()
        self.broken = dice.random() < 0.15
        if self.broken:
            self.break_it()
        if dice.random() < 0.5:
            dice.shuffle(self.ids)
        self.has_unique_ids = len(set(self.ids)) == len(self.ids)

    def grow(self, parent, numbers, depth, next_numbers):
        for number in numbers:
            child = f"{parent}{number:02}"
            self.ids.append(child)
            if depth > 1:
                self.grow(child, next_numbers(), depth - 1, next_numbers)

    def few(self, most):
        return range(1, self.dice.randint(0, most) + 1)

    def grow_dense(self):
        self.grow("", range(1, self.dice.randint(1, 7) + 1), self.dice.randint(1, MOST_LEVELS), lambda: self.few(3))

    def grow_small(self):
        self.grow("", range(1, self.dice.randint(1, 4) + 1), 2, lambda: self.few(self.dice.choice((0, 0, 1, 2))))

    def grow_deep(self):
        self.grow("", self.few(3), MOST_LEVELS, lambda: self.few(2))
        chain = f"{len(self.top_level()) + 1:02}"
        for _ in range(MOST_LEVELS):
            self.ids.append(chain)
            chain += "01"

    def grow_with_gaps(self):
        highest = self.dice.choice((6, 20, MOST_CHILDREN))

        def some():
            return sorted(self.dice.sample(range(1, highest + 1), self.dice.randint(0, 4)))

        self.grow("", some() + [highest] if highest == MOST_CHILDREN else some() or [3], self.dice.randint(1, 3), some)

    def grow_wide(self):
        """A level that is full or nearly so, at the top or below a page."""
        width = self.dice.choice((MOST_CHILDREN, MOST_CHILDREN, MOST_CHILDREN - 1, MOST_CHILDREN - 4))
        if self.dice.random() < 0.5:
            self.grow("", range(1, width + 1), 1, tuple)
            below = ("01", f"{self.dice.randint(2, width):02}", f"{width:02}")
        else:
            self.grow("", range(1, 4), 1, tuple)
            self.grow("02", range(1, width + 1), 1, tuple)
            below = ("01", f"02{self.dice.randint(1, width):02}", f"02{width:02}")
        for top in set(below):
            self.grow(top, self.few(3), self.dice.randint(1, MOST_LEVELS - len(top) // 2), lambda: self.few(2))

    def top_level(self):
        return [page_id for page_id in self.ids if len(page_id) == 2 and page_id != ROOT]

    def break_it(self):
        pages = [page_id for page_id in self.ids if page_id != ROOT] or ["01"]
        for defect in self.dice.sample(("twin", "twin", "no root", "flag", "orphan", "stranger"), self.dice.randint(1, 2)):
            if defect == "twin":
                self.ids.append(self.dice.choice(pages))
            elif defect == "no root" and ROOT in self.ids:
                self.ids.remove(ROOT)
            elif defect == "flag":
                self.ids.append("M" + self.dice.choice(pages))
            elif defect == "orphan":
                self.ids.append(self.dice.choice(pages)[:6] + f"{self.dice.randint(50, 99)}01")
            elif defect == "stranger":
                self.ids.append(self.dice.choice(("index", "1", "\\N", "0101010101")))

    def rows(self):
        return [(page_id, contents(self.dice, serial)) for serial, page_id in enumerate(self.ids)]


def is_page(page_id):
    return page_id is not None and page_id.isdigit() and len(page_id) in (2, 4, 6, 8)


def near(dice, pages, page):
    """Another page that is likely to be a sibling or a relative."""
    relatives = {"sibling": [p for p in pages if len(p) == len(page) and p[:-2] == page[:-2]],
                 "below": [p for p in pages if p.startswith(page)],
                 "above": [p for p in pages if page.startswith(p)],
                 "any": pages}
    return dice.choice(relatives[dice.choice(("sibling", "sibling", "sibling", "any", "any", "any", "below", "above"))] or pages)


def operation(dice, ids, ghosts=0.0):
    """("add", parent), ("delete", id, confirmed) or ("move", source, target, placement) on pages that are there; at a rate of
    `ghosts` the page to delete or to move is not."""
    pages = sorted({page_id for page_id in ids if is_page(page_id)})
    if not pages:
        return None
    verb = dice.choice(("add", "delete", "delete", "move", "move", "move", "move"))
    page = dice.choice(pages)
    if verb != "add" and dice.random() < ghosts:
        page = page[:6] + "98"
    if verb == "add":
        return verb, page
    if verb == "delete":
        # Small trees would be gone too soon.
        return (verb, page, dice.random() > 0.1) if len(page) > 2 or dice.random() < 0.5 else ("add", page)
    return verb, page, near(dice, pages, page), dice.choice(PLACEMENTS)

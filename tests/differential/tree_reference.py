"""Deleting and moving pages, worked out a second time: row by row, each step as a query over the table as it then stands.

A table is a list of rows; a row's id changes, its content never does. Nothing here is fast or clever, so that it can be compared
with the program, which works on all ids at once.
"""
from collections import Counter
from dataclasses import dataclass, field
from enum import IntEnum

ROOT = "00"
FLAG = "M"
MOST_CHILDREN = 99
MOST_LEVELS = 4

MESSAGE_HOME_STAYS = 8
MESSAGE_NO_FIFTH_LEVEL = 19
MESSAGE_NO_NUMBER_LEFT = 20
MESSAGE_HOME_IS_KEPT = 21
MESSAGE_DELETE_PAGE = 22
MESSAGE_DELETE_PAGES = 23
MESSAGE_NO_ROOM = 39
MESSAGE_BELOW_ITSELF = 40
MESSAGE_BEFORE_HOME = 41


class Placement(IntEnum):
    BEFORE = 0
    BEHIND = 1
    UNDER = 2


class NumberAbove99(Exception):
    """A step would write a third digit."""


@dataclass
class Row:
    id: str | None
    content: str
    # Whether the flag was set by the move at hand; one that was left over from elsewhere stays as it is.
    flagged: bool = False


@dataclass
class Outcome:
    """What the user is told, whether the operation ran, and whether the table is only bound not to get worse (`lenient`): then
    another outcome that leaves it as it was is as good."""
    messages: list = field(default_factory=list)
    ran: bool = False
    lenient: bool = False


def two_digits(number):
    if number > 99:
        raise NumberAbove99
    return f"{number:02}"


def number_of(page_id):
    return int(page_id[-2:])


def parent_of(page_id):
    return page_id[:-2]


class Table:
    def __init__(self, rows):
        self.rows = [Row(page_id, content) for page_id, content in rows]

    def listing(self):
        return sorted(((row.id, row.content) for row in self.rows), key=lambda pair: (pair[0] is not None, pair))

    def query(self, condition, descending=False):
        """Rows by id, remembered as rows: an id that changes on the way is met with its new value."""
        found = [row for row in self.rows if row.id is not None and condition(row.id)]
        return sorted(found, key=lambda row: row.id, reverse=descending)

    def like(self, prefix):
        return self.query(lambda page_id: page_id.startswith(prefix))

    def below(self, top):
        return self.query(lambda page_id: page_id.startswith(top) and len(page_id) > len(top))

    # Counting

    def children_count(self, page_id, direct):
        if direct:
            return len(self.query(lambda other: other.startswith(page_id) and len(other) == len(page_id) + 2))
        return len(self.like(page_id))

    def longest_id(self, page_id):
        return max((len(row.id) for row in self.like(page_id)), default=0)

    def entries_after_move(self, source, target):
        moved = self.children_count(source, False)
        if self.below(target) or len(target) == 2:
            return moved + self.children_count(target, False)
        return moved + self.children_count(parent_of(target), True)

    def depth_after_move(self, source, target, placement):
        height = self.longest_id(source) // 2 - len(source) // 2
        return len(target) // 2 + height + (1 if placement == Placement.UNDER else 0)

    # Adding

    def add(self, parent, content):
        if len(parent) == 2 * MOST_LEVELS:
            return Outcome([MESSAGE_NO_FIFTH_LEVEL])
        prefix = "" if parent == ROOT else parent
        children = {row.id for row in self.like(prefix) if len(row.id) == len(prefix) + 2 and row.id != ROOT}
        count = len(children)
        free = [n for n in range(count + 1, MOST_CHILDREN + 1) if f"{prefix}{n:02}" not in children]
        if not free:
            return Outcome([MESSAGE_NO_NUMBER_LEFT])
        self.rows.append(Row(f"{prefix}{free[0]:02}", content))
        return Outcome(ran=True)

    # Deleting

    def delete(self, page_id, confirmed=True):
        if page_id == ROOT:
            return Outcome([MESSAGE_HOME_IS_KEPT])
        doomed = self.like(page_id)
        if not doomed:
            return Outcome()
        question = MESSAGE_DELETE_PAGE if len(doomed) == 1 else MESSAGE_DELETE_PAGES
        if not confirmed:
            return Outcome([question])
        before = Table.from_rows(self.rows)
        self.rows = [row for row in self.rows if not any(row is other for other in doomed)]
        self.close_gap_after_deletion(page_id)
        return Outcome([question], ran=True, lenient=self.has_new_twins(before) or self.is_worse_than(before))

    def close_gap_after_deletion(self, deleted):
        level = self.query(lambda page_id: len(page_id) == len(deleted) and page_id != ROOT)
        if len(level) == 1:
            # The one page of the level goes to the place of the deleted one's first sibling, whoever its parent was.
            self.renumber(level[0], parent_of(deleted) + "01")
            return
        free = deleted
        for row in level:
            current = row.id
            if current < deleted or parent_of(current) != parent_of(deleted):
                continue
            self.renumber(row, free)
            free = current

    def renumber(self, row, new):
        old = row.id
        for other in self.below(old):
            other.id = new + other.id[len(old):]
        row.id = new

    # Moving

    def drag(self, source, target, placement):
        """From the drop of a page on another to the end of the dialog in which `placement` was clicked once."""
        if source == ROOT:
            return Outcome([MESSAGE_HOME_STAYS])
        if source == target:
            return Outcome()
        if placement == Placement.BEFORE:
            lowered = number_of(target) - 1
            target = parent_of(target) + ("-01" if lowered < 0 else two_digits(lowered))
        refusal = self.refusal(source, target, placement)
        if refusal:
            return Outcome([refusal])
        return self.move(source, target, placement)

    def refusal(self, source, target, placement):
        if self.entries_after_move(source, target) > MOST_CHILDREN:
            return MESSAGE_NO_ROOM
        if len(source) < len(target) and target.startswith(source):
            return MESSAGE_BELOW_ITSELF
        if self.depth_after_move(source, target, placement) > MOST_LEVELS:
            return MESSAGE_NO_ROOM
        return MESSAGE_BEFORE_HOME if target == "-01" else None

    def move(self, source, target, placement):
        if placement == Placement.UNDER or source == target:
            return Outcome(ran=True)
        before = Table.from_rows(self.rows)
        try:
            for row in self.query(lambda page_id: page_id == source):
                self.move_row(row, source, target)
        except NumberAbove99:
            self.rows = before.rows
            return Outcome([MESSAGE_NO_ROOM], lenient=before.is_broken())
        # Of twins nobody can say which one is meant.
        has_twin = before.ids().count(source) > 1
        return Outcome(ran=True, lenient=has_twin or self.has_new_twins(before) or self.is_worse_than(before))

    def move_row(self, row, source, target):
        arrival = FLAG + parent_of(target) + two_digits(number_of(target) + 1)
        row.id, row.flagged = arrival, True
        for other in self.below(source):
            other.id, other.flagged = arrival + other.id[len(source):], True
        if source < target:
            self.make_room(target)
            self.take_flags_off()
            self.close_gap(source)
        else:
            self.close_gap(source)
            self.make_room(target)
            self.take_flags_off()

    def level_of(self, page_id, descending=False):
        parent = parent_of(page_id)
        return self.query(lambda other: other.startswith(parent) and len(other) == len(page_id) and other != ROOT, descending)

    def make_room(self, target):
        for row in self.level_of(target, descending=True):
            if row.id > target:
                old = row.id
                row.id = new = parent_of(old) + two_digits(number_of(old) + 1)
                for other in self.like(old):
                    other.id = new + other.id[len(old):]

    def close_gap(self, source):
        for row in self.level_of(source):
            if not row.id.startswith(FLAG) and number_of(row.id) > number_of(source):
                self.renumber(row, parent_of(row.id) + two_digits(number_of(row.id) - 1))

    def take_flags_off(self):
        for row in self.rows:
            if row.flagged:
                row.id, row.flagged = row.id[len(FLAG):], False

    # What the ids promise

    @staticmethod
    def from_rows(rows):
        return Table((row.id, row.content) for row in rows)

    def ids(self):
        return [row.id for row in self.rows if row.id is not None]

    def surplus(self):
        """Rows beyond the first of each id."""
        return len(self.ids()) - len(set(self.ids()))

    def flags(self):
        return sum(page_id.startswith(FLAG) for page_id in self.ids())

    def too_deep(self):
        return sum(len(page_id) > 2 * MOST_LEVELS and not page_id.startswith(FLAG) for page_id in self.ids())

    def orphans(self):
        present = set(self.ids())
        return sum(len(page_id) > 2 and parent_of(page_id) not in present for page_id in present)

    def is_broken(self):
        return self.surplus() + self.flags() + self.orphans() > 0

    def has_new_twins(self, before):
        """An id that more rows bear than before: so it is also where twins that were there go to another number together."""
        counts, known = Counter(self.ids()), Counter(before.ids())
        return any(count > max(1, known[page_id]) for page_id, count in counts.items())

    def is_worse_than(self, before):
        return self.surplus() > before.surplus() or self.flags() > before.flags() or self.too_deep() > before.too_deep()

    def is_dense(self):
        """Every page has a parent, and the children of each are numbered from 01 on."""
        present = set(self.ids())
        if self.surplus() or ROOT not in present:
            return False
        return all(self.has_parent(page_id, present) and self.has_page_before(page_id, present) for page_id in present - {ROOT})

    @staticmethod
    def has_parent(page_id, present):
        return len(page_id) == 2 or parent_of(page_id) in present

    @staticmethod
    def has_page_before(page_id, present):
        return number_of(page_id) == 1 or f"{parent_of(page_id)}{number_of(page_id) - 1:02}" in present

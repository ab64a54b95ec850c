"""Layout trees: the built-in ones, and those that users keep as XML files in the program directory's folder xml."""
import os
import re
from xml.dom import Node as Xml
from xml.dom import minidom
from xml.parsers.expat import ExpatError

import files
from template_trees import TREES

BUILT_IN_ENTRIES = ("Navigation linke Seite", "Navigation in Laschen oben", "ohne alles", "einfache Tabelle")
HEADING_ENTRY = "-- benutzerdefinierte Layouts --"
RESERVED_NAME = "_layouts.xml"
BLANK = " \t\r\n"
TEXT_NODES = (Xml.TEXT_NODE, Xml.CDATA_SECTION_NODE)


class Node:
    """A node of a layout tree."""

    def __init__(self, name="", code="", active_code="", menu=False, active=False, show_children=False):
        self.name, self.code, self.active_code = name, code, active_code
        self.menu, self.active, self.show_children = menu, active, show_children
        self.children = []


def built_in_tree(layout, with_timer):
    root = Node("root")
    path = [root]
    for depth, name, flags, code, active_code in TREES[layout]:
        if name == "startnav" and not with_timer:
            continue
        node = Node(name, code.replace("¶", "\r\n"), active_code.replace("¶", "\r\n"), "M" in flags, "A" in flags, "S" in flags)
        del path[depth:]
        path[-1].children.append(node)
        path.append(node)
    return root


def layout_entries(program_dir):
    """The texts of the layout box."""
    entries, folder = list(BUILT_IN_ENTRIES), files.native(program_dir + "xml")
    found = [name for name in sorted(os.listdir(folder)) if name.lower().endswith(".xml")] if os.path.isdir(folder) else []
    if not found:
        return entries
    entries.append(HEADING_ENTRY)
    for name in found:
        path = os.path.join(folder, name)
        if name == RESERVED_NAME or os.path.isdir(path):
            continue
        document = parsed(path)
        roots = document.getElementsByTagName("root") if document else []
        if roots and roots[0].hasAttribute("name"):
            entries.append("%s (%s)" % (roots[0].getAttribute("name"), name))
    return entries


def parsed(path):
    """None for a file that is not well-formed."""
    try:
        return minidom.parse(path)
    except (ExpatError, ValueError, LookupError):
        return None


def load_layout(path, root):
    document = parsed(path)
    if document:
        walk(document.childNodes, root)


def walk(nodes, here):
    for node in nodes:
        if node.nodeName == "code":
            here.code = text_of(node)
        elif node.nodeName == "codeactive":
            here.active_code = text_of(node)
        if not children_of(node):
            continue
        if node.nodeName == "root":
            walk(node.childNodes, here)
        elif node.nodeName == "template":
            child = Node(node.getAttribute("name"), menu=is_true(node, "ismenuitem"), active=is_true(node, "isactivemenuitem"),
                         show_children=is_true(node, "showchildren"))
            walk(node.childNodes, child)
            here.children.append(child)


def children_of(node):
    return [n for n in node.childNodes if not is_blank(n)]


def is_blank(node):
    return node.nodeType == Xml.TEXT_NODE and not node.data.strip(BLANK)


def is_true(element, name):
    return element.getAttribute(name).lower() == "true"


def text_of(element):
    return re.sub("\r\n|\r|\n", "\r\n", plain_text(element))


def plain_text(node):
    out = ""
    for child in node.childNodes:
        if child.nodeType in TEXT_NODES:
            out += child.data
        elif child.nodeType == Xml.ELEMENT_NODE:
            out += plain_text(child)
    return out

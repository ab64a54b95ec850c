"""What becomes of a page's document on the way to a telephone."""
import html5lib

from markup import Document, QuirksParser, _elements, inner_html

SECTIONS = ("tbody", "thead", "tfoot")


def set_outer_html(element, text):
    """Parsed in the context of the element around."""
    parent = element.parentNode
    parser = QuirksParser(tree=html5lib.getTreeBuilder("dom"))
    # Pages are parsed with scripting off, where this one is an element like others.
    context = "div" if parent.nodeName == "noscript" else parent.nodeName
    fragment = parser.parseFragment(text, container=context)
    for child in list(fragment.childNodes):
        parent.insertBefore(parent.ownerDocument.importNode(child, True), element)
    parent.removeChild(element)


def _children(element, names):
    return [child for child in element.childNodes if child.nodeType == child.ELEMENT_NODE and child.nodeName in names]


def _rows(table):
    for child in _children(table, ("tr",) + SECTIONS):
        if child.nodeName == "tr":
            yield child
        else:
            yield from _children(child, ("tr",))


def table_as_lines(table):
    text = ""
    for row in _rows(table):
        for name in ("th", "td"):
            for cell in _children(row, (name,)):
                text += inner_html(cell) + "<br>"
        text += "<br>\r\n"
    return text.strip(" ")


def centred(heading):
    return ("<div align=center>" + inner_html(heading) + "<br></div>").strip(" ")


def first(document, name):
    return next((e for e in _elements(document.root_) if e.nodeName == name), None)


def dissolve(document):
    """One after the other from the front: what was in a table comes to its own turn as a part of the text."""
    for name, text in (("table", table_as_lines), ("h3", centred)):
        element = first(document, name)
        while element is not None:
            set_outer_html(element, text(element))
            element = first(document, name)


def read(html):
    return Document(html)

"""A page's HTML as a document: parsed by html5lib, written again as innerHTML with CR LF line ends."""
import re

import html5lib
from html5lib.html5parser import getPhases, impliedTagToken

VOID = frozenset("area base basefont bgsound br col embed frame hr img input keygen link meta param source track wbr".split())
# The text of these stands as it is. noscript is none of them: pages are parsed and written with scripting off.
RAW_TEXT = frozenset("style script xmp iframe noembed noframes plaintext".split())
HTML_NAMESPACE = "http://www.w3.org/1999/xhtml"
PREFIXES = {"http://www.w3.org/1999/xlink": "xlink", "http://www.w3.org/XML/1998/namespace": "xml"}


def _correct_html5lib():
    """Two of its slips: blanks in a cell open the formatting again, and a table in a table of a fragment is not dropped."""
    phases = getPhases(False)

    def blanks_as_in_body(self, token):
        return self.parser.phases["inBody"].processSpaceCharacters(token)

    def table_in_table(self, token):
        self.parser.phase.processEndTag(impliedTagToken("table"))
        return token

    for name in ("inCell", "inCaption"):
        phases[name].processSpaceCharacters = blanks_as_in_body
    vars(phases["inTable"])["startTagHandler"]["table"] = table_in_table


_correct_html5lib()


class QuirksParser(html5lib.HTMLParser):
    """The document around the text has no doctype either."""

    def reset(self):
        super().reset()
        self.compatMode = "quirks"


class Document:
    """One parsed document."""

    def __init__(self, text):
        self.root_ = html5lib.parse(text, treebuilder="dom")
        self.body_ = next((n for n in self.root_.documentElement.childNodes if n.nodeName in ("body", "frameset")), None)

    def images(self):
        return [n for n in _elements(self.root_) if _is_html(n) and n.nodeName == "img"]

    def links(self):
        return [n for n in _elements(self.root_) if _is_html(n) and n.nodeName in ("a", "area") and n.hasAttribute("href")]

    def body_html(self):
        return inner_html(self.body_) if self.body_ is not None else ""


def body_fragment(text):
    """What a body gives back as innerHTML after this text was set as its innerHTML."""
    return inner_html(QuirksParser(tree=html5lib.getTreeBuilder("dom")).parseFragment(text, container="body"))


def inner_html(node):
    return re.sub("\r?\n", "\r\n", _inner(node))


def _is_html(node):
    return node.namespaceURI in (None, HTML_NAMESPACE)


def _elements(node):
    for child in node.childNodes:
        if child.nodeType == child.ELEMENT_NODE:
            yield child
            yield from _elements(child)


def _inner(node):
    out = []
    for child in node.childNodes:
        if child.nodeType == child.ELEMENT_NODE:
            _write_element(child, out)
        elif child.nodeType == child.TEXT_NODE:
            raw = node.nodeName in RAW_TEXT and _is_html(node)
            out.append(child.data if raw else _escape(child.data))
        elif child.nodeType == child.COMMENT_NODE:
            out.append("<!--%s-->" % child.data)
        elif child.nodeType == child.DOCUMENT_TYPE_NODE:
            out.append("<!DOCTYPE %s>" % child.name)
    return "".join(out)


def _write_element(element, out):
    out.append("<" + element.nodeName)
    for i in range(element.attributes.length):
        attribute = element.attributes.item(i)
        out.append(' %s="%s"' % (_attribute_name(attribute), _escape_attribute(attribute.value)))
    out.append(">")
    if _is_html(element) and element.nodeName in VOID:
        return
    out.append(_inner(element))
    out.append("</%s>" % element.nodeName)


def _attribute_name(attribute):
    prefix = PREFIXES.get(attribute.namespaceURI)
    return "%s:%s" % (prefix, attribute.localName) if prefix else attribute.name


def _escape(text):
    return text.replace("&", "&amp;").replace("\u00a0", "&nbsp;").replace("<", "&lt;").replace(">", "&gt;")


def _escape_attribute(text):
    return text.replace("&", "&amp;").replace("\u00a0", "&nbsp;").replace('"', "&quot;")

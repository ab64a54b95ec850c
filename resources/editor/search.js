// Where a text stands on the page, as it is read there: whatever the case, over the borders of elements inside of a line, any
// white space as one blank.
window.editorSearch ??= (() => {
  "use strict";

  const kUnread = "script,style,template,textarea,select,noscript,iframe,object";
  const kLines = "address,blockquote,body,caption,center,dd,dir,div,dl,dt,fieldset,form,h1,h2,h3,h4,h5,h6,hr,br,li,menu,ol,p,pre," +
                 "table,tbody,td,tfoot,th,thead,tr,ul,marquee";

  /// Letter by letter, so that places stay places.
  function folded(text) {
    const lowered = text.toLowerCase();
    if (lowered.length === text.length)
      return lowered;
    return [...text].map(letter => (letter.toLowerCase().length === letter.length ? letter.toLowerCase() : letter)).join("");
  }

  /// The text of an element with the node and offset that each letter comes from.
  function read(element) {
    const letters = [], nodes = [], offsets = [];
    const add = (letter, node, offset) => {
      const isBlank = letter === " " || letter === "\n";
      if (isBlank && (letters.length === 0 || letters[letters.length - 1] === "\n" || letters[letters.length - 1] === " ")) {
        if (letter === "\n" && letters.length > 0)
          letters[letters.length - 1] = "\n";
        return;
      }
      letters.push(letter);
      nodes.push(node);
      offsets.push(offset);
    };
    const walk = parent => {
      for (const node of parent.childNodes) {
        if (node.nodeType === Node.TEXT_NODE) {
          for (let i = 0; i < node.length; ++i) {
            const letter = node.data[i];
            add(/\s/.test(letter) ? " " : letter, node, i);
          }
        } else if (node.nodeType === Node.ELEMENT_NODE && !node.matches(kUnread)) {
          const isLine = node.matches(kLines);
          if (isLine)
            add("\n", null, 0);
          walk(node);
          if (isLine)
            add("\n", null, 0);
        }
      }
    };
    walk(element);
    return { text: letters.join(""), nodes, offsets };
  }

  function rangeOf({ nodes, offsets }, from, to) {
    const range = document.createRange();
    range.setStart(nodes[from], offsets[from]);
    range.setEnd(nodes[to - 1], offsets[to - 1] + 1);
    return range;
  }

  /// All places of a text, none inside of another.
  function hits(element, text) {
    const wanted = folded(text.replace(/\s+/g, " "));
    if (wanted.trim() === "")
      return [];
    const page = read(element);
    const searched = folded(page.text);
    const found = [];
    for (let at = searched.indexOf(wanted); at >= 0; at = searched.indexOf(wanted, at + wanted.length))
      found.push(rangeOf(page, at, at + wanted.length));
    return found;
  }

  return { hits };
})();

// Keeps the page-turn strip of a page in view.
//
// Ids in the page:  mrdnav   the strip, floating where its style says position:absolute
//                   tabelle  the page's table, which the strip never leaves
//                   zelle    the table's cell that is the strip's home
//                   nsmrdnav the strip's content in an element that only Netscape 4 gave a meaning
//
// As long as the home is below the visible window the strip lies at the window's bottom edge, over the page; from then on it
// lies in its cell. A strip that is part of the text (position:relative), and a page without one of the three, stay as they are.

function navposition() {
  var strip, table, cell, stripBox, tableBox, cellBox, home, top;
  if (!document.getElementById) { return; }
  strip = document.getElementById('mrdnav');
  table = document.getElementById('tabelle');
  cell = document.getElementById('zelle');
  if (!strip || !table || !cell) { return; }
  navfill(document.getElementById('nsmrdnav'));
  if (navstyle(strip).position !== 'absolute') { return; }

  stripBox = strip.getBoundingClientRect();
  tableBox = table.getBoundingClientRect();
  cellBox = cell.getBoundingClientRect();
  home = (cellBox.top + cellBox.bottom - (stripBox.bottom - stripBox.top)) / 2;
  home = Math.min(home, tableBox.bottom - (stripBox.bottom - stripBox.top));
  top = Math.min(home, navwindowheight() - (stripBox.bottom - stripBox.top));
  top = Math.max(top, tableBox.top);
  navshift(strip, 'top', top - stripBox.top);
  navshift(strip, 'left', cellBox.left - stripBox.left);
}

// The content's own position:absolute was for Netscape. Elsewhere it would leave the strip empty, without width and height.
function navfill(content) {
  if (content && navstyle(content).position === 'absolute') { content.style.position = 'static'; }
}

// Moves by a distance, so that it does not matter which element the page's styles count the strip's position from.
function navshift(strip, side, distance) {
  var now;
  if (Math.abs(distance) < 1) { return; }
  now = parseFloat(navstyle(strip)[side]);
  if (isNaN(now)) { now = side === 'top' ? strip.offsetTop : strip.offsetLeft; }
  strip.style[side] = Math.round(now + distance) + 'px';
}

function navstyle(element) {
  return window.getComputedStyle ? window.getComputedStyle(element, null) : element.currentStyle;
}

// Without the horizontal scroll bar. Pages that declare no document type are laid out by the old rules, by which the body
// is what scrolls.
function navwindowheight() {
  if (document.compatMode !== 'BackCompat') { return document.documentElement.clientHeight; }
  return document.body ? document.body.clientHeight : 0;
}

// The pages themselves start a timer only in browsers that know document.all, so in all others the strip is moved from here,
// whenever something has moved it out of place.
(function () {
  var waiting = false;

  function soon() {
    if (waiting) { return; }
    waiting = true;
    window.requestAnimationFrame(function () { waiting = false; navposition(); });
  }

  function watchTable() {
    var table = document.getElementById('tabelle');
    if (table && window.ResizeObserver) { new ResizeObserver(soon).observe(table); }
    navposition();
  }

  if (!window.addEventListener || !window.requestAnimationFrame) { return; }
  window.addEventListener('scroll', soon, false);
  window.addEventListener('resize', soon, false);
  window.addEventListener('load', navposition, false);
  if (document.readyState === 'loading') {
    navposition();
    document.addEventListener('DOMContentLoaded', watchTable, false);
  } else {
    watchTable();
  }
})();

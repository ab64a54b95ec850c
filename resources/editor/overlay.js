// What lies over the page and is no part of it: the frame with handles around an element that is selected as a whole, and the
// marks of what was searched. All of it stands in a shadow tree beside the body, out of reach of the page's own styles.
window.editorOverlay ??= (() => {
  "use strict";

  const kGrid = 10, kSmallest = 4, kMostMarks = 2000;
  /// By the sides that move with the pointer.
  const kHandles = ["nw", "n", "ne", "e", "se", "s", "sw", "w"];
  const kSizedByAttributes = "img,object,embed,iframe,video,table,hr,marquee";

  const kTree = `
    <style>
      #frame { position: absolute; box-sizing: border-box; pointer-events: none; outline: 1px solid #2f6fdd; }
      #frame[hidden] { display: none; }
      .edge { position: absolute; pointer-events: auto; cursor: move; }
      .edge.n { left: -6px; right: -6px; top: -6px; height: 6px; } .edge.s { left: -6px; right: -6px; bottom: -6px; height: 6px; }
      .edge.w { left: -6px; top: 0; bottom: 0; width: 6px; } .edge.e { right: -6px; top: 0; bottom: 0; width: 6px; }
      .inside { position: absolute; inset: 0; pointer-events: auto; cursor: move; }
      .handle { position: absolute; width: 7px; height: 7px; margin: -4px; pointer-events: auto; background: #fff;
        border: 1px solid #2f6fdd; box-sizing: content-box; }
      .n { top: 0; left: 50%; cursor: ns-resize; } .s { top: 100%; left: 50%; cursor: ns-resize; }
      .w { top: 50%; left: 0; cursor: ew-resize; } .e { top: 50%; left: 100%; cursor: ew-resize; }
      .nw { top: 0; left: 0; cursor: nwse-resize; } .se { top: 100%; left: 100%; cursor: nwse-resize; }
      .ne { top: 0; left: 100%; cursor: nesw-resize; } .sw { top: 100%; left: 0; cursor: nesw-resize; }
      .handle.locked, .edge.locked, .inside.locked, .handle.still { display: none; }
      .mark { position: absolute; background: #ffd000; opacity: .45; pointer-events: none; border-radius: 2px; }
    </style>
    <div id="marks"></div>
    <div id="frame" hidden>
      <div class="inside"></div>
      <div class="edge n"></div><div class="edge s"></div><div class="edge w"></div><div class="edge e"></div>
      ${kHandles.map(name => `<div class="handle ${name}"></div>`).join("")}
    </div>`;

  /// `edit` makes one step of what it runs; `framed` answers with the element to frame, or null.
  return function makeOverlay({ edit, framed, isAbsolute, isLocked }) {
    const host = document.createElement("div");
    host.contentEditable = "false";
    host.style.cssText = "all: initial; position: absolute; left: 0; top: 0; width: 0; height: 0; z-index: 2147483647; " +
                         "user-select: none;";
    const root = host.attachShadow({ mode: "open" });
    root.innerHTML = kTree;
    document.documentElement.append(host);
    const frame = root.getElementById("frame"), marks = root.getElementById("marks");
    const handles = [...root.querySelectorAll(".handle")], grips = [...root.querySelectorAll(".edge, .inside")];

    let element = null;
    let snaps = false;
    /// What the pointer does while its button is down.
    let drag = null;
    let marked = [];

    const onGrid = value => (snaps ? Math.round(value / kGrid) * kGrid : Math.round(value));

    // -------------------------------------------------------------- the frame

    const inDocument = ({ left, top, width, height }) =>
      ({ left: left + window.scrollX, top: top + window.scrollY, width, height });

    function place({ left, top, width, height }) {
      Object.assign(frame.style, { left: `${left}px`, top: `${top}px`, width: `${width}px`, height: `${height}px` });
    }

    function refresh() {
      if (drag)
        return;
      element = framed();
      frame.hidden = !element;
      if (!element)
        return;
      place(inDocument(element.getBoundingClientRect()));
      const locked = isLocked(element), moves = isAbsolute(element);
      const isWhole = element.tagName === "IMG";
      handles.forEach(handle => handle.classList.toggle("locked", locked));
      grips.forEach(grip => grip.classList.toggle("locked", locked || !moves || (grip.className.includes("inside") && !isWhole)));
    }

    /// The rectangle that a drag has made of the one at its start. A corner keeps the proportions.
    function dragged(event) {
      const { start, x, y, sides } = drag;
      const right = event.clientX - x, down = event.clientY - y;
      if (!sides)
        return { ...start, left: onGrid(start.left + right), top: onGrid(start.top + down) };
      let width = start.width + (sides.includes("e") ? right : sides.includes("w") ? -right : 0);
      let height = start.height + (sides.includes("s") ? down : sides.includes("n") ? -down : 0);
      if (sides.length === 2 && start.width > 0 && start.height > 0) {
        const scale = Math.max(width / start.width, height / start.height);
        width = start.width * scale;
        height = start.height * scale;
      }
      width = Math.max(kSmallest, sides === "n" || sides === "s" ? width : onGrid(width));
      height = Math.max(kSmallest, sides === "e" || sides === "w" ? height : onGrid(height));
      const left = sides.includes("w") ? start.left + start.width - width : start.left;
      const top = sides.includes("n") ? start.top + start.height - height : start.top;
      return { left, top, width, height };
    }

    function setSize(target, { width, height }, sides) {
      const set = (name, value) => {
        if (target.matches(kSizedByAttributes)) {
          target.style.removeProperty(name);
          target.setAttribute(name, Math.round(value));
        } else {
          target.style.setProperty(name, `${Math.round(value)}px`);
        }
      };
      if (sides !== "n" && sides !== "s")
        set("width", width);
      if (sides !== "e" && sides !== "w")
        set("height", height);
      if (target.getAttribute("style") === "")
        target.removeAttribute("style");
    }

    /// By as much as the frame has moved: what the place is counted from stays what it was.
    function moveBy(target, right, down) {
      const style = getComputedStyle(target);
      target.style.left = `${Math.round((Number.parseFloat(style.left) || 0) + right)}px`;
      target.style.top = `${Math.round((Number.parseFloat(style.top) || 0) + down)}px`;
    }

    function finish(event) {
      const { start, sides, target } = drag;
      const end = dragged(event);
      drag = null;
      const moved = end.left !== start.left || end.top !== start.top, sized = end.width !== start.width || end.height !== start.height;
      if (moved || sized)
        edit(() => {
          if (sides)
            setSize(target, end, sides);
          if (moved && isAbsolute(target))
            moveBy(target, end.left - start.left, end.top - start.top);
          return true;
        });
      refresh();
    }

    function cancel() {
      if (!drag)
        return false;
      drag = null;
      refresh();
      return true;
    }

    function listen(grip, sides) {
      grip.addEventListener("pointerdown", event => {
        if (event.button !== 0 || !element)
          return;
        event.preventDefault();
        grip.setPointerCapture(event.pointerId);
        drag = { start: inDocument(element.getBoundingClientRect()), x: event.clientX, y: event.clientY, sides, target: element };
      });
      grip.addEventListener("pointermove", event => {
        if (drag)
          place(dragged(event));
      });
      grip.addEventListener("pointerup", event => {
        if (drag)
          finish(event);
      });
      grip.addEventListener("pointercancel", cancel);
      grip.addEventListener("mousedown", event => event.preventDefault());
    }
    handles.forEach((handle, i) => listen(handle, kHandles[i]));
    grips.forEach(grip => listen(grip, null));

    // -------------------------------------------------------------- marks

    function drawMarks() {
      marks.replaceChildren();
      for (const range of marked)
        for (const rectangle of range.getClientRects()) {
          const { left, top, width, height } = inDocument(rectangle);
          const mark = document.createElement("div");
          mark.className = "mark";
          mark.style.cssText = `left:${left}px;top:${top}px;width:${width}px;height:${height}px`;
          marks.append(mark);
        }
    }

    function setMarks(ranges) {
      if (ranges.length === 0 && marked.length === 0)
        return;
      marked = ranges.slice(0, kMostMarks);
      drawMarks();
    }

    window.addEventListener("resize", () => {
      refresh();
      drawMarks();
    });
    document.addEventListener("load", refresh, true);

    return {
      refresh, cancel, setMarks, onGrid,
      hasMarks: () => marked.length > 0,
      contains: target => target === host,
      setSnapToGrid(on) { snaps = on; },
    };
  };
})();

// The editing surface inside its document. Runs in a world of its own: the page's scripts are switched off, and could not see
// this one. Timers do not run here either; whatever takes time is asked for by the desktop, which calls
// `editor.call(name, arguments)` and is told by notes that something is to be asked for.
(() => {
  "use strict";
  if (window.editor)
    return;

  const kDisabled = 1, kEnabled = 3, kLatched = 7, kMixed = 11;
  const body = document.body;
  const selection = document.getSelection();

  // ---------------------------------------------------------------- notes to the desktop

  let desktop = null;
  const waitingNotes = [];
  /// Notes that were sent and not yet followed by a question: sending them again would tell nothing new.
  const openNotes = new Set();

  function note(name, ...details) {
    if (desktop)
      desktop[name](...details);
    else
      waitingNotes.push([name, details]);
  }

  function noteOnce(name, ...details) {
    if (openNotes.has(name))
      return;
    openNotes.add(name);
    note(name, ...details);
  }

  new QWebChannel(qt.webChannelTransport, channel => {
    desktop = channel.objects.desktop;
    for (const [name, details] of waitingNotes.splice(0))
      note(name, ...details);
  });

  // ---------------------------------------------------------------- selection

  function rangeOfSelection() {
    if (selection.rangeCount === 0 || !body.contains(selection.anchorNode))
      selection.collapse(body, 0);
    return selection.getRangeAt(0);
  }

  function saveSelection() {
    const { anchorNode, anchorOffset, focusNode, focusOffset } = selection;
    return { anchorNode, anchorOffset, focusNode, focusOffset };
  }

  function restoreSelection(saved) {
    const lengthOf = node => (node.nodeType === Node.TEXT_NODE ? node.length : node.childNodes.length);
    const { anchorNode, focusNode } = saved;
    if (!anchorNode || !body.contains(anchorNode) || !body.contains(focusNode))
      return;
    selection.setBaseAndExtent(anchorNode, Math.min(saved.anchorOffset, lengthOf(anchorNode)), focusNode,
                               Math.min(saved.focusOffset, lengthOf(focusNode)));
  }

  const kControls = "img,hr,table,input,button,select,textarea,object,embed,iframe,video,audio,marquee";

  /// The element that is selected as a whole, or null.
  function selectedControl() {
    if (selection.rangeCount === 0)
      return null;
    const range = selection.getRangeAt(0);
    const { startContainer, startOffset, endContainer, endOffset } = range;
    if (range.collapsed)
      return null;
    if (startContainer === endContainer && startContainer.nodeType === Node.ELEMENT_NODE && endOffset === startOffset + 1)
      return asControl(startContainer.childNodes[startOffset]);
    return controlBetweenTexts(range);
  }

  /// The engine likes to move the ends of a selection into the texts beside the element.
  function controlBetweenTexts(range) {
    const { startContainer, startOffset, endContainer, endOffset } = range;
    let first = startContainer, last = endContainer;
    if (first.nodeType === Node.TEXT_NODE)
      first = startOffset === first.length ? first.nextSibling : null;
    else
      first = first.childNodes[startOffset];
    if (last.nodeType === Node.TEXT_NODE)
      last = endOffset === 0 ? last.previousSibling : null;
    else
      last = last.childNodes[endOffset - 1];
    return first && first === last ? asControl(first) : null;
  }

  function asControl(node) {
    const isControl = node && node.nodeType === Node.ELEMENT_NODE && (node.matches(kControls) || isAbsolute(node));
    return isControl ? node : null;
  }

  function selectNode(node) {
    const range = document.createRange();
    range.selectNode(node);
    selection.removeAllRanges();
    selection.addRange(range);
  }

  /// The element around the cursor or the selection.
  function parentElement() {
    const node = rangeOfSelection().commonAncestorContainer;
    return node.nodeType === Node.ELEMENT_NODE ? node : node.parentElement;
  }

  /// The nearest element around the selection that matches, the selected one included; null outside of the body.
  function closest(selector) {
    const start = selectedControl() || parentElement();
    const found = start.closest(selector);
    return found && found !== body && body.contains(found) ? found : null;
  }

  // ---------------------------------------------------------------- history

  const kMaxSteps = 300;
  const kTypingPause = 2000;
  let steps = [], undone = [];
  /// A command is at work: what the engine tells of its parts is no step of its own.
  let working = false;
  /// Whether several changes are collected into one step, and that step when there is one already.
  let collecting = false, openStep = null;
  let selectionBefore = saveSelection();
  /// Counts what happened to the body, so that the desktop knows whether it has its present text.
  let version = 1;
  let arrivedKeys = 0;
  /// Nothing was changed since the load: a body that is set now belongs to the load.
  let pristine = true;
  /// The desktop itself changes the body.
  let quiet = false;

  const observer = new MutationObserver(records => commit(records, "other"));
  observer.observe(body, {
    subtree: true, childList: true, attributes: true, attributeOldValue: true, characterData: true, characterDataOldValue: true,
  });

  /// Attributes of elements in their order, which no record tells. An element that is not known has one at most.
  const orders = new WeakMap();

  function rememberOrder(element) {
    const names = element.getAttributeNames();
    if (names.length > 1 || orders.has(element))
      orders.set(element, names);
  }

  function rememberOrders(root) {
    if (root.nodeType !== Node.ELEMENT_NODE)
      return;
    rememberOrder(root);
    root.querySelectorAll("*").forEach(rememberOrder);
  }

  function restoreOrder(element, order) {
    const names = element.getAttributeNames();
    const wanted = [...order.filter(name => names.includes(name)), ...names.filter(name => !order.includes(name))];
    if (wanted.every((name, i) => name === names[i]))
      return;
    const attributes = wanted.map(name => element.getAttributeNode(name));
    attributes.forEach(attribute => element.removeAttributeNode(attribute));
    attributes.forEach(attribute => element.setAttributeNode(attribute));
  }

  function recordOf(mutation) {
    const { type, target } = mutation;
    if (type === "attributes")
      return { type, target, old: mutation.oldValue, name: mutation.attributeName, space: mutation.attributeNamespace,
               order: orders.get(target) };
    if (type === "childList")
      return { type, target, added: [...mutation.addedNodes], removed: [...mutation.removedNodes],
               next: mutation.nextSibling, previous: mutation.previousSibling };
    return { type, target, old: mutation.oldValue, name: mutation.attributeName, space: mutation.attributeNamespace };
  }

  /// Of several values that one text or attribute went through, only the first is needed to go back.
  function addRecord(records, record) {
    const last = records[records.length - 1];
    const sameValue = last && record.type !== "childList" && last.type === record.type && last.target === record.target &&
                      last.name === record.name && last.space === record.space;
    if (!sameValue)
      records.push(record);
  }

  const isTyping = kind => /^(insertText|insertComposition|deleteContent)/.test(kind);

  function commit(mutations, kind) {
    const last = steps[steps.length - 1];
    const now = performance.now();
    const isMoreTyping = last && !last.closed && last.kind === kind && isTyping(kind) && now - last.time < kTypingPause;
    const goesOn = isMoreTyping || (last && last === openStep);
    const step = goesOn ? last : { kind, records: [], before: selectionBefore };
    if (collecting)
      openStep = step;
    for (const mutation of mutations)
      addRecord(step.records, recordOf(mutation));
    for (const { type, target, addedNodes } of mutations) {
      if (type === "attributes")
        rememberOrder(target);
      addedNodes.forEach(rememberOrders);
    }
    step.time = now;
    if (!goesOn)
      steps.push(step);
    if (steps.length > kMaxSteps)
      steps.shift();
    undone = [];
    selectionBefore = saveSelection();
    changed();
  }

  function changed() {
    ++version;
    pristine = false;
    if (!quiet)
      noteOnce("changed", version);
    noteOnce("display");
    overlay.setMarks([]);
    overlay.refresh();
  }

  /// Whatever happened to the body until now becomes a step.
  function settle(kind = "other") {
    if (working)
      return;
    const mutations = observer.takeRecords();
    if (mutations.length > 0)
      commit(mutations, kind);
  }

  function closeStep() {
    if (steps.length > 0)
      steps[steps.length - 1].closed = true;
  }

  /// What `work` does to the body becomes one step. Answers with its result.
  function edit(work) {
    settle();
    closeStep();
    selectionBefore = saveSelection();
    working = true;
    try {
      return work();
    } finally {
      working = false;
      settle("command");
      closeStep();
    }
  }

  /// All that is done until `endStep` becomes one step.
  function beginStep() {
    settle();
    closeStep();
    selectionBefore = saveSelection();
    collecting = true;
    openStep = null;
  }

  function endStep() {
    settle("command");
    closeStep();
    collecting = false;
    openStep = null;
  }

  /// What `work` does to the body is no step and no change.
  function unnoticed(work) {
    settle();
    work();
    observer.takeRecords();
  }

  function placeOf(record) {
    if (record.next && record.next.parentNode === record.target)
      return record.next;
    if (record.previous && record.previous.parentNode === record.target)
      return record.previous.nextSibling;
    return null;
  }

  /// Undoes a record and answers with the one that does it again.
  function revertRecord(record) {
    const { type, target, old, name, space } = record;
    if (type === "childList") {
      for (const node of record.added)
        node.remove();
      const place = placeOf(record);
      for (const node of record.removed)
        target.insertBefore(node, place);
      return { ...record, added: record.removed, removed: record.added };
    }
    if (type === "characterData") {
      const present = target.data;
      target.data = old;
      return { ...record, old: present };
    }
    const present = target.getAttributeNS(space, name), order = target.getAttributeNames();
    if (old === null)
      target.removeAttributeNS(space, name);
    else
      target.setAttributeNS(space, name, old);
    if (record.order)
      restoreOrder(target, record.order);
    orders.set(target, target.getAttributeNames());
    return { ...record, old: present, order };
  }

  function moveStep(from, to) {
    settle();
    const step = from.pop();
    if (!step)
      return false;
    const before = saveSelection();
    const records = step.records.reverse().map(revertRecord);
    observer.takeRecords();
    to.push({ kind: step.kind, records, before, closed: true });
    restoreSelection(step.before);
    changed();
    return true;
  }

  const undo = () => moveStep(steps, undone);
  const redo = () => moveStep(undone, steps);

  // ---------------------------------------------------------------- loading and reading

  /// The parser drops a line end at the start of these; to stay as it is, such a text must begin with two.
  const kLosesLineEnd = "pre,listing,textarea";
  const isText = node => node?.nodeType === Node.TEXT_NODE;
  const beginsWithLineEnd = element => isText(element.firstChild) && element.firstChild.data.startsWith("\n");

  function htmlOf(element) {
    if (![...element.querySelectorAll(kLosesLineEnd)].some(beginsWithLineEnd))
      return element.innerHTML;
    const copy = element.cloneNode(true);
    for (const textual of copy.querySelectorAll(kLosesLineEnd))
      if (beginsWithLineEnd(textual))
        textual.firstChild.data = "\n" + textual.firstChild.data;
    return copy.innerHTML;
  }

  /// Nothing ends a `plaintext`: its end tag would be read as text, one more with each load.
  function bodyHtml() {
    const html = htmlOf(body);
    return body.querySelector("plaintext") ? html.replace(/(<\/plaintext>[^]*)$/, "") : html;
  }

  const kWholeDocument = /^\s*(?:<!--[^]*?-->\s*|<\?[^>]*>\s*)*<(?:!doctype|html|head|body)\b/i;
  const kMaxRounds = 4;

  /// A text that is parsed and written may be parsed differently once more. What is shown is what comes back after the next save.
  function setBody(html) {
    let text = html.replace(/\r\n?/g, "\n");
    for (let round = 0; round < kMaxRounds; ++round) {
      body.innerHTML = text;
      const written = bodyHtml();
      if (written === text)
        break;
      text = written;
    }
  }

  function removeBodyAttributes() {
    for (const { name } of [...body.attributes])
      body.removeAttribute(name);
  }

  /// A part of a page stays whole: as a document, scripts and styles at its start would go to the head and be lost.
  function loadBody(html) {
    removeBodyAttributes();
    if (!kWholeDocument.test(html))
      return setBody(html);
    const parsed = new DOMParser().parseFromString(html, "text/html");
    for (const { name, value } of parsed.body.attributes)
      if (!/^on/i.test(name))
        body.setAttribute(name, value);
    setBody(parsed.body.innerHTML);
  }

  /// With this the desktop knows of all changes; the next one is to be told again.
  const site = document.createElement("base");
  document.head.append(site);

  function readBody() {
    openNotes.delete("changed");
    return { version, body: bodyHtml() };
  }

  function elementById(id) {
    return [...body.querySelectorAll("[id]")].find(element => element.id === id) || null;
  }

  const textOf = element => (element ? element.innerText : null);

  const reading = {
    /// Relative references of the body start at `base`.
    load(html, base = site.href) {
      site.href = base;
      unnoticed(() => loadBody(html));
      rememberOrders(body);
      overlay.setMarks([]);
      numbered.clear();
      collecting = false;
      steps = [];
      undone = [];
      pristine = true;
      selection.collapse(body, 0);
      selectionBefore = saveSelection();
      window.scrollTo(0, 0);
      ++version;
      return readBody();
    },
    setBody(html) {
      settle();
      if (pristine)
        return reading.load(html);
      quiet = true;
      edit(() => setBody(html));
      quiet = false;
      return readBody();
    },
    arrivedKeys: () => arrivedKeys,
    /// Nothing when the desktop has the present text.
    read(known) {
      settle();
      return known === version ? null : readBody();
    },
    textOfElement: id => textOf(elementById(id)),
    textAroundCursor(id) {
      const element = parentElement();
      return textOf([element, element.parentElement].find(one => one?.id === id));
    },
    clearSelection() {
      if (selection.rangeCount > 0)
        selection.collapse(selection.focusNode, selection.focusOffset);
    },
    selectionType() {
      if (selectedControl())
        return "control";
      return selection.isCollapsed ? "none" : "text";
    },
    selectedText: () => (selectedControl() ? "" : selection.toString()),
  };

  // ---------------------------------------------------------------- elements that the desktop works on

  /// The desktop knows an element by its number; it keeps it until the next load.
  const numbered = new Map(), numbers = new WeakMap();

  function numberOf(element) {
    if (!element || element.nodeType !== Node.ELEMENT_NODE)
      return null;
    if (!numbers.has(element))
      numbers.set(element, numbered.size + 1);
    numbered.set(numbers.get(element), element);
    return numbers.get(element);
  }

  const elements = {
    beginStep, endStep,
    elementAround: () => (selectedControl() ? null : numberOf(parentElement())),
    elementSelected: () => numberOf(selectedControl()),
    elementTag: number => numbered.get(number)?.tagName ?? "",
    elementParent: number => numberOf(numbered.get(number)?.parentElement),
    elementChildren: number => [...(numbered.get(number)?.children ?? [])].map(numberOf),
    elementHtml: number => numbered.get(number)?.outerHTML ?? "",
    elementAttribute: (number, name) => numbered.get(number)?.getAttribute(name) ?? null,
    setElementAttribute: (number, name, value) => edit(() => numbered.get(number)?.setAttribute(name, value)),
    removeElementAttribute: (number, name) => edit(() => numbered.get(number)?.removeAttribute(name)),
    setElementStyle: (number, name, value) => edit(() => numbered.get(number)?.style.setProperty(name, value)),
  };

  // ---------------------------------------------------------------- inserting

  const kBlocks = "address,blockquote,center,dd,dir,div,dl,dt,fieldset,form,h1,h2,h3,h4,h5,h6,hr,li,menu,ol,p,pre,table,ul";
  /// A block inside one of these ends it when the page is read again.
  const kEndedByBlocks = "p,h1,h2,h3,h4,h5,h6,pre,address";

  function fragmentOf(html) {
    const template = document.createElement("template");
    template.innerHTML = html;
    return document.importNode(template.content, true);
  }

  const kHeadings = "h1,h2,h3,h4,h5,h6";

  /// The engine puts lists and quotations into paragraphs. Read again, they would end them, and leave empty ones behind.
  function liftBlocks() {
    const saved = saveSelection();
    const within = closest(`p,${kHeadings}`) || parentElement();
    const parents = [within, ...within.querySelectorAll(`p,${kHeadings}`)].filter(parent => parent.matches(`p,${kHeadings}`));
    for (const parent of parents)
      for (let block; (block = [...parent.children].find(child => child.matches("ul,ol,dir,menu,dl,blockquote,div,p")));)
        liftOut(block, parent);
    restoreSelection(saved);
  }

  function liftOut(block, parent) {
    const rest = parent.cloneNode(false);
    parent.after(rest);
    while (block.nextSibling)
      rest.append(block.nextSibling);
    parent.after(block);
    keepWhatIsLeft(parent, rest);
  }

  /// Of the halves of an element those that hold something stay, and one of them with its name.
  function keepWhatIsLeft(first, second) {
    if (isEmpty(first))
      first.remove();
    else
      second.removeAttribute("id");
    if (isEmpty(second))
      second.remove();
  }

  const isEmpty = element => element.textContent.trim() === "" && !element.querySelector("img,hr,input,table,object,br");

  /// Cuts the element in two at the cursor and moves the cursor between them.
  function splitAtCursor(element) {
    const range = rangeOfSelection();
    range.setEndAfter(element);
    // A copy, because what moves outside of the body is seen by no observer, and would be missing when the step is done again.
    const second = range.extractContents().firstElementChild.cloneNode(true);
    const place = document.createRange();
    place.setStartAfter(element);
    element.after(second);
    keepWhatIsLeft(element, second);
    return place;
  }

  function placeForFragment(hasBlocks) {
    const ended = hasBlocks ? closest(kEndedByBlocks) : null;
    return ended ? splitAtCursor(ended) : rangeOfSelection();
  }

  function deleteSelection() {
    const control = selectedControl();
    if (control) {
      const place = document.createRange();
      place.setStartBefore(control);
      control.remove();
      selection.collapse(place.startContainer, place.startOffset);
    } else if (!selection.isCollapsed) {
      document.execCommand("delete");
    }
  }

  /// The engine's own deletion joins blocks, and turns blanks that come to stand at an end into ones that do not break.
  function makePlace() {
    const range = rangeOfSelection();
    const blockOf = node => (node.nodeType === Node.ELEMENT_NODE ? node : node.parentElement).closest(`${kBlocks},td,th,body`);
    if (!selectedControl() && blockOf(range.startContainer) === blockOf(range.endContainer))
      range.deleteContents();
    else
      deleteSelection();
  }

  /// Puts a fragment in place of the selection, with the cursor behind it.
  function insertFragment(fragment) {
    makePlace();
    const last = fragment.lastChild;
    if (!last)
      return;
    const place = placeForFragment(fragment.querySelector(kBlocks) !== null);
    place.insertNode(fragment);
    const behind = document.createRange();
    behind.setStartAfter(last);
    selection.collapse(behind.startContainer, behind.startOffset);
  }

  function escapeHtml(text) {
    return text.replace(/&/g, "&amp;").replace(/</g, "&lt;").replace(/>/g, "&gt;");
  }

  // ---------------------------------------------------------------- pasting

  const isOffice = html => /class="?Mso|mso-|urn:schemas-microsoft-com|<o:p>/i.test(html);

  const kKeptStyles = ["font-weight", "font-style", "text-decoration", "text-align", "vertical-align", "color",
                       "background-color", "width", "height"];
  const kNoStyle = /^(windowtext|black|initial|inherit|transparent|normal|none|auto|baseline|start|#000000|rgb\(0, 0, 0\))$/;
  /// Old browsers run programs from styles, and any of them fetches from elsewhere.
  const kNoValue = /url\s*\(|expression|script:|\\|\/\*/i;
  const kNeverPasted = "script,style,meta,link,title,base,head,xml,noscript,noframes,noembed,object,embed,applet,param,iframe," +
                       "frame,frameset,template,plaintext,svg,math,:not(video):not(audio) > source";

  /// Of styles from elsewhere only what the author meant stays; typefaces and distances are the site's own.
  function keptStyle(text) {
    return text.split(";")
        .map(rule => rule.split(/:(.*)/s, 2).map(part => part.trim()))
        .filter(([name, value]) => value && kKeptStyles.includes(name.toLowerCase()) && !kNoStyle.test(value.toLowerCase()) &&
                                   !kNoValue.test(value))
        .map(([name, value]) => `${name.toLowerCase()}: ${value}`)
        .join("; ");
  }

  /// What authors of pages write. All others are a program's: its own marks, what it does on a click, pictures for other screens.
  const kKeptAttributes = new Set((
      "abbr,accept,action,align,alt,axis,background,behavior,bgcolor,border,bordercolor,cellpadding,cellspacing,char,charoff," +
      "charset,checked,cite,clear,color,cols,colspan,compact,controls,coords,datetime,dir,direction,disabled,enctype,face,for,frame," +
      "headers,height,href,hreflang,hspace,ismap,label,loop,maxlength,method,multiple,name,nohref,noshade,nowrap,poster,readonly," +
      "rel,rev,rows,rowspan,rules,scope,scrollamount,scrolldelay,selected,shape,size,span,src,start,style,summary,target,title," +
      "type,usemap,valign,value,vspace,width,wrap").split(","));
  const kReferences = /^(href|src|action|background|cite|poster|usemap)$/;
  const kProgram = /^(javascript|vbscript|livescript|jscript|data(?!:image\/)):/i;
  const kPictureInLink = /^data:/i;

  /// Browsers pass over blanks and line ends wherever they stand in a scheme.
  function isProgram(name, value) {
    const reference = value.replace(/[\s\0-\x1f]+/g, "");
    return kReferences.test(name) && (kProgram.test(reference) || (name === "href" && kPictureInLink.test(reference)));
  }

  function cleanAttributes(element) {
    for (const { name, value } of [...element.attributes]) {
      const style = name === "style" ? keptStyle(value) : "";
      const goes = !kKeptAttributes.has(name) || isProgram(name, value) || (name === "style" && !style) ||
                   (element.tagName === "FONT" && /^(face|size)$/.test(name));
      if (goes)
        element.removeAttribute(name);
      else if (style)
        element.setAttribute("style", style);
    }
  }

  const unwrap = element => element.replaceWith(...element.childNodes);

  /// Level and kind of a paragraph that an office program shows as an item of a list; null for others.
  function officeItem(paragraph) {
    const found = /mso-list:\s*l\d+\s+level(\d+)/i.exec(paragraph.getAttribute("style") || "");
    if (!found)
      return null;
    const isMarker = span => /mso-list:\s*Ignore/i.test(span.getAttribute("style") || "");
    const marker = [...paragraph.querySelectorAll("span")].find(isMarker);
    const isNumbered = /^\s*(\d+|[a-z]{1,4})[.)]/i.test(marker?.textContent || "");
    marker?.remove();
    return { level: Number(found[1]), tag: isNumbered ? "ol" : "ul" };
  }

  function makeOfficeLists(root) {
    /// The lists that are open, outermost first.
    let open = [];
    let previous = null;
    for (const paragraph of [...root.querySelectorAll("p,h1,h2,h3,h4,h5,h6")]) {
      const item = officeItem(paragraph);
      if (!item)
        continue;
      const follows = previous && previous === paragraph.previousElementSibling;
      open = follows ? open.slice(0, item.level) : [];
      while (open.length < item.level) {
        const list = root.ownerDocument.createElement(item.tag);
        const outer = open[open.length - 1];
        if (outer)
          (outer.lastElementChild || outer).append(list);
        else
          paragraph.before(list);
        open.push(list);
      }
      const li = root.ownerDocument.createElement("li");
      li.append(...paragraph.childNodes);
      open[open.length - 1].append(li);
      paragraph.remove();
      previous = open[0];
    }
  }

  function removeComments(root) {
    const walker = root.ownerDocument.createTreeWalker(root, NodeFilter.SHOW_COMMENT);
    const comments = [];
    while (walker.nextNode())
      comments.push(walker.currentNode);
    comments.forEach(comment => comment.remove());
  }

  /// Line ends in the text of other programs are where their line was full.
  function joinLines(root) {
    const walker = root.ownerDocument.createTreeWalker(root, NodeFilter.SHOW_TEXT);
    while (walker.nextNode())
      if (!walker.currentNode.parentElement?.closest("pre,textarea"))
        walker.currentNode.data = walker.currentNode.data.replace(/[ \t]*[\r\n]+[ \t]*/g, " ");
  }

  /// The picture of an office program lies in its own temporary directory and is gone when it ends.
  const isLostPicture = image => /^file:.*(msohtmlclip|\/te?mp\/)/i.test(image.getAttribute("src") || "");

  function clean(root, html) {
    if (isOffice(html))
      makeOfficeLists(root);
    removeComments(root);
    for (const element of [...root.querySelectorAll("*")]) {
      const tag = element.tagName.toLowerCase();
      if (element.matches(kNeverPasted) || (tag === "img" && isLostPicture(element)))
        element.remove();
      else if (element instanceof HTMLUnknownElement || /[:-]|^picture$/.test(tag))
        unwrap(element);
      else
        cleanAttributes(element);
    }
    for (const element of [...root.querySelectorAll("span,font,a")].reverse())
      if (element.attributes.length === 0 || /^_(Toc|Hlk|GoBack|Ref)/.test(element.getAttribute("name") || ""))
        unwrap(element);
    joinLines(root);
    const isBlank = node => isText(node) && node.data.trim() === "";
    while (isBlank(root.lastChild))
      root.lastChild.remove();
    while (isBlank(root.firstChild))
      root.firstChild.remove();
  }

  /// What was copied here last: it comes back as it was, with all that would be taken out of a text from elsewhere.
  let copied = null;

  /// On its way through the clipboard a text may get a frame and other line ends.
  const plain = text => text.replace(/\r\n?/g, "\n");
  const unframed = html => plain(html).replace(/^[^]*<!--StartFragment-->|<!--EndFragment-->[^]*$/g, "")
                               .replace(/^(<\/?(html|head|body|meta)\b[^>]*>|\s)+|(<\/(body|html)>|\s)+$/gi, "");
  const isCopiedHere = (html, text) =>
      copied && plain(copied.text) === plain(text) && unframed(copied.html) === unframed(html);

  function fragmentToPaste(html, text) {
    if (isCopiedHere(html, text))
      return fragmentOf(copied.html);
    if (html) {
      const parsed = new DOMParser().parseFromString(html, "text/html");
      clean(parsed.body, html);
      if (parsed.body.firstChild)
        return fragmentOf(parsed.body.innerHTML);
    }
    return textFragment(text);
  }

  const textFragment = text => fragmentOf(escapeHtml(text).replace(/\r\n?|\n/g, "<br>"));

  /// Of what holds nothing the selection must not be the price.
  const pasteFragment = fragment => fragment.hasChildNodes() && edit(() => (insertFragment(fragment), true));

  const paste = (html, text) => pasteFragment(fragmentToPaste(html, text));

  const kManyTags = 1000;

  /// A text of many tags may nest them deeper than the engine can bear: the desktop looks at it first, and pastes it then.
  function pasteFromElsewhere(html, text) {
    if ((html.match(/<[a-z]/gi) ?? []).length > kManyTags)
      note("pasteHtml", html, text);
    else
      paste(html, text);
  }

  const pasteText = text => pasteFragment(textFragment(text));

  function copySelection() {
    if (selection.isCollapsed)
      return null;
    const container = document.createElement("div");
    container.append(rangeOfSelection().cloneContents());
    copied = { html: htmlOf(container), text: selection.toString() };
    return copied;
  }

  function setClipboard(event) {
    const content = copySelection();
    if (!content)
      return false;
    event.clipboardData.setData("text/html", content.html);
    event.clipboardData.setData("text/plain", content.text);
    event.preventDefault();
    return true;
  }

  // ---------------------------------------------------------------- tables

  const tables = window.editorTables;

  /// The cell around the cursor or around an element that is selected as a whole; null outside of tables.
  function currentCell() {
    const control = selectedControl();
    const found = (control ? control.parentElement : parentElement()).closest("td,th");
    return found && body.contains(found) ? found : null;
  }

  /// The cells that the selection reaches into, all of one table: of the innermost around the selection.
  function selectedCells() {
    const range = rangeOfSelection();
    const cell = currentCell();
    const table = selectedControl() || range.collapsed ? null : parentElement().closest("table");
    if (!table || !body.contains(table) || cell?.closest("table") === table)
      return cell ? [cell] : [];
    return [...table.rows].flatMap(row => [...row.cells]).filter(one => range.intersectsNode(one));
  }

  function placeCursor(element) {
    if (element)
      selection.collapse(element, 0);
  }

  const onCell = work => () => placeCursor(work(currentCell()));
  const onCells = work => () => {
    const cells = selectedCells();
    const table = cells[0].closest("table");
    const place = document.createRange();
    place.setStartBefore(table);
    const cursor = work(cells);
    if (cursor)
      placeCursor(cursor);
    else
      selection.collapse(place.startContainer, place.startOffset);
  };

  const kMostCells = 10000;

  function insertTable({ rows, columns, tableAttributes, cellAttributes, caption }) {
    if (rows < 1 || columns < 1 || rows * columns > kMostCells)
      return false;
    const tag = (name, attributes) => `<${name}${attributes.trim() ? " " + attributes.trim() : ""}>`;
    const row = `<tr>${`${tag("td", cellAttributes)}&nbsp;</td>`.repeat(columns)}</tr>`;
    const head = caption ? `<caption>${escapeHtml(caption)}</caption>` : "";
    const fragment = fragmentOf(`${tag("table", tableAttributes)}${head}<tbody>${row.repeat(rows)}</tbody></table>`);
    const table = fragment.querySelector("table");
    if (!table || !hasPlace())
      return false;
    return edit(() => {
      insertFragment(fragment);
      placeCursor(table.querySelector("td"));
      return true;
    });
  }

  // ---------------------------------------------------------------- positions

  const isAbsolute = element => element.style?.position === "absolute";
  const isLocked = element => element.getAttribute("data-locked") === "true";

  /// What the positioning commands work on: the selected element, or the positioned one around the cursor.
  function positionable() {
    const control = selectedControl();
    if (control)
      return control;
    for (let element = parentElement(); element && element !== body; element = element.parentElement)
      if (isAbsolute(element))
        return element;
    return null;
  }

  function removeEmptyStyle(element) {
    if (element.getAttribute("style") === "")
      element.removeAttribute("style");
  }

  function toggleAbsolute() {
    const element = positionable();
    const { style } = element;
    if (isAbsolute(element)) {
      for (const name of ["position", "left", "top", "z-index"])
        style.removeProperty(name);
      removeEmptyStyle(element);
    } else {
      const { left, top } = element.getBoundingClientRect();
      // Its place is counted from the positioned element that it stands in, and from outside of its margins.
      Object.assign(style, { position: "absolute", left: "0px", top: "0px" });
      const start = element.getBoundingClientRect();
      style.left = `${Math.round(overlay.onGrid(left + window.scrollX) - start.left - window.scrollX)}px`;
      style.top = `${Math.round(overlay.onGrid(top + window.scrollY) - start.top - window.scrollY)}px`;
    }
  }

  const overlay = window.editorOverlay({
    edit, isAbsolute, isLocked,
    framed() {
      const element = positionable();
      return element && (selectedControl() || isAbsolute(element)) ? element : null;
    },
  });

  const layerOf = element => Number.parseInt(element.style.zIndex, 10) || 0;

  /// The layers of the other positioned elements.
  function otherLayers(element) {
    return [...body.querySelectorAll("[style]")].filter(other => other !== element && isAbsolute(other)).map(layerOf);
  }

  const kLayers = {
    bringToFront: element => Math.max(0, ...otherLayers(element)) + 1,
    sendToBack: element => Math.min(0, ...otherLayers(element)) - 1,
    bringForward: element => layerOf(element) + 1,
    sendBackward: element => layerOf(element) - 1,
    bringAboveText: element => Math.max(1, Math.abs(layerOf(element))),
    sendBelowText: element => -Math.max(1, Math.abs(layerOf(element))),
  };

  // ---------------------------------------------------------------- block formats

  /// In the order of the desktop's names for them.
  const kBlockFormats = ["div", "pre", "address", "h1", "h2", "h3", "h4", "h5", "h6", "ol", "ul", "dir", "menu", "dt", "dd", "p"];
  const kLists = "ol,ul,dir,menu";

  function blockFormat() {
    const element = closest(`li,${kBlockFormats.filter(tag => tag !== "div").join()}`);
    if (!element)
      return 0;
    const list = element.tagName === "LI" ? element.closest(kLists) || element : element;
    return Math.max(0, kBlockFormats.indexOf(list.tagName.toLowerCase()));
  }

  function rename(element, tag) {
    const saved = saveSelection();
    const renamed = document.createElement(tag);
    for (const { name, value } of element.attributes)
      renamed.setAttribute(name, value);
    element.before(renamed);
    renamed.append(...element.childNodes);
    element.remove();
    restoreSelection(saved);
  }

  function makeList(tag) {
    const present = closest(kLists);
    if (present)
      return rename(present, tag);
    runInEngine(tag === "ol" ? "insertOrderedList" : "insertUnorderedList");
    const made = closest(kLists);
    if (made && made.tagName.toLowerCase() !== tag)
      rename(made, tag);
  }

  function leaveList() {
    const list = closest(kLists);
    if (list)
      document.execCommand(list.tagName === "OL" ? "insertOrderedList" : "insertUnorderedList");
  }

  function wrapDefinitions() {
    for (const item of [...body.querySelectorAll("dt,dd")]) {
      if (item.parentElement.closest("dl"))
        continue;
      const saved = saveSelection();
      const before = item.previousElementSibling;
      const list = before?.tagName === "DL" && before.nextSibling === item ? before : document.createElement("dl");
      if (list !== before)
        item.before(list);
      list.append(item);
      restoreSelection(saved);
    }
  }

  function setBlockFormat(index) {
    const tag = kBlockFormats[index];
    if (!tag)
      return false;
    if (kLists.split(",").includes(tag)) {
      makeList(tag);
      return true;
    }
    leaveList();
    runInEngine("formatBlock", tag);
    if (tag === "dt" || tag === "dd")
      wrapDefinitions();
    return true;
  }

  // ---------------------------------------------------------------- commands

  const statusIf = condition => (condition ? kEnabled : kDisabled);
  const hasPlace = () => document.queryCommandEnabled("insertText");

  function statusOf(name) {
    if (!document.queryCommandEnabled(name))
      return kDisabled;
    if (document.queryCommandIndeterm(name))
      return kMixed;
    return document.queryCommandState(name) ? kLatched : kEnabled;
  }

  const ofEngine = name => ({
    status: () => statusOf(name),
    run: argument => edit(() => runInEngine(name, argument)),
  });

  function runInEngine(name, argument) {
    const done = document.execCommand(name, false, argument);
    liftBlocks();
    return done;
  }

  const withArgument = (name, value) => ({
    status: () => statusIf(document.queryCommandEnabled(name)),
    run: argument => argument !== "" && edit(() => document.execCommand(name, false, argument)),
    value,
  });

  const ofTable = (condition, work) => ({ status: () => statusIf(condition()), run: () => edit(() => (work(), true)) });

  const hasCells = () => selectedCells().length > 0;

  const ofLayer = layer => ({
    status: () => {
      const element = positionable();
      return statusIf(element && isAbsolute(element) && !isLocked(element));
    },
    run: () => edit(() => {
      const element = positionable();
      element.style.zIndex = layer(element);
      return true;
    }),
  });

  const value = name => String(document.queryCommandValue(name) ?? "");

  function colourValue(name) {
    const channels = value(name).match(/^rgba?\((\d+), (\d+), (\d+)(?:, ([\d.]+))?\)$/);
    if (!channels || channels[4] === "0")
      return "";
    return "#" + channels.slice(1, 4).map(channel => Number(channel).toString(16).padStart(2, "0")).join("");
  }

  const fontName = () => value("fontName").replace(/["']/g, "");
  const fontSize = () => value("fontSize");

  const currentLink = () => closest("a[href]");

  function linkValues() {
    const link = currentLink();
    return { href: link?.getAttribute("href") ?? "", target: link?.getAttribute("target") ?? "" };
  }

  function setOrRemove(element, name, value) {
    if (value)
      element.setAttribute(name, value);
    else
      element.removeAttribute(name);
  }

  /// The selected text, or else the reference itself, becomes the link. `target` is set where it is given.
  function setLink(href, target) {
    const link = currentLink();
    const before = new Set(body.querySelectorAll("a"));
    if (link)
      link.setAttribute("href", href);
    else if (selection.isCollapsed)
      insertFragment(linkTo(href));
    else if (selectedControl())
      wrapInLink(selectedControl(), href);
    else
      document.execCommand("createLink", false, href);
    if (target !== undefined)
      for (const made of link ? [link] : [...body.querySelectorAll("a")].filter(one => !before.has(one)))
        setOrRemove(made, "target", target);
    return true;
  }

  function wrapInLink(element, href) {
    const link = document.createElement("a");
    link.setAttribute("href", href);
    element.replaceWith(link);
    link.append(element);
    selectNode(element);
  }

  function linkTo(href) {
    const fragment = fragmentOf(`<a href="">${escapeHtml(href)}</a>`);
    fragment.firstChild.setAttribute("href", href);
    return fragment;
  }

  function removeLink() {
    const link = currentLink();
    if (link && (selection.isCollapsed || selectedControl()))
      unwrap(link);
    else
      document.execCommand("unlink");
    return true;
  }

  const selectedPicture = () => {
    const control = selectedControl();
    return control?.tagName === "IMG" ? control : null;
  };

  const kPictureAttributes = ["src", "alt", "width", "height", "align", "border"];

  function pictureValues() {
    const picture = selectedPicture();
    const values = picture && Object.fromEntries(kPictureAttributes.map(name => [name, picture.getAttribute(name) ?? ""]));
    return values && { ...values, naturalWidth: picture.naturalWidth, naturalHeight: picture.naturalHeight };
  }

  /// The selected picture gets other attributes, or a new one comes in place of the selection.
  function setPicture({ src, ...others }) {
    const selected = selectedPicture();
    const picture = selected || document.createElement("img");
    if (picture.getAttribute("src") !== src)
      picture.setAttribute("src", src);
    for (const name of kPictureAttributes)
      if (others[name] !== undefined && (picture.getAttribute(name) ?? "") !== others[name])
        setOrRemove(picture, name, others[name]);
    if (selected)
      return true;
    if (others.border === undefined)
      picture.setAttribute("border", "0");
    const fragment = document.createDocumentFragment();
    fragment.append(picture);
    insertFragment(fragment);
    return true;
  }

  function deleteForward() {
    if (selection.isCollapsed)
      return document.execCommand("forwardDelete");
    deleteSelection();
    return true;
  }

  const hasSelection = () => statusIf(!selection.isCollapsed);
  const always = () => kEnabled;
  const atPlace = () => statusIf(hasPlace());

  const kCommands = {
    5000: ofEngine("bold"),
    5002: { status: hasSelection },
    5003: { status: hasSelection, run: () => edit(() => (deleteSelection(), true)) },
    5004: { status: atPlace, run: () => edit(deleteForward) },
    5005: ofTable(hasCells, onCells(tables.deleteCells)),
    5006: ofTable(hasCells, onCells(tables.deleteColumns)),
    5007: ofTable(hasCells, onCells(tables.deleteRows)),
    5008: { status: always, run: find, value: () => selection.toString() },
    5009: { status: atPlace },
    5010: { status: atPlace, value: () => colourValue("backColor") },
    5011: { status: atPlace },
    5012: { status: always },
    5013: { status: atPlace, value: fontName },
    5014: { status: atPlace, value: fontSize },
    5015: { status: atPlace, value: () => colourValue("foreColor") },
    5016: {
      status: atPlace,
      run({ href, target } = {}) {
        if (href)
          return edit(() => setLink(href, target));
        return currentLink() !== null && edit(removeLink);
      },
      value: () => currentLink()?.getAttribute("href"),
    },
    // The status tells whether a picture is selected; to insert one, none need be.
    5017: {
      status: () => statusIf(selectedPicture()),
      run: values => Boolean(values?.src) && edit(() => setPicture(values)),
      alwaysRuns: true,
      value: () => selectedPicture()?.getAttribute("src"),
    },
    5018: ofEngine("indent"),
    5019: ofTable(currentCell, onCell(tables.insertCell)),
    5020: ofTable(currentCell, onCell(tables.insertColumn)),
    5021: ofTable(currentCell, onCell(tables.insertRow)),
    5022: { status: atPlace },
    5023: ofEngine("italic"),
    5024: ofEngine("justifyCenter"),
    5025: ofEngine("justifyLeft"),
    5026: ofEngine("justifyRight"),
    5027: {
      status: () => {
        const element = positionable();
        return element && isAbsolute(element) ? (isLocked(element) ? kLatched : kEnabled) : kDisabled;
      },
      run: () => edit(() => {
        const element = positionable();
        if (isLocked(element))
          element.removeAttribute("data-locked");
        else
          element.setAttribute("data-locked", "true");
        return true;
      }),
    },
    5028: {
      status: () => {
        const element = positionable();
        if (!element || isLocked(element))
          return kDisabled;
        return isAbsolute(element) ? kLatched : kEnabled;
      },
      run: () => edit(() => (toggleAbsolute(), true)),
    },
    5029: ofTable(() => hasCells() && tables.canMerge(selectedCells()), onCells(tables.merge)),
    5030: ofEngine("insertOrderedList"),
    5031: ofEngine("outdent"),
    5032: { status: atPlace },
    5033: { status: () => statusIf(undone.length > 0), run: redo },
    5034: ofEngine("removeFormat"),
    5035: { status: always, run: () => (selection.selectAllChildren(body), true) },
    5036: ofLayer(kLayers.sendBackward),
    5037: ofLayer(kLayers.bringForward),
    5038: ofLayer(kLayers.sendBelowText),
    5039: ofLayer(kLayers.bringAboveText),
    5040: ofLayer(kLayers.sendToBack),
    5041: ofLayer(kLayers.bringToFront),
    5042: withArgument("hiliteColor", () => colourValue("backColor")),
    5043: { status: atPlace, run: index => edit(() => setBlockFormat(index)) },
    5044: withArgument("fontName", fontName),
    5045: withArgument("fontSize", fontSize),
    5046: withArgument("foreColor", () => colourValue("foreColor")),
    5047: ofTable(currentCell, onCell(tables.split)),
    5048: ofEngine("underline"),
    5101: { status: atPlace },
    5049: { status: () => statusIf(steps.length > 0), run: undo },
    5050: { status: () => statusIf(currentLink() || document.queryCommandEnabled("unlink")), run: () => edit(removeLink) },
    5051: ofEngine("insertUnorderedList"),
  };

  /// From the selection on, and once more from the top. All places are marked.
  function find(text) {
    const hits = window.editorSearch.hits(body, text);
    overlay.setMarks(hits);
    if (hits.length === 0)
      return false;
    const present = rangeOfSelection();
    const isBehind = hit => hit.compareBoundaryPoints(Range.END_TO_START, present) >= 0;
    showHit(hits.find(isBehind) ?? hits[0]);
    return true;
  }

  function showHit(hit) {
    selection.removeAllRanges();
    selection.addRange(hit);
    const { top, bottom, left, right } = hit.getBoundingClientRect();
    const isInSight = top >= 0 && bottom <= window.innerHeight && left >= 0 && right <= window.innerWidth;
    if (!isInSight)
      window.scrollBy(left < 0 || right > window.innerWidth ? left - window.innerWidth / 2 : 0, top - window.innerHeight / 2);
  }

  function display() {
    settle();
    openNotes.delete("display");
    const status = {}, values = {};
    for (const [number, command] of Object.entries(kCommands)) {
      status[number] = command.status();
      values[number] = (status[number] >= kEnabled && command.value?.()) || "";
    }
    return { status, values, blockFormat: blockFormat() };
  }

  function exec(number, argument) {
    settle();
    const command = kCommands[number];
    const runs = command?.run && (command.alwaysRuns || command.status() >= kEnabled);
    const done = runs ? Boolean(command.run(argument)) : false;
    return { done, display: display() };
  }

  // ---------------------------------------------------------------- what the page is shown with

  function sheet() {
    const style = document.createElement("style");
    document.head.append(style);
    return style;
  }
  const colours = sheet(), rules = sheet(), marks = sheet();
  // A picture that is selected has a frame; it stays to be seen.
  sheet().textContent = "img::selection { background: transparent; }";

  const kBorders = `
    table:not([border]), table[border="0"], table:not([border]) > * > * > td, table[border="0"] > * > * > td,
    table:not([border]) > * > * > th, table[border="0"] > * > * > th { outline: 1px dotted #a0a0a0; }
    form, div[align]:empty { outline: 1px dotted #a0a0a0; }`;
  const kDetails = `
    p::after { content: "\\b6"; color: #6a8ab0; }
    a[name]::before { content: "\\2693"; color: #6a8ab0; }
    script, style, noscript, base { display: inline-block !important; font-size: 0 !important; }
    script::before { content: "script"; } style::before { content: "style"; } base::before { content: "base"; }
    script::before, style::before, base::before { font: 10px sans-serif; background: #fff2b0; color: #604800; padding: 0 3px; }
    span, div, center, blockquote { outline: 1px dotted #c8d8e8; }`;

  let shows = { borders: false, details: false };

  const showing = {
    setColours(background, text) {
      const rule = (name, colour) => (CSS.supports("color", colour) ? `${name}: ${colour};` : "");
      colours.textContent = `body { ${rule("background-color", background)} ${rule("color", text)} }`;
    },
    setRules(css) { rules.textContent = css; },
    setMarks(borders, details) {
      shows = { borders, details };
      marks.textContent = (shows.borders ? kBorders : "") + (shows.details ? kDetails : "");
    },
  };

  // ---------------------------------------------------------------- what the user does

  function onBeforeInput(event) {
    if (event.inputType === "historyUndo" || event.inputType === "historyRedo") {
      event.preventDefault();
      (event.inputType === "historyUndo" ? undo : redo)();
      return;
    }
    settle();
    selectionBefore = saveSelection();
  }

  function onKeyDown(event) {
    const key = event.key.toLowerCase();
    if (key === "escape") {
      if (!overlay.cancel())
        overlay.setMarks([]);
    } else if ((event.ctrlKey || event.metaKey) && !event.altKey && (key === "z" || key === "y")) {
      event.preventDefault();
      (key === "z" && !event.shiftKey ? undo : redo)();
    } else if (/^(arrow|home|end|page)/.test(key)) {
      closeStep();
    }
  }

  function onPaste(event) {
    event.preventDefault();
    const html = event.clipboardData.getData("text/html"), text = event.clipboardData.getData("text/plain");
    const hasPicture = [...event.clipboardData.items].some(item => item.kind === "file" && item.type.startsWith("image/"));
    if (hasPicture && !/\S/.test(text))
      note("pastePicture");
    else
      pasteFromElsewhere(html, text);
  }

  /// A part of the page itself is on its way to another place.
  let dragsOwn = false;

  /// What comes from other programs is cleaned as if it were pasted; the engine only moves what is the page's own.
  function onDrop(event) {
    const moves = dragsOwn;
    dragsOwn = false;
    const { dataTransfer, clientX, clientY } = event;
    const isFile = dataTransfer.types.includes("Files");
    if (moves && !isFile)
      return;
    event.preventDefault();
    const place = isFile ? null : document.caretRangeFromPoint(clientX, clientY);
    if (!place || !body.contains(place.startContainer))
      return;
    selection.collapse(place.startContainer, place.startOffset);
    pasteFromElsewhere(dataTransfer.getData("text/html"), dataTransfer.getData("text/plain"));
  }

  function onContextMenu(event) {
    event.preventDefault();
    if (event.target.tagName === "IMG")
      selectNode(event.target);
    note("contextMenu", event.clientX, event.clientY, display());
  }

  /// A selection that was set while the window had no focus takes no keys when it gets it.
  function onFocus() {
    const saved = saveSelection();
    selection.removeAllRanges();
    restoreSelection(saved);
  }

  window.addEventListener("focus", onFocus);
  const listen = (name, handler) => document.addEventListener(name, handler, true);
  listen("beforeinput", onBeforeInput);
  listen("input", event => settle(event.inputType || "other"));
  listen("keydown", () => ++arrivedKeys);
  listen("keydown", onKeyDown);
  listen("mousedown", closeStep);
  // A locked element stays where it is, also when it is dragged out of its place with the text around it.
  listen("dragstart", event => { if (event.target.closest?.("[data-locked='true']")) event.preventDefault(); });
  listen("selectionchange", overlay.refresh);
  listen("click", event => { if (event.target.tagName === "IMG") selectNode(event.target); });
  listen("selectionchange", () => noteOnce("display"));
  listen("copy", setClipboard);
  listen("cut", event => { if (setClipboard(event)) edit(deleteSelection); });
  listen("paste", onPaste);
  listen("contextmenu", onContextMenu);
  // What has a place of its own is moved by its frame, and stays where it is locked.
  listen("dragstart", event => { if (event.target.nodeType === Node.ELEMENT_NODE && isAbsolute(event.target)) event.preventDefault(); });
  listen("dragstart", event => { dragsOwn = !event.defaultPrevented; });
  listen("dragend", () => { dragsOwn = false; });
  // A file that is dropped would be opened in place of the page.
  listen("dragover", event => { if (event.dataTransfer.types.includes("Files")) event.preventDefault(); });
  listen("drop", onDrop);

  document.designMode = "on";
  document.execCommand("styleWithCSS", false, "false");
  document.execCommand("defaultParagraphSeparator", false, "p");
  selection.collapse(body, 0);

  const functions = {
    ...reading, ...showing, ...elements, display, exec, insertTable, paste, pasteText, copySelection, linkValues, pictureValues,
    pasteHtml(html) {
      if (selectedControl())
        return false;
      return edit(() => (insertFragment(fragmentOf(html)), true));
    },
    insertPicture: src => edit(() => setPicture({ src })),
    setSnapToGrid: on => overlay.setSnapToGrid(on),
  };

  window.editor = { call: (name, ...values) => functions[name](...values) };
})();

// Tables as grids: where each cell stands and how far it reaches, and what the commands make of it. Every command works on the
// places of the cells and writes rows and spans anew from them, so that no two cells ever share a place.
window.editorTables ??= (() => {
  "use strict";

  const kKeptByNewCells = ["align", "valign", "bgcolor", "style", "class"];
  const kContent = "img,hr,input,table,object,iframe,select,textarea,video,audio";

  // ---------------------------------------------------------------- reading and writing

  /// Cells with their places in a row group, which no cell leaves. Of cells that would overlap the later one is narrowed.
  function layOut(rows) {
    const cells = [], taken = rows.map(() => []);
    rows.forEach((row, r) => {
      let column = 0;
      for (const element of row.cells) {
        while (taken[r][column])
          ++column;
        const height = Math.min(element.rowSpan || rows.length, rows.length - r);
        let width = 1;
        while (width < element.colSpan && !taken[r][column + width])
          ++width;
        const cell = { element, row: r, column, width, height };
        for (let down = 0; down < height; ++down)
          for (let right = 0; right < width; ++right)
            taken[r + down][column + right] = cell;
        cells.push(cell);
        column += width;
      }
    });
    return cells;
  }

  function groupsOf(table) {
    const groups = [];
    for (const row of table.rows) {
      const last = groups[groups.length - 1];
      if (last?.element === row.parentElement)
        last.rows.push(row);
      else
        groups.push({ element: row.parentElement, rows: [row] });
    }
    for (const group of groups)
      group.cells = layOut(group.rows);
    return groups;
  }

  /// The row group of a cell, and the cell in it.
  function placeOf(element) {
    for (const group of groupsOf(element.closest("table"))) {
      const cell = group.cells.find(one => one.element === element);
      if (cell)
        return { group, cell };
    }
    return null;
  }

  const lastRow = cell => cell.row + cell.height - 1;
  const lastColumn = cell => cell.column + cell.width - 1;
  const coversRow = (cell, row) => cell.row <= row && lastRow(cell) >= row;
  const coversColumn = (cell, column) => cell.column <= column && lastColumn(cell) >= column;
  const inReadingOrder = (a, b) => a.row - b.row || a.column - b.column;

  function newElement(model) {
    const cell = document.createElement(model?.tagName === "TH" ? "th" : "td");
    for (const name of kKeptByNewCells)
      if (model?.hasAttribute(name))
        cell.setAttribute(name, model.getAttribute(name));
    cell.innerHTML = "&nbsp;";
    return cell;
  }

  const newCell = (model, row, column) => ({ element: newElement(model), row, column, width: 1, height: 1 });

  function setSpan(element, name, present, span) {
    if (present === span)
      return;
    if (span > 1)
      element.setAttribute(name, span);
    else
      element.removeAttribute(name);
  }

  /// Empty cells for the places in front of a row's own cells that nothing covers: there the browser would move the cells.
  function fillers(group, row, own) {
    const made = [];
    const last = Math.max(-1, ...own.map(cell => cell.column));
    for (let column = 0; column < last; ++column)
      if (!group.cells.some(cell => coversRow(cell, row) && coversColumn(cell, column)))
        made.push(newCell(null, row, column));
    return made;
  }

  function writeRow(row, elements) {
    for (const present of [...row.cells])
      if (!elements.includes(present))
        present.remove();
    elements.forEach((element, i) => {
      if (row.cells[i] !== element)
        row.insertBefore(element, row.cells[i] ?? null);
    });
  }

  /// The rows of the group as its cells say. Rows that have lost all of their places go.
  function write(group) {
    group.rows.forEach((row, r) => {
      const own = group.cells.filter(cell => cell.row === r);
      group.cells.push(...fillers(group, r, own));
      writeRow(row, group.cells.filter(cell => cell.row === r).sort(inReadingOrder).map(cell => cell.element));
    });
    for (const { element, width, height } of group.cells) {
      setSpan(element, "colspan", element.colSpan, width);
      setSpan(element, "rowspan", element.rowSpan, height);
    }
  }

  /// Takes rows out; what reaches over them gets shorter, what begins in them begins in the next that is left.
  function takeRows(group, isTaken) {
    const taken = group.rows.map((_, r) => isTaken(r));
    const kept = group.rows.map((_, r) => r).filter(r => !taken[r]);
    for (const cell of group.cells) {
      const left = kept.filter(r => coversRow(cell, r));
      cell.row = kept.indexOf(left[0]);
      cell.height = left.length;
    }
    group.cells = group.cells.filter(cell => cell.height > 0);
    group.rows.filter((_, r) => taken[r]).forEach(row => row.remove());
    group.rows = kept.map(r => group.rows[r]);
  }

  function takeColumns(group, isTaken) {
    for (const cell of group.cells) {
      let width = 0, before = 0;
      for (let column = 0; column <= lastColumn(cell); ++column)
        if (isTaken(column))
          before += column < cell.column ? 1 : 0;
        else
          width += column >= cell.column ? 1 : 0;
      cell.column -= before;
      cell.width = width;
    }
    group.cells = group.cells.filter(cell => cell.width > 0);
  }

  /// Rows that no cell has a place in go, then groups without rows, then a table without groups.
  function takeWhatIsEmpty(table) {
    for (const group of groupsOf(table)) {
      const isEmpty = r => !group.cells.some(cell => coversRow(cell, r));
      if (group.rows.some((_, r) => isEmpty(r))) {
        takeRows(group, isEmpty);
        write(group);
      }
      if (group.rows.length === 0 && group.element !== table)
        group.element.remove();
    }
    if (table.rows.length === 0)
      table.remove();
  }

  /// The cell that now stands where one stood, or the nearest before it; null without a table.
  function cellNear(table, groupNumber, row, column) {
    const groups = table.isConnected ? groupsOf(table) : [];
    const { cells = [], rows = [] } = groups[Math.min(groupNumber, groups.length - 1)] ?? {};
    const inRow = cells.filter(cell => coversRow(cell, Math.min(row, rows.length - 1)));
    const reached = inRow.filter(cell => cell.column <= column);
    const nearest = reached.sort((a, b) => b.column - a.column)[0] ?? inRow[0] ?? cells[0];
    return nearest?.element ?? null;
  }

  /// Where the first of the cells stands, so that the cursor finds back after a deletion.
  function remembered(elements) {
    const table = elements[0].closest("table");
    const { group, cell } = placeOf(elements[0]);
    const number = groupsOf(table).findIndex(one => one.element === group.element && one.rows[0] === group.rows[0]);
    return () => cellNear(table, number, cell.row, cell.column);
  }

  // ---------------------------------------------------------------- descriptions of columns

  /// The element that describes a column, if there is one.
  function describes(table, column) {
    let first = 0;
    for (const element of table.querySelectorAll(":scope > col, :scope > colgroup > col, :scope > colgroup")) {
      if (element.tagName === "COLGROUP" && element.querySelector("col"))
        continue;
      first += element.span;
      if (column < first)
        return element;
    }
    return null;
  }

  function describeNewColumn(table, behind) {
    const element = describes(table, behind);
    if (element && (element.span > 1 || element.tagName === "COLGROUP"))
      element.span += 1;
    else
      element?.after(element.cloneNode());
  }

  function forgetColumn(table, column) {
    const element = describes(table, column);
    if (element?.span > 1)
      setSpan(element, "span", element.span, element.span - 1);
    else
      element?.remove();
  }

  // ---------------------------------------------------------------- inserting

  /// A row below the one in which the cell ends.
  function insertRow(element) {
    const { group, cell } = placeOf(element);
    const r = lastRow(cell);
    const model = group.rows[r], row = document.createElement("tr");
    for (const name of kKeptByNewCells)
      if (model.hasAttribute(name))
        row.setAttribute(name, model.getAttribute(name));
    const added = [];
    for (const one of group.cells) {
      if (coversRow(one, r) && coversRow(one, r + 1))
        one.height += 1;
      else if (coversRow(one, r))
        for (let column = one.column; column <= lastColumn(one); ++column)
          added.push(newCell(one.element, r + 1, column));
      else if (one.row > r)
        one.row += 1;
    }
    group.cells.push(...added);
    model.after(row);
    group.rows.splice(r + 1, 0, row);
    write(group);
    return row.cells[0] ?? element;
  }

  /// A column behind the one in which the cell ends.
  function insertColumn(element) {
    const table = element.closest("table");
    const column = lastColumn(placeOf(element).cell);
    for (const group of groupsOf(table)) {
      const added = [];
      for (const one of group.cells) {
        if (coversColumn(one, column) && coversColumn(one, column + 1))
          one.width += 1;
        else if (coversColumn(one, column))
          for (let row = one.row; row <= lastRow(one); ++row)
            added.push(newCell(one.element, row, column + 1));
        else if (one.column > column)
          one.column += 1;
      }
      group.cells.push(...added);
      write(group);
    }
    describeNewColumn(table, column);
    return element;
  }

  /// Whether the cells of the group have moved from where they stood by as much as is said, and are as large as they were.
  function stand(group, before, shift) {
    return layOut(group.rows).every(cell => {
      const was = before.find(one => one.element === cell.element);
      return !was || (cell.column === was.column + shift(was) && cell.width === was.width && cell.height === was.height);
    });
  }

  /// A cell behind the given one. Where cells that reach over several rows could not move with the others, it comes to the end
  /// of the row.
  function insertCell(element) {
    const { group, cell } = placeOf(element);
    const added = newElement(element);
    element.after(added);
    if (!stand(group, group.cells, one => (one.column > cell.column && coversRow(one, cell.row) ? 1 : 0)))
      element.parentElement.append(added);
    return added;
  }

  // ---------------------------------------------------------------- deleting

  function deleteRows(elements) {
    const table = elements[0].closest("table");
    const cursor = remembered(elements);
    for (const group of groupsOf(table)) {
      const chosen = group.cells.filter(cell => elements.includes(cell.element));
      if (chosen.length === 0)
        continue;
      takeRows(group, r => chosen.some(cell => coversRow(cell, r)));
      write(group);
    }
    takeWhatIsEmpty(table);
    return cursor();
  }

  function deleteColumns(elements) {
    const table = elements[0].closest("table");
    const cursor = remembered(elements);
    const groups = groupsOf(table);
    const columns = new Set();
    for (const cell of groups.flatMap(group => group.cells))
      if (elements.includes(cell.element))
        for (let column = cell.column; column <= lastColumn(cell); ++column)
          columns.add(column);
    for (const group of groups) {
      takeColumns(group, column => columns.has(column));
      write(group);
    }
    [...columns].sort((a, b) => b - a).forEach(column => forgetColumn(table, column));
    takeWhatIsEmpty(table);
    return cursor();
  }

  /// The cells behind it move up. Where some that reach over several rows could not move with them, the place stays, empty.
  function deleteCell(element) {
    const { group, cell } = placeOf(element);
    const { parentElement, nextSibling } = element;
    const isBehind = one => one.column > cell.column && one.row <= lastRow(cell) && lastRow(one) >= cell.row;
    element.remove();
    if (stand(group, group.cells, one => (isBehind(one) ? -cell.width : 0)))
      return;
    element.innerHTML = "&nbsp;";
    parentElement.insertBefore(element, nextSibling);
  }

  function deleteCells(elements) {
    const table = elements[0].closest("table");
    const cursor = remembered(elements);
    elements.forEach(deleteCell);
    takeWhatIsEmpty(table);
    return cursor();
  }

  // ---------------------------------------------------------------- merging and splitting

  /// The smallest rectangle around cells of one row group that fill it; null where there is none.
  function rectangle(elements) {
    if (elements.length < 2)
      return null;
    const { group } = placeOf(elements[0]);
    const cells = group.cells.filter(cell => elements.includes(cell.element)).sort(inReadingOrder);
    const row = Math.min(...cells.map(cell => cell.row)), column = Math.min(...cells.map(cell => cell.column));
    const height = Math.max(...cells.map(lastRow)) - row + 1, width = Math.max(...cells.map(lastColumn)) - column + 1;
    const filled = cells.reduce((sum, cell) => sum + cell.width * cell.height, 0);
    return cells.length === elements.length && filled === width * height ? { group, cells, width, height } : null;
  }

  const isBlank = element => element.textContent.trim() === "" && !element.querySelector(kContent);

  function merge(elements) {
    const { group, cells, width, height } = rectangle(elements);
    const [first, ...others] = cells;
    for (const { element } of others) {
      if (isBlank(element))
        continue;
      if (isBlank(first.element))
        first.element.replaceChildren();
      else
        first.element.append(document.createElement("br"));
      first.element.append(...element.childNodes);
    }
    Object.assign(first, { width, height });
    group.cells = group.cells.filter(cell => !others.includes(cell));
    write(group);
    return first.element;
  }

  /// Its last column becomes a cell of its own, or its last row; one that has neither shares its column with a new one, over
  /// which the other cells of the column then reach.
  function split(element) {
    const { group, cell } = placeOf(element);
    const second = newCell(element, cell.row, cell.column);
    if (cell.width > 1) {
      cell.width -= 1;
      Object.assign(second, { column: cell.column + cell.width, height: cell.height });
    } else if (cell.height > 1) {
      cell.height -= 1;
      second.row = cell.row + cell.height;
    } else {
      widenColumn(element.closest("table"), cell, group);
      second.column += 1;
    }
    group.cells.push(second);
    write(group);
    return element;
  }

  function widenColumn(table, cell, group) {
    const widen = cells => {
      for (const one of cells)
        if (one.column > cell.column)
          one.column += 1;
        else if (coversColumn(one, cell.column) && one !== cell)
          one.width += 1;
    };
    widen(group.cells);
    for (const other of groupsOf(table))
      if (other.rows[0] !== group.rows[0]) {
        widen(other.cells);
        write(other);
      }
    describeNewColumn(table, cell.column);
  }

  return {
    insertRow, insertColumn, insertCell, deleteRows, deleteColumns, deleteCells, merge, split,
    canMerge: elements => rectangle(elements) !== null,
  };
})();

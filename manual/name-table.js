// The table on the page on name patterns: the names of one task as time passes, and what a run does with them.
"use strict";

(() => {
  const form = document.getElementById("try-names");
  if (!form || typeof expandName === "undefined") return;
  const words = form.dataset;
  const input = (name) => form.querySelector("[name=" + name + "]");
  const rows = document.getElementById("try-rows");

  const minute = 60 * 1000;
  const day = 24 * 60 * minute;
  const later = [0, minute / 2, 10 * minute, 3 * 60 * minute, day, 31 * day, 366 * day];
  // Local fields are kept in UTC, so that no change of the clock disturbs the table.
  const shown = (ms) => new Date(ms).toISOString().slice(0, 19);

  const row = (time, name, before) => {
    const cells = [time.replace("T", " "), name || words.empty, before ? words.skipped : words.created];
    const line = document.createElement("tr");
    if (before) line.className = "same";
    cells.forEach((text, column) => {
      const cell = document.createElement("td");
      const holder = column === 1 ? document.createElement("code") : cell;
      holder.textContent = text;
      if (holder !== cell) cell.append(holder);
      line.append(cell);
    });
    return line;
  };

  const show = () => {
    const start = Date.parse(input("time").value + "Z");
    if (Number.isNaN(start)) return;
    const seen = new Set();
    rows.replaceChildren(...later.map((ms) => {
      const time = shown(start + ms);
      const name = trimmedName(expandName(input("pattern").value, input("id").value, time));
      const before = seen.has(name.toLowerCase());
      seen.add(name.toLowerCase());
      return row(time, name, before);
    }));
  };

  input("sample").addEventListener("change", (event) => {
    if (event.target.value) input("pattern").value = event.target.value;
    show();
  });
  form.addEventListener("input", show);
  form.hidden = false;
  document.getElementById("try-table").hidden = false;
  show();
})();

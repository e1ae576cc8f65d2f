// Searches the index of the page's language, which search.js has put into `manualIndex`. The pages work without
// this script; it only adds the search field.
"use strict";

(() => {
  const field = document.getElementById("search");
  if (!field || typeof manualIndex === "undefined") return;

  // Full-width letters are found by half-width ones and capital letters by small ones.
  const plain = (text) => text.normalize("NFKC").toLowerCase();
  const sections = manualIndex.map((section) => ({
    ...section,
    plainTitle: plain(section.title),
    plainHeading: plain(section.heading || section.title),
    plainText: plain(section.text),
  }));

  const pointsOf = (section, word) =>
    (section.plainHeading.includes(word) ? 10 : 0) + (section.plainText.includes(word) ? 3 : 0) +
    (section.plainTitle.includes(word) ? 1 : 0);

  // Sections with all words come first.
  const rank = (section, words) => {
    const points = words.map((word) => pointsOf(section, word));
    return points.reduce((sum, each) => sum + each, points.every((each) => each > 0) ? 1000 : 0);
  };

  const find = (query) => {
    const words = plain(query).split(/\s+/).filter((word) => word);
    if (words.length === 0) return { words, found: [] };
    const found = sections
      .map((section) => ({ section, points: rank(section, words) }))
      .sort((a, b) => b.points - a.points)
      .filter((hit, at, hits) => hit.points > 0 && (hit.points >= 1000 || hits[0].points < 1000))
      .slice(0, 12)
      .map((hit) => hit.section);
    return { words, found };
  };

  // Returns a part of the text around the first word, which is marked.
  const excerpt = (section, words) => {
    const part = document.createElement("small");
    const at = words.map((word) => section.plainText.indexOf(word)).find((place) => place >= 0);
    if (at === undefined || section.plainText.length !== section.text.length) {
      part.textContent = section.text.slice(0, 90);
      return part;
    }
    const length = words.find((word) => section.plainText.indexOf(word) === at).length;
    const start = Math.max(0, at - 30);
    const mark = document.createElement("mark");
    mark.textContent = section.text.slice(at, at + length);
    part.append((start > 0 ? "…" : "") + section.text.slice(start, at), mark,
      section.text.slice(at + length, at + length + 60));
    return part;
  };

  const input = document.createElement("input");
  input.type = "search";
  input.placeholder = field.dataset.label;
  input.setAttribute("aria-label", field.dataset.label);
  const list = document.createElement("ul");
  list.hidden = true;
  list.setAttribute("aria-live", "polite");
  field.append(input, list);

  const show = () => {
    const { words, found } = find(input.value);
    list.hidden = words.length === 0;
    list.replaceChildren(...found.map((section) => {
      const item = document.createElement("li");
      const link = document.createElement("a");
      link.href = section.page + (section.anchor ? "#" + section.anchor : "");
      const name = document.createElement("b");
      name.textContent = section.heading ? section.title + " - " + section.heading : section.title;
      link.append(name, excerpt(section, words));
      item.append(link);
      return item;
    }));
    if (found.length !== 0) return;
    const none = document.createElement("li");
    none.className = "none";
    none.textContent = field.dataset.none;
    list.append(none);
  };

  const links = () => [...list.querySelectorAll("a")];
  const move = (step) => {
    const stops = [input, ...links()];
    const next = stops.indexOf(document.activeElement) + step;
    if (stops[next]) stops[next].focus();
  };

  input.addEventListener("input", show);
  field.addEventListener("keydown", (event) => {
    if (event.isComposing) return;
    if (event.key === "ArrowDown") move(1);
    else if (event.key === "ArrowUp") move(-1);
    else if (event.key === "Enter" && document.activeElement === input) links()[0]?.click();
    else if (event.key === "Escape") { list.hidden = true; input.focus(); }
    else return;
    if (event.key !== "Enter" || document.activeElement === input) event.preventDefault();
  });
  field.addEventListener("click", (event) => { if (event.target.closest("a")) list.hidden = true; });
  document.addEventListener("click", (event) => { if (!field.contains(event.target)) list.hidden = true; });
})();

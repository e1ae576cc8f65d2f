// Expands name patterns as the program does. The table of the page on name patterns uses it, and the tests compare
// it with the program.
"use strict";

const padded = (number, width) => String(number).padStart(width, "0");

// In the order of replacement.
const nameTokens = [
  [/<ID>/gi, (at) => at.id],
  [/<Y2>/g, (at) => padded(at.year % 100, 2)],
  [/<Y4?>/g, (at) => padded(at.year, 4)],
  [/<M1>/g, (at) => padded(at.month, 1)],
  [/<M2?>/g, (at) => padded(at.month, 2)],
  [/<D1>/g, (at) => padded(at.day, 1)],
  [/<D2?>/g, (at) => padded(at.day, 2)],
  [/<h1>/g, (at) => padded(at.hour, 1)],
  [/<h2?>/g, (at) => padded(at.hour, 2)],
  [/<m1>/g, (at) => padded(at.minute, 1)],
  [/<m2?>/g, (at) => padded(at.minute, 2)],
  [/<s1>/g, (at) => padded(at.second, 1)],
  [/<s2?>/g, (at) => padded(at.second, 2)],
];

// `time` is a local time as "2026-04-01T09:05:07".
function expandName(pattern, id, time) {
  const [year, month, day, hour, minute, second] = time.split(/[-T:]/).map(Number);
  const at = { id, year, month, day, hour, minute, second: second || 0 };
  return nameTokens.reduce((name, [token, text]) => name.replace(token, () => text(at)), pattern);
}

// Returns what a run uses of the name: without spaces at both ends, then without separators.
function trimmedName(name) {
  return name.replace(/^[ \t\r\n]+|[ \t\r\n]+$/g, "").replace(/^[\/\\]+|[\/\\]+$/g, "");
}

if (typeof module !== "undefined") module.exports = { expandName, trimmedName };

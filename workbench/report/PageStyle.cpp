// The style sheet of a report: black on white, and colours that stay apart in grey.
#include "workbench/report/PageStyle.h"

std::string_view PageStyle() {
    return R"css(
@page { size: A4; margin: 18mm 16mm 18mm 20mm; @bottom-right { content: counter(page) " / " counter(pages); font: 8pt "Noto Sans CJK SC", "Noto Sans SC", sans-serif; } }
* { box-sizing: border-box; }
html { font: 15px/1.5 "Noto Sans CJK SC", "Noto Sans SC", "Source Han Sans SC", "Microsoft YaHei", sans-serif; color: #111; background: #fff; }
body { max-width: 190mm; margin: 0 auto; padding: 8mm 6mm; overflow-wrap: anywhere; }
h1 { font-size: 1.9em; line-height: 1.25; margin: 0 0 .5em; }
h2 { font-size: 1.25em; margin: 2em 0 .6em; padding-bottom: .2em; border-bottom: 1.5px solid #111; break-after: avoid; }
h3 { font-size: 1em; margin: 1.4em 0 .4em; break-after: avoid; }
p { margin: .4em 0; orphans: 3; widows: 3; }
h2 + p { break-after: avoid; }
ul { margin: .4em 0; padding-left: 1.4em; }
li { margin: .15em 0; }
a { color: inherit; text-decoration: underline; text-decoration-color: #999; text-underline-offset: .15em; }
.lead { font-size: 1.1em; }
.small { font-size: .86em; color: #333; }
.wide { overflow-x: auto; }
table { border-collapse: collapse; width: 100%; font-size: .9em; line-height: 1.35; font-variant-numeric: tabular-nums; }
th, td { padding: .28em .55em; text-align: left; vertical-align: top; border-bottom: 1px solid #ccc; }
thead th { border-bottom: 1.5px solid #111; vertical-align: bottom; }
thead { display: table-header-group; }
tr { break-inside: avoid; }
tbody tr:first-child:not(:only-child) { break-after: avoid; }
tbody tr:last-child:not(:only-child) { break-before: avoid; }
table.facts { break-inside: avoid; }
td:not(.r), th:not(.r) { min-width: 4.4em; }
td.name { min-width: 9.5em; }
.r { text-align: right; }
td.r { white-space: nowrap; }
table.facts th { width: 10.5em; font-weight: normal; color: #444; }
.no { font-weight: bold; }
td.no { white-space: nowrap; }
.no::before { content: "\2715\00a0"; }
thead th { white-space: normal; word-break: keep-all; overflow-wrap: normal; }
thead [role=button] { cursor: pointer; }
thead [role=button]:focus-visible, input:focus-visible, a:focus-visible { outline: 2px solid #1560bd; outline-offset: 2px; }
thead [role=button]::after { content: "\00a0\2195"; color: #999; }
th[aria-sort=ascending] [role=button]::after { content: "\00a0\2191"; color: #111; }
th[aria-sort=descending] [role=button]::after { content: "\00a0\2193"; color: #111; }
.find { margin: .4em 0 .8em; display: flex; gap: .6em; flex-wrap: wrap; align-items: baseline; }
.find input { font: inherit; padding: .15em .4em; border: 1px solid #888; border-radius: 2px; min-width: 14em; }
[hidden] { display: none !important; }
.whole, figure { break-inside: avoid; }
figure { margin: .6em 0; }
figure svg { display: block; max-width: 100%; height: auto; overflow: visible; font-family: inherit; }
figcaption { font-weight: bold; margin: .3em 0; }
.pair { display: grid; grid-template-columns: 1fr 1fr; gap: 4mm; align-items: start; }
.sign { display: grid; grid-template-columns: repeat(3, 1fr); gap: 8mm; margin-top: 12mm; break-inside: avoid; }
.sign div { border-top: 1px solid #111; padding-top: .2em; margin-top: 14mm; font-size: .9em; }
table.days { font-size: 1em; table-layout: fixed; }
.days th:first-child { width: 12.5em; font-weight: normal; font-size: .9em; }
.days thead th { font-size: .68em; line-height: 14px; text-align: right; width: 18.4em; }
.days tr { scroll-margin-top: 1em; }
.days tr:target { background: #fff6d0; }
div.some { content-visibility: auto; contain-intrinsic-size: auto 140em; }
div.bar { display: flex; align-items: center; gap: .5em; }
div.bar > span { flex: 0 0 3.4em; font-size: .8em; white-space: nowrap; }
div.bar > div { flex: 1; min-width: 0; }
svg.tl { display: block; width: 100%; height: 4.2mm; margin: .25em 0; border: 1px solid #888; background: #fff; }
svg.ts { display: block; width: 100%; height: 14px; overflow: visible; font-size: 10px; }
svg.ts text { text-anchor: middle; }
.tl .g { stroke: #bbb; stroke-width: 1px; vector-effect: non-scaling-stroke; fill: none; }
.tl .h { fill: #333; }
.tl .x { fill: #7a1f1f; }
.tl .s { fill: #fff; stroke: #7a5c00; stroke-width: 1px; vector-effect: non-scaling-stroke; }
.tl .c { fill: #f5c400; stroke: #7a5c00; stroke-width: 1px; vector-effect: non-scaling-stroke; }
div.key { display: flex; flex-wrap: wrap; gap: .2em 1.6em; font-size: .86em; margin: .5em 0; }
div.key span { display: inline-flex; align-items: center; gap: .5em; }
div.key svg.tl { width: 12mm; flex: none; }
dl.hours { display: grid; grid-template-columns: auto 1fr; gap: 0 .8em; margin: 0; font-size: .82em; line-height: 1.45; font-variant-numeric: tabular-nums; }
dl.hours dt { color: #444; }
dl.hours dd { margin: 0; }
@media (max-width: 640px) {
  body { padding: 4mm 3mm; }
  .days th:first-child { width: 7.5em; }
  .days thead th { width: 11em; }
  .pair { grid-template-columns: 1fr; }
  .sign { gap: 4mm; }
  table.facts th { width: 7em; }
}
@media print {
  html { font-size: 9.6pt; }
  body { max-width: none; padding: 0; }
  a { text-decoration: none; }
  .find, thead [role=button]::after { display: none; }
  div.some { content-visibility: visible; }
  .wide { overflow: visible; }
  .sheet { break-before: page; }
  svg.tl, .no { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
}
)css";
}

// Sorting understands hours (1:30:00), shares (12.5%), numbers and names; what is not known ("-") stands last. What the
// page says of finding, it says in the page's language: the words stand in attributes of <body>.
std::string_view PageScript() {
    return R"js(
"use strict";

// What a cell is sorted by: nothing for a dash, minutes for a time, a number, or the text.
function keyOf(cell) {
  const text = cell ? cell.textContent.trim() : "";
  if (text === "" || text === "-") return null;
  const time = /^(-?)(\d+):(\d\d)(?::(\d\d))?$/.exec(text);
  if (time) return (time[1] ? -1 : 1) * (time[2] * 3600 + time[3] * 60 + Number(time[4] || 0));
  const number = /^-?\d+(?:\.\d+)?(?=%|$|\s)/.exec(text);
  return number ? Number(number[0]) : text;
}

const collator = new Intl.Collator(document.documentElement.lang, { numeric: true });

function compare(one, other) {
  if (typeof one === "number" && typeof other === "number") return one - other;
  return collator.compare(one, other);
}

// Rows that are equal keep their order; what is not known stays last in either direction.
function sortBy(table, column, heading) {
  const isDown = heading.getAttribute("aria-sort") === "ascending";
  for (const each of table.tHead.rows[0].cells) each.removeAttribute("aria-sort");
  heading.setAttribute("aria-sort", isDown ? "descending" : "ascending");
  const body = table.tBodies[0];
  const rows = Array.from(body.rows, row => ({ row, key: keyOf(row.cells[column]) }));
  rows.sort((a, b) => {
    if (a.key === null || b.key === null) return (a.key === null) - (b.key === null);
    return isDown ? compare(b.key, a.key) : compare(a.key, b.key);
  });
  body.append(...rows.map(each => each.row));
}

function makeSortable(table) {
  Array.from(table.tHead.rows[0].cells).forEach((heading, column) => {
    // No <button>: browsers leave it out where a heading is repeated on the next sheet of paper.
    const button = document.createElement("span");
    button.tabIndex = 0;
    button.setAttribute("role", "button");
    button.append(...heading.childNodes);
    heading.append(button);
    button.addEventListener("click", () => sortBy(table, column, heading));
    button.addEventListener("keydown", event => {
      if (event.key !== "Enter" && event.key !== " ") return;
      event.preventDefault();
      sortBy(table, column, heading);
    });
  });
}

// A field above a list, which leaves only what contains every word that is typed.
function makeFindable(list) {
  const items = Array.from(list.querySelectorAll("tbody > tr"));
  const texts = items.map(item => (item.textContent).toLowerCase());
  const field = document.createElement("input");
  field.type = "search";
  const label = document.createElement("label");
  label.append(document.body.dataset.find + " ", field);
  const count = document.createElement("output");
  const bar = document.createElement("div");
  bar.className = "find";
  bar.append(label, count);
  (list.closest(".wide") || list).before(bar);
  field.addEventListener("input", () => {
    const words = field.value.toLowerCase().split(/\s+/).filter(word => word);
    let shown = 0;
    items.forEach((item, i) => {
      item.hidden = !words.every(word => texts[i].includes(word));
      shown += item.hidden ? 0 : 1;
    });
    for (const some of list.querySelectorAll(".some")) some.hidden = !some.querySelector("tbody > tr:not([hidden])");
    count.value = words.length ? shown + " / " + items.length : "";
  });
}

for (const table of document.querySelectorAll("table.sort")) makeSortable(table);
for (const list of document.querySelectorAll(".findable")) makeFindable(list);
)js";
}

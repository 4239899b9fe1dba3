#pragma once

namespace inspect {

inline constexpr const char* kReportStyle = R"css(
:root { color-scheme: light dark; --page: #f6f7f8; --card: #fff; --ink: #1c2126; --soft: #67717b;
  --rule: #dfe3e7; --mark: #eef3fb; --good: #1a7f4b; --bad: #c62f2f; }
@media (prefers-color-scheme: dark) { :root { --page: #15181b; --card: #1d2125; --ink: #e6e9ec;
  --soft: #98a2ac; --rule: #31373d; --mark: #263142; --good: #4cc38a; --bad: #ff7b72; } }
* { box-sizing: border-box; }
body { margin: 0; padding: 1.5rem; background: var(--page); color: var(--ink);
  font: 15px/1.45 system-ui, sans-serif; }
h1 { margin: 0; font-size: 1.35rem; }
header p { margin: .3rem 0 1.1rem; color: var(--soft); }
main { display: grid; grid-template-columns: minmax(0, 11fr) minmax(27rem, 9fr); gap: 1.25rem;
  align-items: start; }
@media (max-width: 64rem) { main { grid-template-columns: minmax(0, 1fr); } }
figure, .table { margin: 0; background: var(--card); border: 1px solid var(--rule);
  border-radius: 8px; overflow: hidden; }
figure { position: sticky; top: 1rem; }
@media (max-width: 64rem) { figure { position: static; } .table { max-height: none !important; } }
figcaption { padding: .5rem .8rem; color: var(--soft); font-size: .85rem; }
.table { max-height: calc(100vh - 2rem); overflow: auto; }
svg { display: block; width: 100%; height: auto; }
svg .line, svg .aux, svg .hint, svg .points { fill: none; stroke: var(--hue); vector-effect: non-scaling-stroke; }
svg .line { stroke-width: 1.6; }
svg .aux, svg .hint { stroke-width: 1.1; stroke-dasharray: 5 4; }
svg .hint { display: none; }
svg g.on .hint { display: inline; }
svg .points { stroke-width: 3.2; stroke-linecap: round; opacity: .55; }
svg .label { fill: var(--hue); font: 600 calc(var(--unit) * 15px) system-ui, sans-serif;
  text-anchor: middle; dominant-baseline: central; paint-order: stroke; stroke: #000a;
  stroke-width: calc(var(--unit) * 3px); }
svg g { transition: opacity .12s; }
svg.focus g { opacity: .07; }
svg.focus g.on { opacity: 1; }
svg g.on .line { stroke-width: 2.6; }
svg g.off { display: none; }
table { width: 100%; border-collapse: collapse; font-variant-numeric: tabular-nums; }
th, td { padding: .22rem .55rem; text-align: right; white-space: nowrap; }
th:first-child, td:first-child { text-align: left; white-space: normal; padding-left: .8rem; }
th:last-child, td:last-child { text-align: left; padding-right: .8rem; }
thead th { position: sticky; top: 0; z-index: 1; background: var(--card); color: var(--soft);
  font-weight: 500; font-size: .85rem; box-shadow: inset 0 -1px var(--rule); }
tbody th { padding-top: .9rem; text-align: left; }
tbody th label { cursor: pointer; }
tbody th input { accent-color: var(--hue); margin: 0 .45rem 0 0; vertical-align: -1px; }
tbody td { border-top: 1px solid var(--rule); }
tr.row { cursor: default; }
tr.row:hover, tr.row:focus, tr.row.on { background: var(--mark); outline: none; }
.unit { color: var(--soft); }
.good { color: var(--good); }
.bad { color: var(--bad); font-weight: 600; }
)css";

inline constexpr const char* kReportScript = R"js(
const svg = document.querySelector('figure svg');
let kept = null;
function show(row) {
  const on = row || kept;
  svg.querySelectorAll('g.on').forEach(g => g.classList.remove('on'));
  const figure = on && document.getElementById('figure-' + on.dataset.figure);
  svg.classList.toggle('focus', Boolean(figure));
  if (figure) figure.classList.add('on');
}
document.querySelectorAll('tr.row').forEach(row => {
  row.addEventListener('mouseenter', () => show(row));
  row.addEventListener('mouseleave', () => show(null));
  row.addEventListener('focus', () => show(row));
  row.addEventListener('blur', () => show(null));
  row.addEventListener('click', () => {
    const again = kept === row;
    if (kept) kept.classList.remove('on');
    kept = again ? null : row;
    if (kept) kept.classList.add('on');
    show(row);
  });
});
document.querySelectorAll('tbody input').forEach(box => box.addEventListener('change', () =>
  svg.querySelectorAll('g[data-group="' + box.dataset.group + '"]')
    .forEach(g => g.classList.toggle('off', !box.checked))));
)js";

}  // namespace inspect

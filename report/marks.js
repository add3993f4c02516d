"use strict";
// How each series looks. Colours are told apart in all common forms of colour blindness, and dashes
// and markers tell the series apart where there is no colour at all.
const MARKS = {
  ours: { colour: "#0063a6", width: 2.4, symbol: d3.symbolCircle, filled: true },
  fftw: { colour: "#c24e00", dash: "7 3", symbol: d3.symbolSquare, filled: true },
  redft11: { colour: "#c24e00", dash: "7 3", symbol: d3.symbolSquare, filled: true },
  kissfft: { colour: "#007556", dash: "2 3", symbol: d3.symbolTriangle, filled: true },
  composed: { colour: "#9b3f82", dash: "9 3 2 3", symbol: d3.symbolDiamond, filled: true },
  loop: { colour: "#555555", dash: "4 2", symbol: d3.symbolCross, filled: true },
  single_calls: { colour: "#007556", dash: "2 3", symbol: d3.symbolTriangle, filled: true },
  fftw_few: { colour: "#c24e00", dash: "2 3", symbol: d3.symbolSquare, filled: false },
  single_calls_few: { colour: "#007556", dash: "7 3", symbol: d3.symbolTriangle, filled: false },
  cost_0: { colour: "#0063a6", width: 2, symbol: d3.symbolCircle, filled: true },
  cost_0_single: { colour: "#0063a6", dash: "2 3", symbol: d3.symbolCircle, filled: false },
  cost_1: { colour: "#c24e00", width: 2, symbol: d3.symbolSquare, filled: true },
  cost_1_single: { colour: "#c24e00", dash: "2 3", symbol: d3.symbolSquare, filled: false },
  cost_2: { colour: "#007556", width: 2, symbol: d3.symbolTriangle, filled: true },
  cost_2_single: { colour: "#007556", dash: "2 3", symbol: d3.symbolTriangle, filled: false },
  scipy: { colour: "#c24e00", dash: "7 3", symbol: d3.symbolSquare, filled: true },
  numpy: { colour: "#007556", dash: "2 3", symbol: d3.symbolTriangle, filled: true },
  ports: { colour: "#222222", dash: "8 4", symbol: d3.symbolSquare, filled: false },
  front_end: { colour: "#9b3f82", dash: "2 3", symbol: d3.symbolTriangle, filled: false },
  products: { colour: "#c24e00", width: 2, symbol: d3.symbolDiamond, filled: true },
  table_additions: { colour: "#0063a6", dash: "2 3", symbol: d3.symbolCircle, filled: false, large: true },
  table_products: { colour: "#c24e00", dash: "2 3", symbol: d3.symbolDiamond, filled: false, large: true },
  twin: { colour: "#c24e00", dash: "7 3", symbol: d3.symbolSquare, filled: true },
};

function markPath(role, size) {
  return d3.symbol().type(MARKS[role].symbol).size(MARKS[role].large ? size * 2 : size)();
}

function styleLine(selection, role) {
  const mark = MARKS[role];
  return selection.attr("fill", "none").attr("stroke", mark.colour)
    .attr("stroke-width", mark.width || 1.6).attr("stroke-dasharray", mark.dash || null);
}

function styleMarker(selection, role) {
  const mark = MARKS[role];
  return selection.attr("stroke", mark.colour).attr("fill", mark.filled ? mark.colour : "#ffffff")
    .attr("fill-opacity", mark.filled ? 1 : 0).attr("stroke-width", mark.filled ? 0.5 : 1.4);
}

/** A piece of the series' line with its marker, for the legend and the tooltip. */
function appendSwatch(parent, role) {
  const svg = parent.append("svg").attr("width", 30).attr("height", 14).attr("aria-hidden", "true");
  styleLine(svg.append("path").attr("d", "M0,7H30"), role);
  styleMarker(svg.append("path").attr("d", markPath(role, 40)).attr("transform", "translate(15,7)"),
    role);
}

/** Figures are shown as they stand in the data, which has no more digits than are worth showing. */
function shown(value) {
  return value === null ? "\u2013" : String(value);
}

/** A logarithmic axis has 1, 2 and 5 in each decade, or the decades alone where that is too much. */
function logTicks([low, high]) {
  const ticks = [];
  for (let power = Math.floor(Math.log10(low)); power <= Math.ceil(Math.log10(high)); ++power) {
    for (const digit of [1, 2, 5]) {
      // The quotient of whole numbers is rounded once: 0.2, and not 0.2000...1.
      const tick = power < 0 ? digit / 10 ** -power : digit * 10 ** power;
      if (tick >= low && tick <= high) ticks.push(tick);
    }
  }
  const decades = ticks.filter((tick) => Number.isInteger(Math.round(1e6 * Math.log10(tick)) / 1e6));
  return ticks.length > 12 ? decades : ticks;
}

function tickText(value) {
  if (value >= 1e6) return `${value / 1e6}M`;
  return value >= 1e4 ? `${value / 1e3}k` : String(value);
}

/** Beside the pointer, but inside the figure. */
function placeTooltip(figure, tooltip, x, y) {
  const box = figure.getBoundingClientRect();
  const width = tooltip.offsetWidth;
  const left = x - box.left + 18 + width > box.width ? x - box.left - 18 - width : x - box.left + 18;
  tooltip.style.left = `${Math.max(0, left)}px`;
  tooltip.style.top = `${Math.max(0, y - box.top - tooltip.offsetHeight / 2)}px`;
}

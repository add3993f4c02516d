"use strict";
/** Geometric mean and range of each family, one row for each element type. */
function drawOverview(section, rows) {
  const root = d3.select(section);
  const figure = root.select("figure").node();
  const tooltip = root.select(".tooltip");
  const peers = new Map(rows.flatMap((row) => row.peers.map((peer) => [peer.role, peer.name])));
  const legend = root.select(".legend");
  for (const [role, name] of peers) {
    const entry = legend.append("li").append("span").attr("class", "entry");
    appendSwatch(entry, role);
    entry.append("span").text(name);
  }

  const margin = { top: 8, right: 20, bottom: 36, left: 212 };
  const rowHeight = 19;
  const width = 900;
  const height = margin.top + margin.bottom + rows.length * rowHeight;
  const spreads = rows.flatMap((row) => row.peers.map((peer) => peer.spread));
  const domain = [Math.min(0.9, d3.min(spreads, (s) => s.least)) * 0.93,
    d3.max(spreads, (s) => s.largest) * 1.08];
  const x = d3.scaleLog().domain(domain).range([margin.left, width - margin.right]);
  const svg = root.select(".panels").append("svg").attr("viewBox", `0 0 ${width} ${height}`)
    .attr("role", "img").attr("aria-label", "Speed of all families; the table above has the figures");

  const ticks = logTicks(domain);
  const axis = svg.append("g").attr("class", "grid");
  axis.selectAll("line").data(ticks).enter().append("line").attr("x1", x).attr("x2", x)
    .attr("y1", margin.top).attr("y2", height - margin.bottom);
  axis.selectAll("text").data(ticks).enter().append("text").attr("x", x)
    .attr("y", height - margin.bottom + 14).attr("text-anchor", "middle").text(tickText);
  svg.append("text").attr("class", "axis-label").attr("text-anchor", "middle")
    .attr("x", (margin.left + width - margin.right) / 2).attr("y", height - 5)
    .text("time of the peer / ours");
  svg.append("line").attr("class", "reference").attr("x1", x(1)).attr("x2", x(1))
    .attr("y1", margin.top).attr("y2", height - margin.bottom);

  rows.forEach((row, index) => {
    const middle = margin.top + (index + 0.5) * rowHeight;
    svg.append("text").attr("x", margin.left - 12).attr("y", middle + 4).attr("text-anchor", "end")
      .text(row.label);
    row.peers.forEach((peer, position) => {
      const y = middle + (position - (row.peers.length - 1) / 2) * 8;
      const { mean, least, largest } = peer.spread;
      styleLine(svg.append("path").attr("d", `M${x(least)},${y}H${x(largest)}`), peer.role)
        .attr("stroke-dasharray", null).attr("opacity", 0.45).attr("stroke-width", 3.5);
      styleMarker(svg.append("path").attr("class", "point").attr("data-row", row.label)
        .attr("data-role", peer.role).attr("data-y", mean).attr("d", markPath(peer.role, 45))
        .attr("transform", `translate(${x(mean)},${y})`), peer.role);
      svg.append("rect").attr("x", margin.left).attr("width", width - margin.left - margin.right)
        .attr("y", y - 4).attr("height", 8).attr("fill", "transparent").attr("class", "target")
        .on("mousemove", () => show(row, peer)).on("mouseleave", () => tooltip.classed("shown", false));
    });
  });

  function show(row, peer) {
    const { mean, least, largest } = peer.spread;
    tooltip.text("").append("strong").text(row.label);
    for (const [name, value] of [[`${peer.name}, mean`, mean],
      [`worst, ${row.at}${peer.spread.least_at}`, least],
      [`best, ${row.at}${peer.spread.largest_at}`, largest]]) {
      const line = tooltip.append("div");
      line.append("span").text(name);
      line.append("span").attr("class", "value").text(`${shown(value)} \u00d7`);
    }
    tooltip.classed("shown", true);
    placeTooltip(figure, tooltip.node(), d3.event.clientX, d3.event.clientY);
  }
}

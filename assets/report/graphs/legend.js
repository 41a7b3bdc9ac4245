// The legend.

function legendEntries(report, notes) {
  const entries = report.legend ? [{name: report.legend}] : [];
  if (report.names.length > 0) entries.push(...report.series);
  if (report.names.length > 0 && report.hasUntold) entries.push(report.untold);
  return entries.concat(notes.map((name) => ({name})));
}

// Entries from left to right, line by line.
function flowLegend(entries, width) {
  let [x, line] = [8, 0];
  const places = entries.map((entry) => {
    const swatch = entry.fill ? 18 : 0;
    const name = fitText(entry.name, Math.max(40, entry.fill ? Math.min(220, width - 40) : width - 20));
    const wide = swatch + widthOf(name) + 2 * kTextGap;
    if (x > 8 && x + wide > width) [x, line] = [8, line + 1];
    const place = {entry, name, x, textX: x + swatch, line, wide};
    x += wide;
    return place;
  });
  return {places, height: entries.length > 0 ? (line + 1) * (kLineHeight + 4) + 6 : 0};
}

function drawLegend(legend, report, width) {
  const drawPlace = (place) => {
    const y = 4 + place.line * (kLineHeight + 4);
    const swatch = place.entry.fill ? rectangle(place.x + 0.5, y + 2.5, 11, 11, place.entry.fill,
      "class='bar-graph-swatch' stroke='" + place.entry.edge + "'" +
      (place.entry === report.untold ? " stroke-dasharray='3 2'" : "")) : "";
    return swatch + textAt(place.textX, y + 12, "start", report.colours.legend, place.name,
      "class='bar-graph-legend'");
  };
  return rectangle(0, 0, width, legend.height, report.colours.behindLegend) +
    legend.places.map(drawPlace).join("");
}

// What the legend had to cut is whole in a tip.
function legendTips(legend) {
  return legend.places.filter((place) => place.name !== place.entry.name).map((place) => ({
    x: place.x, y: 4 + place.line * (kLineHeight + 4), width: place.wide, height: kLineHeight + 4,
    text: place.entry.name}));
}

// A graph with the bars of each day side by side, on one scale.

function togetherNotes(columns) {
  return columns.together > 1 ? ["Each bar is the highest of " + columns.together + " days."] : [];
}

function largestGroup(report) {
  return report.days.reduce((most, day) => Math.max(most, day.bars.length), 1);
}

function drawGroups(report, size) {
  const scale = makeScale(report, size.height);
  const [left, right] = [Math.ceil(widestOf(scale.ticks.map((tick) => tick.shown))) + 14, size.width - 10];
  const columns = makeColumns(report.days, right - left);
  const strip = planStrip(columns, size);
  const legend = flowLegend(legendEntries(report, togetherNotes(columns)), size.width);
  const free = size.height - strip.height - legend.height;
  const group = largestGroup(report);
  const plan = planValues(report, group > 1 ? barPitch(columns, group) : columns.pitch, free);
  const top = legend.height + plan.room;
  const plot = {width: size.width, height: Math.max(size.height - strip.height, top + 41)};
  const box = {left, right, top, bottom: snap(plot.height - 1, size), zoom: size.zoom};
  const bars = placeBars(columns, box, group);
  const room = Object.assign({}, box, {top: legend.height});
  return {
    plot: svg(plot.width, plot.height, size.zoom, drawLegend(legend, report, size.width) +
      drawBackground(report, room) + drawScale(report, scale, box) + drawBars(bars, report, scale, box) +
      drawBaseline(report, box) + drawValues(bars, plan, report, scale, box) +
      drawNothing(report, box)),
    tips: drawTips(columnTips(columns, report, room, () => true).concat(legendTips(legend)), plot),
    strip: drawStrip(strip, columns, report, box, size),
  };
}

// A graph with a row for each channel, where bars side by side would be too thin or too many.

const kThinnestBar = 6;  // thinner bars side by side can't be told apart
const kLowestLane = 26;

function needsLanes(report, size) {
  if (report.names.length < 2) return false;
  if (report.names.length > kPalette.length + 1) return true;
  return (size.width - 70) * 0.78 / (report.days.length * largestGroup(report)) < kThinnestBar;
}

function laneIndexes(report) {
  return report.series.map((unused, i) => i).concat(report.hasUntold ? [kUntold] : []);
}

// The bars of each series, with the column in which they stand.
function barsBySeries(columns) {
  const lists = new Map();
  columns.list.forEach((column, at) => column.bars.forEach((bar) => {
    if (!lists.has(bar.series)) lists.set(bar.series, []);
    lists.get(bar.series).push({bar, at});
  }));
  return lists;
}

// Bars whose channel isn't known stand one before the other in a lane of theirs.
function placeLane(list, columns, box) {
  const pitch = barPitch(columns, 1);
  return list.map((one) => placeBar(one.bar, columnMiddle(columns, one.at, box), pitch, box));
}

function drawLaneName(series, bars, report, box) {
  const middle = (box.top - box.room + box.bottom) / 2;
  const ink = readable(report.colours.behindLabels, report.colours.page, 4.5);
  const numbers = bars.filter((bar) => bar.value && bar.value.number !== null);
  const tall = box.bottom - box.top + box.room >= 2 * kLineHeight + 2 && numbers.length > 0;
  const name = fitText(series.name, box.left - 34);
  const highest = tall && numbers.reduce((most, bar) => bar.value.number > most.value.number ? bar : most);
  return rectangle(8.5, middle - (tall ? 12.5 : 5.5), 11, 11, series.fill,
      "class='bar-graph-swatch' stroke='" + series.edge + "'") +
    textAt(26, middle - (tall ? 3 : -4), "start", ink, name, "class='bar-graph-legend'") +
    (tall ? textAt(26, middle + 11, "start", ink, "up to " + highest.value.shown, "opacity='0.75'") : "");
}

// Values stand in lanes only where they lie side by side without being turned.
function valueRoom(report, columns, lanePitch) {
  const fits = report.showValues && lanePitch >= 44 && report.widestValue + 4 <= columns.pitch;
  return fits ? kLineHeight : 0;
}

function drawLane(index, list, report, columns, scale, box) {
  const bars = placeLane(list, columns, box);
  return drawBackground(report, Object.assign({}, box, {top: box.top - box.room})) +
    drawBars(bars, report, scale, box) + drawBaseline(report, box) +
    drawValues(bars, {kind: box.room > 0 ? "lying" : "none"}, report, scale, box) +
    drawLaneName(seriesOf(report, index), bars, report, box);
}

function laneTips(indexes, columns, report, boxes) {
  const tips = [];
  for (let first = 0; first < indexes.length; first += kLanesInTip) {
    const last = Math.min(first + kLanesInTip, indexes.length) - 1;
    const chosen = new Set(indexes.slice(first, last + 1));
    tips.push(...columnTips(columns, report,
      Object.assign({}, boxes[first], {bottom: boxes[last].bottom}),
      (bar) => chosen.has(bar.series) || bar.series === kUntold));
  }
  return tips;
}

function drawLanes(report, size) {
  const indexes = laneIndexes(report);
  const scale = makeScale(report, 240);
  const names = indexes.map((index) => seriesOf(report, index).name);
  const left = Math.ceil(Math.min(size.width * 0.3, 34 + Math.max(
    widestOf(names), widthOf("up to ") + report.widestValue)));
  const right = size.width - 10;
  const columns = makeColumns(report.days, right - left);
  const lists = barsBySeries(columns);
  const strip = planStrip(columns, size);
  const legend = flowLegend((report.legend ? [{name: report.legend}] : []).concat(
    [{name: "One scale for all rows, from 0 to " + scale.ticks[scale.ticks.length - 1].shown + "."}],
    togetherNotes(columns).map((name) => ({name}))), size.width);
  const pitch = Math.max(kLowestLane, (size.height - strip.height - legend.height) / indexes.length);
  const plot = {width: size.width, height: legend.height + pitch * indexes.length};
  const room = valueRoom(report, columns, pitch);
  const boxes = indexes.map((unused, i) => ({left, right, room, zoom: size.zoom,
    top: snap(legend.height + i * pitch + 5 + room, size),
    bottom: snap(legend.height + (i + 1) * pitch - 1, size)}));
  return {
    plot: svg(plot.width, plot.height, size.zoom, drawLegend(legend, report, size.width) +
      indexes.map((index, i) =>
        drawLane(index, lists.get(index) || [], report, columns, scale, boxes[i])).join("") +
      drawNothing(report, {left, right, top: legend.height, bottom: size.height - strip.height})),
    tips: drawTips(laneTips(indexes, columns, report, boxes), plot),
    strip: drawStrip(strip, columns, report, boxes[0], size),
  };
}

// Tips: rectangles with a text, a Tab before a number that belongs to the right.

const kLanesInTip = 10;

function valueLine(bar, report, untold) {
  const shown = bar.value ? bar.value.shown : "no value";
  if (report.names.length === 0) return shown;
  return (untold ? "" : seriesOf(report, bar.series).name) + "\t" + shown;
}

function tipText(column, bars, report) {
  const lines = column.label.slice();
  if (column.days.length > 1) lines.push("highest of " + column.days.length + " days:");
  if (column.untold) {
    lines.push(column.bars.length + " of " + report.names.length + " channels, not told which:");
  }
  const shown = bars.slice(0, 2 * kLanesInTip).map((bar) => valueLine(bar, report, column.untold));
  if (bars.length > shown.length) shown.push("and " + (bars.length - shown.length) + " more");
  return lines.concat(shown.length > 0 ? shown : ["no value"]).join("\n");
}

function columnTips(columns, report, box, belongs) {
  return columns.list.map((column, i) => ({
    x: box.left + i * columns.pitch, y: box.top, width: columns.pitch, height: box.bottom - box.top,
    text: tipText(column, column.bars.filter(belongs), report),
  }));
}

function percent(part, whole) {
  return (100 * part / whole).toFixed(4) + "%";
}

function drawTips(tips, size) {
  return tips.map((tip, i) => "<div class='bar-graph-tip' tabindex='" + (i === 0 ? 0 : -1) +
    "' style='position:absolute;left:" + percent(tip.x, size.width) + ";top:" +
    percent(tip.y, size.height) + ";width:" + percent(tip.width, size.width) + ";height:" +
    percent(tip.height, size.height) + "' title='" + escapeText(tip.text) + "'></div>").join("");
}

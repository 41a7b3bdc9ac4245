// The figures of the report as a table, for whoever doesn't see bars. It has no size of its own on the
// page; programs that read the screen find it, and so does the window when figures are copied.

const kMostCells = 20000;  // so many are read in a moment
const kNothingToDraw = "There is nothing to draw: this report holds no figures.";
const kUnseen = "position:absolute;left:0;top:0;width:1px;height:1px;overflow:hidden;" +
  "contain:strict;clip-path:inset(50%);white-space:nowrap";

function figuresOfDay(day, columns) {
  const texts = Array(columns).fill("");
  for (const bar of day.bars.filter((one) => one.value)) {
    const at = bar.series === kUntold ? columns - 1 : bar.series;
    texts[at] += (texts[at] && " ") + bar.value.shown;
  }
  return texts;
}

function row(cells, kind) {
  return "<tr><th scope='" + kind + "'>" + escapeText(cells[0]) + "</th>" + cells.slice(1)
    .map((cell) => kind === "col" ? "<th scope='col'>" + escapeText(cell) + "</th>"
      : "<td>" + escapeText(cell) + "</td>").join("") + "</tr>";
}

// Of a report that is too large for one, the last days.
function figuresTable(report) {
  const names = (report.names.length > 0 ? report.names : ["Value"])
    .concat(report.hasUntold ? [report.untold.name] : []);
  const days = report.days.slice(-Math.max(1, Math.floor(kMostCells / (names.length + 1))));
  const caption = !report.hasFigures ? kNothingToDraw : "Figures of the report" +
    (days.length < report.days.length ? ", the last " + days.length + " days" : "");
  return "<table class='bar-graph-figures'><caption>" + caption + "</caption><thead>" +
    row(["Day"].concat(names), "col") + "</thead><tbody>" + days.map((day) =>
      row([day.label.join(" ")].concat(figuresOfDay(day, names.length)), "row")).join("") +
    "</tbody></table>";
}

// In the middle of where bars would be.
function drawNothing(report, box) {
  if (report.hasFigures) return "";
  const ink = readable(report.colours.behindLabels, report.colours.page, 4.5);
  return textAt((box.left + box.right) / 2, (box.top + box.bottom) / 2, "middle", ink,
    fitText(kNothingToDraw, box.right - box.left), "class='bar-graph-nothing'");
}

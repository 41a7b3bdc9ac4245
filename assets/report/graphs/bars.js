// Bars: where they stand, and how they look.

const kWidestBar = 72;
const kThinnestEdge = 4;  // thinner bars have no edge line

function barOutline(bar, scale, box) {
  const top = box.bottom - heightOf(bar.value.number, scale, box);
  return "M" + bar.left + " " + box.bottom + "V" + Number(top.toFixed(3)) + "H" + bar.right + "V" +
    box.bottom + "Z";
}

// All bars of a series are one path: thousands of them stay cheap.
function drawBars(bars, report, scale, box) {
  const outlines = new Map();
  for (const bar of bars.filter((one) => one.value && one.value.number !== null)) {
    outlines.set(bar.series, (outlines.get(bar.series) || "") + barOutline(bar, scale, box));
  }
  const thin = bars.length > 0 && bars[0].right - bars[0].left < kThinnestEdge;
  return Array.from(outlines, ([index, outline]) => {
    const series = seriesOf(report, index);
    const look = thin ? "fill='" + series.solid + "'"
      : "fill='" + escapeText(series.fill) + "' stroke='" + series.edge + "'" +
        (index === kUntold ? " stroke-dasharray='3 2'" : "");
    return "<path class='bar-graph-bars' data-series='" + index + "' shape-rendering='crispEdges' " +
      look + " d='" + outline + "'/>";
  }).join("");
}

// The share of a column that its bars take; columns of thin bars leave no gaps.
function barPitch(columns, largestGroup) {
  const share = columns.pitch < 3 ? 1 : 0.78;
  return Math.min(kWidestBar, columns.pitch * share / largestGroup);
}

function placeBar(bar, middle, pitch, box) {
  return {value: bar.value, series: bar.series, middle,
    left: snap(middle - pitch / 2, box), right: snap(middle + pitch / 2, box)};
}

function columnMiddle(columns, at, box) {
  return box.left + (at + 0.5) * columns.pitch;
}

// The bars of each column side by side about its middle.
function placeBars(columns, box, largestGroup) {
  const pitch = barPitch(columns, largestGroup);
  const place = (column, at) => column.bars.map((bar, k) => placeBar(bar,
    columnMiddle(columns, at, box) + (k + 0.5 - column.bars.length / 2) * pitch, pitch, box));
  return columns.list.flatMap(place);
}

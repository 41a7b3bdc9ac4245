// The strip of labels under the bars.

// Every label, every second, ... or every seventh, so that a longer step keeps to one weekday.
function stepFor(width, pitch) {
  const step = Math.max(1, Math.ceil((width + kTextGap) / pitch));
  return step <= 3 ? step : Math.ceil(step / 7) * 7;
}

// Whole labels where all of them fit, else the last line, the date, of as many as fit.
function planStrip(columns, size) {
  // Whole pixels, so that plot and strip together are as high as the window and no higher.
  const whole = (height) => Math.ceil(height * size.zoom) / size.zoom;
  const labels = columns.list.map((column) => column.days[0].label);
  const lines = labels.reduce((most, label) => Math.max(most, label.length), 0);
  if (stepFor(widestOf(labels.flat()), columns.pitch) === 1) {
    const shown = Math.min(lines, 4);
    return {labels, lines: shown, step: 1, height: whole(shown * kLineHeight + 8)};
  }
  const dates = labels.map((label) => label.slice(-1).map((date) => fitText(date, 160)));
  const step = stepFor(widestOf(dates.flat()), columns.pitch);
  return {labels: dates, lines: 1, step, height: whole(kLineHeight + 10)};
}

function drawLabel(label, middle, strip, report) {
  return label.slice(0, strip.lines).map((line, k) => textAt(middle, (k + 1) * kLineHeight +
    (strip.step > 1 ? 4 : 1), "middle", report.colours.label, line, "class='bar-graph-label'")).join("");
}

// A label that would stand out of the graph is left out, never moved away from its bars.
function drawStrip(strip, columns, report, box, size) {
  const width = size.width;
  let content = rectangle(0, 0, width, strip.height, report.colours.behindLabels);
  for (let i = 0; i < strip.labels.length; i += strip.step) {
    const middle = columnMiddle(columns, i, box);
    const half = widestOf(strip.labels[i]) / 2;
    if (middle - half < 1 || middle + half > width - 1) continue;
    if (strip.step > 1) content += rectangle(snap(middle, size), 0, 1, 4, report.colours.label);
    content += drawLabel(strip.labels[i], middle, strip, report);
  }
  return svg(width, strip.height, size.zoom, content);
}

// The scale: few round lines, and what lies behind the bars.

function niceStep(highest, wanted, whole) {
  const power = Math.pow(10, Math.floor(Math.log10(highest / wanted)));
  const step = [1, 2, 2.5, 5, 10].map((factor) => factor * power)
    .find((candidate) => candidate * wanted >= highest * 0.999999);
  return whole ? Math.max(1, Math.ceil(step)) : step;
}

function decimalsOf(step, notation) {
  let decimals = 0;
  while (decimals < 12 && Math.abs(step - Number(step.toFixed(decimals))) > step * 1e-6) ++decimals;
  return decimals > 0 && notation.header !== "" ? Math.max(2, decimals) : decimals;
}

function showTick(number, decimals, notation) {
  const [whole, fraction] = number.toFixed(decimals).split(".");
  return showNumber("", whole, fraction || "", notation);
}

// Few round lines from 0 to the first one that no bar passes.
function makeScale(report, height) {
  const highest = report.highest > 0 ? report.highest : 1;
  const wanted = Math.max(2, Math.min(6, Math.floor(height / 60)));
  const step = niceStep(highest, wanted, report.whole);
  const decimals = decimalsOf(step, report.notation);
  const count = Math.max(1, Math.ceil(highest / step - 1e-6));
  const ticks = Array.from({length: count + 1}, (unused, i) =>
    ({number: i * step, shown: showTick(i * step, decimals, report.notation)}));
  return {top: count * step, ticks};
}

function heightOf(value, scale, box) {
  return Math.max(0, value) / scale.top * (box.bottom - box.top);
}

function drawScale(report, scale, box) {
  const ink = readable(report.colours.behindLabels, report.colours.page, 4.5);
  return scale.ticks.map((tick) => {
    const y = snap(box.bottom - heightOf(tick.number, scale, box), box);
    return rectangle(box.left, y, box.right - box.left, 1, ink, "opacity='0.18'") +
      textAt(box.left - 6, Math.min(y + 4, box.bottom - 1), "end", ink, tick.shown,
        "class='bar-graph-tick'");
  }).join("");
}

function drawBaseline(report, box) {
  return rectangle(box.left, box.bottom, box.right - box.left, 1, report.colours.behindLabels);
}

function drawBackground(report, box) {
  return rectangle(box.left, box.top, box.right - box.left, box.bottom - box.top,
    report.colours.behindBars, "opacity='0.3'");
}

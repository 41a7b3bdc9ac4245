// Values above the bars: lying where they fit, else upright, else the highest alone.

function planValues(report, pitch, plotHeight) {
  const width = report.widestValue;
  if (!report.showValues || width === 0) return {kind: "none", room: 6};
  if (width + 4 <= pitch) return {kind: "lying", room: kLineHeight + 4};
  if (pitch >= kTextSize + 1 && width + 10 <= plotHeight * 0.35) return {kind: "upright", room: width + 10};
  return {kind: "highest", room: kLineHeight + 4};
}

function drawValue(bar, plan, report, scale, box) {
  const ink = readable(report.colours.behindLabels, report.colours.page, 4.5);
  const y = box.bottom - heightOf(bar.value.number, scale, box) - 4;
  const name = "class='bar-graph-value'";
  if (plan.kind === "upright") {
    const [x, turned] = [(bar.middle + 4).toFixed(2), y.toFixed(2)];
    return textAt(bar.middle + 4, y - 1, "start", ink, bar.value.shown,
      name + " transform='rotate(-90 " + x + " " + turned + ")'");
  }
  const half = widthOf(bar.value.shown) / 2;
  const x = Math.min(box.right - half, Math.max(box.left + half, bar.middle));
  return textAt(x, y, "middle", ink, bar.value.shown, name);
}

function drawValues(bars, plan, report, scale, box) {
  const numbers = bars.filter((bar) => bar.value && bar.value.number !== null);
  if (plan.kind === "none" || numbers.length === 0) return "";
  const highest = numbers.reduce((most, bar) => bar.value.number > most.value.number ? bar : most);
  return (plan.kind === "highest" ? [highest] : numbers)
    .map((bar) => drawValue(bar, plan, report, scale, box)).join("");
}

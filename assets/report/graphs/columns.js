// Columns: the days, several of them in one where a day has less than a pixel.

function highestBars(days) {
  const best = new Map();
  for (const bar of days.flatMap((day) => day.bars)) {
    const known = best.get(bar.series);
    if (!known || (bar.value && bar.value.number > (known.value ? known.value.number : -Infinity))) {
      best.set(bar.series, bar);
    }
  }
  return Array.from(best.values());
}

function makeColumn(days) {
  if (days.length === 1) return Object.assign({days}, days[0]);
  const label = [days[0].label.join(" ") + " \u2013", days[days.length - 1].label.join(" ")];
  return {days, label, bars: highestBars(days), untold: false};
}

function makeColumns(days, width) {
  const together = Math.max(1, Math.ceil(days.length / Math.max(1, width)));
  const columns = [];
  for (let i = 0; i < days.length; i += together) columns.push(makeColumn(days.slice(i, i + together)));
  return {together, list: columns, pitch: width / Math.max(1, columns.length)};
}

// The properties of a graph, read once: days, values, series.

const kMostChannels = 500;  // what a page can hold; a cell of nothing but separators must not stop it
const kUntold = -1;  // the series of bars whose channel the report doesn't tell

// Behind the bar colour of the page, with which it makes ten. Any two of them stay apart for the three
// kinds of colour blindness too, the more so the earlier they come; light and dark take turns for print.
const kPalette = ["#14375E", "#D98200", "#7A1FD0", "#7785C1", "#8E3D06", "#0B7A75", "#DEA3E8",
  "#D6245C", "#FFE14D"];

// The report's texts leave out separators behind empty entries at their start, so that lists of
// different lengths belong together by their ends.
function fromEnd(list, index, count) {
  return list[list.length - count + index];
}

function readLabel(text) {
  return (text || "").split(/<BR\s*\/?>/i).map((line) => shorten(line.trim())).filter(Boolean);
}

function readDays(graph, notation) {
  const labels = listOf(graph.labels, ",");
  const groups = listOf(graph.values, ":");
  const count = Math.max(labels.length, groups.length);
  return Array.from({length: count}, (unused, i) => ({
    label: readLabel(fromEnd(labels, i, count)),
    values: listOf(fromEnd(groups, i, count), ";").slice(0, kMostChannels)
      .map((cell) => readValue(cell, notation)),
  }));
}

function readNames(graph, days) {
  const names = listOf(graph.channels, "^").slice(0, kMostChannels)
    .map((name) => shorten(name.trim()) || "(no name)");
  const largest = days.reduce((most, day) => Math.max(most, day.values.length), 0);
  return names.length > 0 || largest < 2 ? names : Array(largest).fill("(no name)");
}

// A group holds its values without gaps: with fewer or more values than channels nobody can tell which
// value is whose. Such bars are drawn, but never in the colour of a channel.
function assignSeries(days, names) {
  for (const day of days) {
    const told = names.length === 0 || day.values.length === names.length;
    day.bars = day.values.map((value, i) => ({value, series: told ? i : kUntold}));
    day.untold = !told && day.values.length > 0;
  }
}

function makeSeries(name, fill, colours) {
  return {name, fill, edge: readable(fill, colours.page, 4.5), solid: readable(fill, colours.page, 3)};
}

function readSeries(names, colours) {
  const palette = [colours.bar].concat(kPalette);
  return (names.length > 0 ? names : [""])
    .map((name, i) => makeSeries(name, palette[i % palette.length], colours));
}

function readReport(graph) {
  const notation = readNotation(graph);
  const colours = readColours(graph);
  const days = readDays(graph, notation);
  const names = readNames(graph, days);
  assignSeries(days, names);
  const values = days.flatMap((day) => day.values).filter((value) => value !== null);
  return {
    notation, colours, days, names,
    padding: Number(graph.graphPadding) || 0,
    showValues: Boolean(Number(graph.showValues)),
    legend: graph.legend ? shorten(String(graph.legend)) : "",
    series: readSeries(names, colours),
    untold: makeSeries("channel not known", colours.untold, colours),
    hasUntold: days.some((day) => day.untold),
    hasFigures: values.some((value) => value.number !== null),
    highest: values.reduce((most, value) => Math.max(most, value.number || 0), 0),
    whole: values.every((value) => value.decimals === 0),
    widestValue: widestNumber(values.filter((value) => value.number !== null).map((value) => value.shown)),
  };
}

function seriesOf(report, index) {
  return index === kUntold ? report.untold : report.series[index];
}

// Bar graphs of a report: BAR_GRAPH takes the texts of a report page, create() gives the graph as HTML.
//
// Labels, channel names and values come from outside. They stay text: every one passes escapeText on
// its way into HTML. The graph is drawn for the size of the window, and drawn anew when that changes.
(function () {
"use strict";

const kFontFamily = "Verdana, 'DejaVu Sans', Arial, sans-serif";
const kTextSize = 11;
const kLineHeight = 14;
const kTextGap = 8;           // between texts that stand side by side
const kLongestText = 100;     // characters; nobody reads more of a name, and a cell can be a megabyte
const kThinnestBar = 6;       // thinner bars side by side can't be told apart
const kThinnestEdge = 4;      // thinner bars have no edge line
const kMostChannels = 500;    // what a page can hold; a cell of nothing but separators must not stop it
const kWidestBar = 72;
const kLowestLane = 26;
const kLanesInTip = 10;
const kUntold = -1;           // the series of bars whose channel the report doesn't tell

// Behind the bar colour of the page, with which it makes ten. Any two of them stay apart for the three
// kinds of colour blindness too, the more so the earlier they come; light and dark take turns for print.
const kPalette = ["#14375E", "#D98200", "#7A1FD0", "#7785C1", "#8E3D06", "#0B7A75", "#DEA3E8",
  "#D6245C", "#FFE14D"];

// ---- Texts

function escapeText(text) {
  return String(text).replace(/[&<>"']/g, (mark) => "&#" + mark.charCodeAt(0) + ";");
}

function shorten(text) {
  return text.length <= kLongestText ? text : text.slice(0, kLongestText) + "\u2026";
}

function listOf(text, separator) {
  return text === undefined || text === "" ? [] : String(text).split(separator);
}

const pen = document.createElement("canvas").getContext("2d");
pen.font = kTextSize + "px " + kFontFamily;

function widthOf(text) {
  return pen.measureText(text).width;
}

function widestOf(texts) {
  return texts.reduce((widest, text) => Math.max(widest, widthOf(text)), 0);
}

// Digits are equally wide, so that numbers of one shape are measured once.
function widestNumber(texts) {
  return widestOf(Array.from(new Set(texts.map((text) => text.replace(/\d/g, "0")))));
}

function fitText(text, width) {
  if (widthOf(text) <= width) return text;
  let length = Math.min(text.length, kLongestText);
  while (length > 0 && widthOf(text.slice(0, length) + "\u2026") > width) --length;
  return text.slice(0, length) + "\u2026";
}

// ---- Colours

// Any CSS colour as three numbers from 0 to 255.
function channelsOf(colour) {
  pen.fillStyle = "#000000";
  pen.fillStyle = colour;
  return [1, 3, 5].map((at) => parseInt(String(pen.fillStyle).slice(at, at + 2), 16) || 0);
}

function luminance(channels) {
  const linear = channels.map((c) => c / 255)
    .map((c) => c <= 0.04045 ? c / 12.92 : Math.pow((c + 0.055) / 1.055, 2.4));
  return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2];
}

function contrast(one, other) {
  const [dark, light] = [luminance(one), luminance(other)].sort((a, b) => a - b);
  return (light + 0.05) / (dark + 0.05);
}

// Darkens a colour as far as the contrast with its background asks, and no further. Taking the same from
// red, green and blue keeps it lively.
function readable(colour, background, ratio) {
  const behind = channelsOf(background);
  let channels = channelsOf(colour);
  for (let i = 0; i < 43 && contrast(channels, behind) < ratio; ++i) {
    channels = channels.map((c) => Math.max(0, c - 6));
  }
  return "rgb(" + channels.map(Math.round).join(",") + ")";
}

function readColours(graph) {
  const bars = listOf(graph.barColor || "#C0D0C0,#80D080", ",");
  return {
    page: graph.graphBGColor || "white",
    bar: bars[bars.length - 1],
    untold: bars[0],
    behindBars: graph.barBGColor || "#D0F0D0",
    label: graph.labelColor || "white",
    behindLabels: graph.labelBGColor || "#333",
    legend: readable(graph.legendColor || "#00A000", graph.legendBGColor || "#D0F0D0", 4.5),
    behindLegend: graph.legendBGColor || "#D0F0D0",
  };
}

// ---- Numbers

function readNotation(graph) {
  return {
    header: graph.valueHeader || "",
    footer: graph.valueFooter || "",
    period: graph.periodCharacter || ".",
    // A region without groups gives the digit that stands in the separator's place.
    comma: /^\D/.test(graph.commaCharacter || "") ? graph.commaCharacter : "",
  };
}

// A last mark with other than three digits behind it begins the decimals. With three it groups, except
// in a percentage, which never grows so large, and where money has the point of the fixed notation.
function beginsDecimals(mark, digitsBehind, notation) {
  return digitsBehind !== 3 || notation.footer !== "" || (notation.header !== "" && mark === ".");
}

function splitNumber(digits, notation) {
  const parts = /^(.*)(\D)(\d+)$/.exec(digits);
  if (!parts || !beginsDecimals(parts[2], parts[3].length, notation)) {
    return {whole: digits.replace(/\D/g, ""), decimals: ""};
  }
  return {whole: parts[1].replace(/\D/g, ""), decimals: parts[3]};
}

function showNumber(sign, whole, decimals, notation) {
  const grouped = (whole || "0").replace(/\B(?=(\d{3})+$)/g, () => notation.comma);
  return sign + notation.header + grouped + (decimals && notation.period + decimals) + notation.footer;
}

// A cell as {number, decimals, shown}; null for an empty one. What isn't a number is shown as it stands
// and has no bar.
function readValue(cell, notation) {
  const text = cell.trim();
  if (text === "") return null;
  const found = text.length > 30 ? null : /^(-?)[,$\s]*((?:\d|[.,'\u2019\s](?=\d))+)$/.exec(text);
  const parts = found && splitNumber(found[2], notation);
  if (!parts || parts.whole.length > 15) return {number: null, decimals: 0, shown: shorten(text)};
  const number = Number(found[1] + (parts.whole || "0") + "." + (parts.decimals || "0"));
  return {number, decimals: parts.decimals.length,
    shown: showNumber(found[1], parts.whole, parts.decimals, notation)};
}

// ---- The report

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
    highest: values.reduce((most, value) => Math.max(most, value.number || 0), 0),
    whole: values.every((value) => value.decimals === 0),
    widestValue: widestNumber(values.filter((value) => value.number !== null).map((value) => value.shown)),
  };
}

function seriesOf(report, index) {
  return index === kUntold ? report.untold : report.series[index];
}

// ---- The scale

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

// ---- Columns: the days, several of them in one where a day has less than a pixel

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

// ---- Tips: rectangles with a text, a Tab before a number that belongs to the right

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

// ---- Shapes

function svg(width, height, zoom, content) {
  return "<svg xmlns='http://www.w3.org/2000/svg' width='" + width * zoom + "' height='" + height * zoom +
    "' viewBox='0 0 " + width + " " + height + "' style='display:block' font-size='" + kTextSize +
    "' font-family=\"" + kFontFamily + "\">" + content + "</svg>";
}

function rectangle(x, y, width, height, fill, more) {
  return "<rect x='" + x + "' y='" + y + "' width='" + Math.max(0, width) + "' height='" +
    Math.max(0, height) + "' fill='" + escapeText(fill) + "' " + (more || "") + "/>";
}

function textAt(x, y, anchor, fill, text, more) {
  return "<text x='" + x.toFixed(2) + "' y='" + y.toFixed(2) + "' text-anchor='" + anchor + "' fill='" +
    escapeText(fill) + "' " + (more || "") + ">" + escapeText(text) + "</text>";
}

// To whole pixels of the screen, so that edges are sharp and neighbours leave no seam.
function snap(x, size) {
  const pixels = size.zoom * (window.devicePixelRatio || 1);
  return Number((Math.round(x * pixels) / pixels).toFixed(3));
}

function heightOf(value, scale, box) {
  return Math.max(0, value) / scale.top * (box.bottom - box.top);
}

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

// ---- Values above the bars: lying where they fit, else upright, else the highest alone

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

// ---- The strip of labels under the bars

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

// ---- The legend

function legendEntries(report, notes) {
  const entries = report.legend ? [{name: report.legend}] : [];
  if (report.names.length > 0) entries.push(...report.series);
  if (report.names.length > 0 && report.hasUntold) entries.push(report.untold);
  return entries.concat(notes.map((name) => ({name})));
}

// Entries from left to right, line by line.
function flowLegend(entries, width) {
  let [x, line] = [8, 0];
  const places = entries.map((entry) => {
    const swatch = entry.fill ? 18 : 0;
    const name = fitText(entry.name, Math.max(40, entry.fill ? Math.min(220, width - 40) : width - 20));
    const wide = swatch + widthOf(name) + 2 * kTextGap;
    if (x > 8 && x + wide > width) [x, line] = [8, line + 1];
    const place = {entry, name, x, textX: x + swatch, line, wide};
    x += wide;
    return place;
  });
  return {places, height: entries.length > 0 ? (line + 1) * (kLineHeight + 4) + 6 : 0};
}

function drawLegend(legend, report, width) {
  const drawPlace = (place) => {
    const y = 4 + place.line * (kLineHeight + 4);
    const swatch = place.entry.fill ? rectangle(place.x + 0.5, y + 2.5, 11, 11, place.entry.fill,
      "class='bar-graph-swatch' stroke='" + place.entry.edge + "'" +
      (place.entry === report.untold ? " stroke-dasharray='3 2'" : "")) : "";
    return swatch + textAt(place.textX, y + 12, "start", report.colours.legend, place.name,
      "class='bar-graph-legend'");
  };
  return rectangle(0, 0, width, legend.height, report.colours.behindLegend) +
    legend.places.map(drawPlace).join("");
}

// What the legend had to cut is whole in a tip.
function legendTips(legend) {
  return legend.places.filter((place) => place.name !== place.entry.name).map((place) => ({
    x: place.x, y: 4 + place.line * (kLineHeight + 4), width: place.wide, height: kLineHeight + 4,
    text: place.entry.name}));
}

// ---- Graph: the bars of each day side by side, on one scale

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
      drawBaseline(report, box) + drawValues(bars, plan, report, scale, box)),
    tips: drawTips(columnTips(columns, report, room, () => true).concat(legendTips(legend)), plot),
    strip: drawStrip(strip, columns, report, box, size),
  };
}

// ---- Lanes: a row for each channel, where bars side by side would be too thin or too many

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
        drawLane(index, lists.get(index) || [], report, columns, scale, boxes[i])).join("")),
    tips: drawTips(laneTips(indexes, columns, report, boxes), plot),
    strip: drawStrip(strip, columns, report, boxes[0], size),
  };
}

// ---- The graph in the window

function drawGraph(report, size) {
  const drawn = needsLanes(report, size) ? drawLanes(report, size) : drawGroups(report, size);
  return "<div class='bar-graph-plot' style='position:relative'>" + drawn.plot + drawn.tips + "</div>" +
    "<div class='bar-graph-strip' style='position:sticky;bottom:0'>" + drawn.strip + "</div>";
}

// The size to draw for. Texts grow with a large window, so that a full screen reads from afar. A window
// may still be without a size when its page loads.
function sizeFor(width, height) {
  const zoom = Math.max(1, Math.min(1.5, width / 900, height / 500));
  return {width: Math.max(200, width) / zoom, height: Math.max(120, height) / zoom, zoom};
}

function drawnFor(width, height) {
  return [width, height, window.devicePixelRatio].join();
}

function refit(frame, report) {
  const wanted = drawnFor(frame.clientWidth, frame.clientHeight);
  if (!frame.isConnected || frame.dataset.drawnFor === wanted) return;
  frame.dataset.drawnFor = wanted;
  frame.innerHTML = drawGraph(report, sizeFor(frame.clientWidth, frame.clientHeight));
}

function moveFocus(event) {
  const tip = event.target.closest(".bar-graph-tip");
  const next = tip && {ArrowLeft: tip.previousElementSibling, ArrowRight: tip.nextElementSibling,
    Home: tip.parentNode.querySelector(".bar-graph-tip"), End: tip.parentNode.lastElementChild}[event.key];
  if (!next || !next.matches(".bar-graph-tip")) return;
  event.preventDefault();
  next.focus();
}

function followWindow(id, report) {
  const frame = document.getElementById(id);
  if (!frame) return;
  new ResizeObserver(() => window.requestAnimationFrame(() => refit(frame, report))).observe(frame);
  frame.addEventListener("keydown", moveFocus);
}

let created = 0;

class BarGraph {
  // The only kind of graph is "vBar", upright bars.
  constructor(kind) {
    this.kind = kind;
  }

  // Reads the properties as they are at this moment. What it returns may be written into a page that
  // is still loading, or set into one that has loaded.
  create() {
    const report = readReport(this);
    const id = "bar-graph-" + ++created;
    const edge = 1 + report.padding;
    const [width, height] = [window.innerWidth - 2 * edge, window.innerHeight - 2 * edge];
    window.setTimeout(() => followWindow(id, report), 0);
    return "<div id='" + id + "' class='bar-graph' data-drawn-for='" + drawnFor(width, height) +
      "' style='position:absolute;overflow:hidden auto;left:" + edge +
      "px;top:" + edge + "px;right:" + edge + "px;bottom:" + edge + "px;background:" +
      escapeText(report.colours.page) + "'>" + drawGraph(report, sizeFor(width, height)) + "</div>";
  }
}

window.BAR_GRAPH = BarGraph;
})();

// Colours of the page, made readable on their background.

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

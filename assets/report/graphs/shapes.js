// Pieces of a drawing.

function svg(width, height, zoom, content) {
  return "<svg aria-hidden='true' xmlns='http://www.w3.org/2000/svg' width='" + width * zoom + "' height='" + height * zoom +
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

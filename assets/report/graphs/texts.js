// Texts from outside: cut, escaped, measured.

const kFontFamily = "Verdana, 'DejaVu Sans', Arial, sans-serif";
const kTextSize = 11;
const kLineHeight = 14;
const kTextGap = 8;  // between texts that stand side by side
const kLongestText = 100;  // characters; nobody reads more of a name, and a cell can be a megabyte

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

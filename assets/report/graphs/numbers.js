// Values in the notation of the region.

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

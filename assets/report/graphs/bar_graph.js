// BAR_GRAPH, all that the page sees of this.

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
      escapeText(report.colours.page) + "'>" + drawGraph(report, sizeFor(width, height)) +
      "</div><div id='" + id + "-figures' style='" + kUnseen + "'></div>";
  }
}

window.BAR_GRAPH = BarGraph;

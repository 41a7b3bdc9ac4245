// The graph in its window: drawn for its size, and anew when that changes.

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
  document.getElementById(id + "-figures").innerHTML = figuresTable(report);
}

// Shows title texts in a tip of the page's own, under the mouse and for the keyboard.
//
// The text is set as text, never as HTML. A Tab in a line moves what follows to the right edge.
(function () {
"use strict";

const kDistance = 14;   // pixels from the pointer
const kEdge = 4;        // pixels that stay free at the window's edges

let tip = null;         // the element that shows the text, made at first use
let owner = null;       // the element whose title is shown
let ownersTitle = "";

function makeTip() {
  const made = document.createElement("div");
  made.className = "nice-title";
  made.setAttribute("role", "tooltip");
  made.id = "nice-title";
  return made;
}

function addCell(line, text, name) {
  const cell = document.createElement("span");
  cell.className = name;
  cell.textContent = text;
  line.appendChild(cell);
}

function addLine(text) {
  const line = document.createElement("div");
  const tab = text.indexOf("\t");
  addCell(line, tab < 0 ? text : text.slice(0, tab), tab < 0 ? "nice-title-line" : "nice-title-name");
  if (tab >= 0) addCell(line, text.slice(tab + 1), "nice-title-number");
  tip.appendChild(line);
}

function fill(text) {
  tip.textContent = "";
  text.split("\n").forEach(addLine);
}

// Beside the point; on its other side where the window ends, and never outside the window.
function clampBeside(point, length, limit) {
  const start = point + kDistance + length + kEdge <= limit ? point + kDistance
    : point - kDistance - length;
  return Math.max(kEdge, Math.min(start, limit - length - kEdge));
}

function placeAt(x, y) {
  const box = tip.getBoundingClientRect();
  tip.style.left = clampBeside(x, box.width, document.documentElement.clientWidth) + "px";
  tip.style.top = clampBeside(y, box.height, window.innerHeight) + "px";
}

// The engine would show the title too: it is put back when the tip goes.
function takeTitle(element) {
  owner = element;
  ownersTitle = element.getAttribute("title");
  element.removeAttribute("title");
  element.setAttribute("aria-describedby", "nice-title");
}

function hide() {
  if (owner) {
    owner.setAttribute("title", ownersTitle);
    owner.removeAttribute("aria-describedby");
  }
  owner = null;
  if (tip) tip.remove();
}

function show(element, x, y) {
  hide();
  takeTitle(element);
  tip = tip || makeTip();
  fill(ownersTitle);
  document.body.appendChild(tip);
  placeAt(x, y);
}

function titled(target) {
  return target instanceof Element ? target.closest("[title]:not([title=''])") : null;
}

function onEnter(event) {
  if (owner && owner.contains(event.target)) return;
  const element = titled(event.target);
  if (element) show(element, event.clientX, event.clientY);
  else hide();
}

function onMove(event) {
  if (owner && !owner.isConnected) hide();
  if (owner) placeAt(event.clientX, event.clientY);
}

function onFocus(event) {
  const element = titled(event.target);
  if (!element || element === owner) return;
  const box = element.getBoundingClientRect();
  show(element, box.left + box.width / 2, Math.max(box.top, 0) + 20);
}

document.addEventListener("mouseover", onEnter);
document.addEventListener("mousemove", onMove);
document.addEventListener("focusin", onFocus);
document.addEventListener("focusout", hide);
document.addEventListener("mouseleave", hide);
document.addEventListener("mousedown", hide);
// With a tip, the key means that alone.
document.addEventListener("keydown", (event) => {
  if (event.key !== "Escape" || !owner || !owner.isConnected) return;
  event.preventDefault();
  hide();
});
document.addEventListener("scroll", hide, true);
window.addEventListener("resize", hide);
window.addEventListener("blur", hide);
})();

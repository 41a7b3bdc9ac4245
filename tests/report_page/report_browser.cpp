#include "report_page/report_browser.h"

#include <QAccessible>
#include <QEventLoop>
#include <QFile>
#include <QTimer>
#include <fstream>

#include "reports/report_page.h"

namespace quillbox {
namespace {

// What tests ask of a drawn graph; boxes are in pixels of the window.
constexpr char kQueries[] = R"js(
const all = (name) => Array.from(document.querySelectorAll('.bar-graph-' + name));
const texts = (name) => all(name).map((one) => one.textContent);
const boxOf = (one) => one.getBoundingClientRect();
const middleOf = (one) => (boxOf(one).left + boxOf(one).right) / 2;
// Every bar as {series, left, right, height}, from left to right.
const bars = () => all('bars').flatMap((path) => {
  const graph = boxOf(path.ownerSVGElement);
  const zoom = graph.width / path.ownerSVGElement.viewBox.baseVal.width;
  return Array.from(path.getAttribute('d').matchAll(/M([\d.]+) ([\d.]+)V([\d.]+)H([\d.]+)V/g),
    ([, left, bottom, top, right]) => ({series: Number(path.dataset.series),
      left: graph.left + left * zoom, right: graph.left + right * zoom,
      height: (bottom - top) * zoom, bottom: graph.top + bottom * zoom}));
}).sort((a, b) => a.left - b.left);
const heights = () => bars().map((bar) => bar.height);
const sharesOf = (list) => list.map((one) => Math.round(1000 * one / Math.max(...list)));
const shares = () => sharesOf(heights());
const overlaps = (list) => list.filter((one, i) => list.slice(0, i).some((other) => {
  const [a, b] = [boxOf(one), boxOf(other)];
  return a.left < b.right - 0.5 && b.left < a.right - 0.5 && a.top < b.bottom - 1 && b.top < a.bottom - 1;
})).length;
const outside = (list) => list.filter((one) => boxOf(one).left < 0 || boxOf(one).right > innerWidth ||
  boxOf(one).top < 0 || boxOf(one).bottom > innerHeight).length;
const tips = () => all('tip').map((tip) => tip.title);
const point = (element, kind, x, y) => element.dispatchEvent(
  new MouseEvent(kind, {bubbles: true, clientX: x, clientY: y}));
)js";

}  // namespace

std::string DayLabels(int days) {
  constexpr const char* kNames[] = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                                    "Friday", "Saturday", "Sunday"};
  std::string labels;
  for (int day = 0; day < days; ++day) {
    labels += std::string(day > 0 ? "," : "") + kNames[day % 7] + "<BR>" +
              std::to_string(1 + day / 28 % 12) + "/" + std::to_string(1 + day % 28) + "/07";
  }
  return labels;
}

std::string ManyValues(int days, int channels) {
  std::string values;
  for (int i = 0; i < days * channels; ++i) {
    if (i > 0) values += i % channels == 0 ? ':' : ';';
    values += std::to_string(1 + (7 * (i / channels) + i % channels) % 50);
  }
  return values;
}

std::string ManyChannels(int channels) {
  std::string names = "Channel 1";
  for (int i = 2; i <= channels; ++i) names += "^Channel " + std::to_string(i);
  return names;
}

ReportBrowser::ReportBrowser(int width, int height) {
  for (const char* name : {"graphs.js", "NiceTitle.js", "NiceTitleAutoWidth.css"}) {
    QFile::copy(QString(QUILLBOX_REPORT_FILES "/") + name, folder_.filePath(name));
  }
  view_.resize(width, height);
  view_.show();
}

void ReportBrowser::Show(const ReportData& data, const char* title, const char* period,
                         const char* comma) {
  const QString path = folder_.filePath("Report.html");
  std::ofstream(path.toStdString()) << BuildReportPage(data, title, period, comma);
  QEventLoop loading;
  QObject::connect(&view_, &QWebEngineView::loadFinished, &loading, &QEventLoop::quit);
  view_.load(QUrl::fromLocalFile(path));
  loading.exec();
  WaitForLayout();
}

void ReportBrowser::Resize(int width, int height) {
  view_.resize(width, height);
  WaitForLayout();
}

std::string ReportBrowser::Ask(const std::string& expression) {
  std::string answer;
  QEventLoop asking;
  const QString script = QString("(() => {") + kQueries + "return String(" +
                         QString::fromStdString(expression) + ");})()";
  view_.page()->runJavaScript(script, [&](const QVariant& value) {
    answer = value.toString().toStdString();
    asking.quit();
  });
  asking.exec();
  return answer;
}

std::string ReportBrowser::CellsReadOut() {
  QAccessible::setActive(true);
  std::string cells;
  const std::function<void(QAccessibleInterface*)> collect = [&](QAccessibleInterface* one) {
    if (one == nullptr || !one->isValid()) return;
    const QAccessible::Role role = one->role();
    if (role == QAccessible::Cell || role == QAccessible::RowHeader ||
        role == QAccessible::ColumnHeader) {
      cells += one->text(QAccessible::Name).toStdString() + " ";
    }
    for (int i = 0; i < one->childCount(); ++i) collect(one->child(i));
  };
  for (int i = 0; i < 500 && cells.empty(); ++i) {
    QEventLoop pause;
    QTimer::singleShot(10, &pause, &QEventLoop::quit);
    pause.exec();
    collect(QAccessible::queryAccessibleInterface(&view_));
  }
  return cells;
}

// Until the page knows its size and has drawn for it.
void ReportBrowser::WaitForLayout() {
  const std::string wanted = std::to_string(view_.width()) + "x" + std::to_string(view_.height());
  const std::string drawn =
      "innerWidth + 'x' + innerHeight + Array.from(document.querySelectorAll('.bar-graph'))"
      ".filter((one) => one.dataset.drawnFor !== "
      "[one.clientWidth, one.clientHeight, devicePixelRatio].join()).map(() => ' not yet')";
  for (int i = 0; i < 500 && Ask(drawn) != wanted; ++i) {
    QEventLoop pause;
    QTimer::singleShot(10, &pause, &QEventLoop::quit);
    pause.exec();
  }
}

}  // namespace quillbox

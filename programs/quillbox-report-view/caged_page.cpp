#include "caged_page.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTimer>
#include <QWebEngineFullScreenRequest>
#include <QWebEngineScript>
#include <chrono>
#include <utility>

namespace quillbox {
namespace {

constexpr std::chrono::seconds kLongestWait{3};

// Whoever pastes into a spreadsheet pastes names that come from outside: none may become a formula.
constexpr char kFigures[] = R"js(
Array.from(document.querySelectorAll('.bar-graph-figures tr'), (row) =>
  Array.from(row.cells, (cell) => cell.textContent.replace(/\s+/g, ' ').trim()
    .replace(/^(?=[=+@]|-(?!\d|\$))/, "'")).join('\t') + '\n').join('').slice(0, 1 << 24))js";

}  // namespace

CagedPage::CagedPage(QWebEngineProfile& profile) : QWebEnginePage(&profile) {
  connect(this, &QWebEnginePage::loadFinished, this, [this] { Loaded(); });
  connect(this, &QWebEnginePage::featurePermissionRequested, this,
          [this](const QUrl& origin, Feature feature) {
            setFeaturePermission(origin, feature, PermissionDeniedByUser);
          });
  connect(this, &QWebEnginePage::fullScreenRequested, this,
          [](QWebEngineFullScreenRequest request) { request.reject(); });
}

void CagedPage::Navigate(const QUrl& address, std::function<void()> loaded) {
  loaded_ = std::move(loaded);
  body_.clear();
  loading_ = true;
  navigating_ = true;
  load(address);
}

void CagedPage::Loaded() {
  loading_ = false;
  PutBody();
  if (loaded_) std::exchange(loaded_, {})();
}

// One navigation for each that the program asked for; all that come by themselves are the page's.
bool CagedPage::acceptNavigationRequest(const QUrl& url, NavigationType, bool isMainFrame) {
  const bool wanted = isMainFrame && std::exchange(navigating_, false);
  return wanted && url.scheme() != "javascript";
}

void CagedPage::SetBody(const QString& html) {
  body_ = html;
  if (!loading_) return PutBody();
  QTimer::singleShot(kLongestWait, this, [this] { GiveUpPage(); });
}

// It may have no body by now, or a script that is never done.
void CagedPage::GiveUpPage() {
  if (!loading_ || body_.isEmpty()) return;
  const QString html = body_;
  Navigate(QUrl("about:blank"), std::exchange(loaded_, {}));
  body_ = html;
}

// JSON is the way in which a text becomes a script's text without meaning anything else. In a world
// of its own: the page's scripts may have changed what they can reach.
void CagedPage::PutBody() {
  if (body_.isEmpty()) return;
  const QByteArray text =
      QJsonDocument(QJsonArray{std::exchange(body_, {})}).toJson(QJsonDocument::Compact);
  // A report has a page without margins.
  runJavaScript("document.body.style.margin = '8px'; document.body.innerHTML = " +
                    QString::fromUtf8(text) + "[0]",
                QWebEngineScript::ApplicationWorld);
}

void CagedPage::AskFigures(std::function<void(const QString&)> take) {
  runJavaScript(kFigures, QWebEngineScript::ApplicationWorld,
                [take = std::move(take)](const QVariant& text) { take(text.toString()); });
}

}  // namespace quillbox

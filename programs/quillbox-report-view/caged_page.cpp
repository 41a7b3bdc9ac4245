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
// An empty page takes its time to come, and the end of the one before may be told first.
constexpr std::chrono::milliseconds kTryAgain{100};
constexpr int kMostTries = 50;

// JSON is the way in which a text becomes a script's text without meaning anything else. A report
// has a page without margins. Gives false where there is no body.
QString PuttingScript(const QString& html) {
  const QByteArray text = QJsonDocument(QJsonArray{html}).toJson(QJsonDocument::Compact);
  return "(() => { const body = document.body; if (!body) return false;"
         " body.style.margin = '8px'; body.innerHTML = " +
         QString::fromUtf8(text) + "[0]; return true; })()";
}

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
  tries_ = 0;
  if (!loading_) return PutBody();
  QTimer::singleShot(kLongestWait, this, [this] { GiveUpPage(); });
}

// It may have a script that is never done.
void CagedPage::GiveUpPage() {
  if (loading_ && !body_.isEmpty()) GiveWayToEmptyPage();
}

void CagedPage::GiveWayToEmptyPage() {
  const QString html = body_;
  Navigate(QUrl("about:blank"), std::exchange(loaded_, {}));
  body_ = html;
}

// Until it stands there. A page may have lost its body, also after it was loaded; then it gives way
// once, and while it does its end can be told before the empty page is there. In a world of its
// own: the page's scripts may have changed what they can reach.
void CagedPage::PutBody() {
  if (body_.isEmpty() || ++tries_ > kMostTries) return;
  const std::weak_ptr<int> alive = alive_;
  runJavaScript(PuttingScript(body_), QWebEngineScript::ApplicationWorld,
                [this, alive, html = body_](const QVariant& isPut) {
                  if (alive.expired() || html != body_ || !isPut.isValid()) return;
                  if (isPut.toBool()) {
                    body_.clear();
                  } else if (tries_ == 1) {
                    GiveWayToEmptyPage();
                  }
                });
  QTimer::singleShot(kTryAgain, this, [this] { PutBody(); });
}

void CagedPage::AskFigures(std::function<void(const QString&)> take) {
  runJavaScript(kFigures, QWebEngineScript::ApplicationWorld,
                [take = std::move(take)](const QVariant& text) { take(text.toString()); });
}

}  // namespace quillbox

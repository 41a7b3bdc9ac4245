#include "caged_page.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QWebEngineFullScreenRequest>
#include <QWebEngineScript>
#include <utility>

namespace quillbox {

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
  if (!body_.isEmpty()) SetBody(std::exchange(body_, {}));
  if (loaded_) std::exchange(loaded_, {})();
}

// One navigation for each that the program asked for; all that come by themselves are the page's.
bool CagedPage::acceptNavigationRequest(const QUrl& url, NavigationType, bool isMainFrame) {
  const bool wanted = isMainFrame && std::exchange(navigating_, false);
  return wanted && url.scheme() != "javascript";
}

// JSON is the way in which a text becomes a script's text without meaning anything else. In a world
// of its own: the page's scripts may have changed what they can reach.
void CagedPage::SetBody(const QString& html) {
  if (loading_) {
    body_ = html;
    return;
  }
  const QByteArray text = QJsonDocument(QJsonArray{html}).toJson(QJsonDocument::Compact);
  runJavaScript("document.body.innerHTML = " + QString::fromUtf8(text) + "[0]",
                QWebEngineScript::ApplicationWorld);
}

}  // namespace quillbox

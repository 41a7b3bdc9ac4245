#include "cage.h"

#include <QFile>
#include <QFileInfo>
#include <QFontInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTimer>
#include <QWebEngineDownloadRequest>
#include <QWebEngineFullScreenRequest>
#include <QWebEngineNotification>
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
#include <QWebEnginePermission>
#endif
#include <QWebEngineScript>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>
#include <chrono>
#include <utility>

#include "reports/report_page.h"

namespace quillbox {
namespace {

// No name is looked up and no address asked: whatever would go out goes to a proxy that isn't
// there. By itself the engine gives screen readers an empty page.
constexpr char kEngineFlags[] =
    " --host-resolver-rules=\"MAP * ~NOTFOUND\" --proxy-server=http://127.0.0.1:9"
    " --proxy-bypass-list=<-loopback> --dns-prefetch-disable --no-pings"
    " --force-webrtc-ip-handling-policy=disable_non_proxied_udp"
    " --disable-background-networking --disable-component-update --disable-domain-reliability"
    " --force-renderer-accessibility"
    " --disable-features=WebUSB,WebBluetooth,NetworkPrediction,DnsOverHttps";

constexpr char kScheme[] = "quillbox-report";
constexpr char kPage[] = "/Report.html";

// Of the page, which is in the code page, or of a file that it loads.
QByteArray TypeOf(const QString& path) {
  if (path == kPage) return "text/html;charset=windows-1252";
  return path.endsWith(".css") ? "text/css" : "text/javascript";
}

// A page that wants more than it shows: all of this is on by itself, or could be.
constexpr QWebEngineSettings::WebAttribute kOff[] = {
    QWebEngineSettings::LocalContentCanAccessFileUrls,
    QWebEngineSettings::LocalContentCanAccessRemoteUrls,
    QWebEngineSettings::JavascriptCanOpenWindows,
    QWebEngineSettings::JavascriptCanAccessClipboard,
    QWebEngineSettings::JavascriptCanPaste,
    QWebEngineSettings::LocalStorageEnabled,
    QWebEngineSettings::HyperlinkAuditingEnabled,
    QWebEngineSettings::PluginsEnabled,
    QWebEngineSettings::PdfViewerEnabled,
    QWebEngineSettings::FullScreenSupportEnabled,
    QWebEngineSettings::ScreenCaptureEnabled,
    QWebEngineSettings::WebGLEnabled,
    QWebEngineSettings::AutoLoadIconsForPage,
    QWebEngineSettings::DnsPrefetchEnabled,
    QWebEngineSettings::AllowRunningInsecureContent,
    QWebEngineSettings::AllowGeolocationOnInsecureOrigins,
    QWebEngineSettings::FocusOnNavigationEnabled};

}  // namespace

void PrepareEngine() {
  qputenv("QTWEBENGINE_CHROMIUM_FLAGS", qgetenv("QTWEBENGINE_CHROMIUM_FLAGS") + kEngineFlags);
  qunsetenv("QTWEBENGINE_REMOTE_DEBUGGING");
  QWebEngineUrlScheme scheme(kScheme);
  scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
  scheme.setFlags(QWebEngineUrlScheme::SecureScheme);
  QWebEngineUrlScheme::registerScheme(scheme);
}

QUrl PageAddress() {
  return QUrl(QString("%1://page%2").arg(kScheme, kPage));
}

QString FilesOfPage::FileAt(const QUrl& address) const {
  const QString path = address.path(QUrl::FullyDecoded);
  if (path == kPage) return page_;
  for (const std::string_view name : kPageFiles) {
    if (path == "/" + QString::fromLatin1(name)) return QFileInfo(page_).path() + path;
  }
  return {};
}

void FilesOfPage::requestStarted(QWebEngineUrlRequestJob* job) {
  auto* const file = new QFile(FileAt(job->requestUrl()), job);
  if (job->requestMethod() != "GET" || !file->open(QIODevice::ReadOnly)) {
    return job->fail(QWebEngineUrlRequestJob::UrlNotFound);
  }
  job->reply(TypeOf(job->requestUrl().path()), file);
}

void Interceptor::interceptRequest(QWebEngineUrlRequestInfo& request) {
  const QUrl url = request.requestUrl();
  request.block(url.scheme() != kScheme && url != QUrl("about:blank"));
}

void Restrict(QWebEngineProfile& profile, FilesOfPage& files, Interceptor& interceptor) {
  profile.installUrlSchemeHandler(kScheme, &files);
  profile.setUrlRequestInterceptor(&interceptor);
  profile.setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
  profile.setHttpCacheType(QWebEngineProfile::NoCache);
  profile.setSpellCheckEnabled(false);
  profile.setNotificationPresenter([](std::unique_ptr<QWebEngineNotification>) {});
  QObject::connect(&profile, &QWebEngineProfile::downloadRequested,
                   [](QWebEngineDownloadRequest* download) { download->cancel(); });
  for (const QWebEngineSettings::WebAttribute attribute : kOff) {
    profile.settings()->setAttribute(attribute, false);
  }
  // What a page doesn't say, and the font that its messages name where it is missing.
  profile.settings()->setFontFamily(QWebEngineSettings::StandardFont,
                                    QFontInfo(QFont("Verdana")).family());
  profile.settings()->setDefaultTextEncoding("windows-1252");
  profile.settings()->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
}

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

// Of the camera, the place, notifications and whatever else a page can ask for.
void RefusePermissions(QWebEnginePage& page) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
  QObject::connect(&page, &QWebEnginePage::permissionRequested, &page,
                   [](QWebEnginePermission permission) { permission.deny(); });
#else
  QObject::connect(&page, &QWebEnginePage::featurePermissionRequested, &page,
                   [&page](const QUrl& origin, QWebEnginePage::Feature feature) {
                     page.setFeaturePermission(origin, feature,
                                               QWebEnginePage::PermissionDeniedByUser);
                   });
#endif
}

}  // namespace

CagedPage::CagedPage(QWebEngineProfile& profile) : QWebEnginePage(&profile) {
  connect(this, &QWebEnginePage::loadFinished, this, [this] { Loaded(); });
  RefusePermissions(*this);
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

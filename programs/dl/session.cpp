#include "session.h"

#include <algorithm>
#include <new>
#include <optional>

#include "body_collector.h"
#include "request/web_address.h"
#include "system/server_trust.h"
#include "system/sockets.h"
#include "unpack/unpacker.h"

namespace quillbox {
namespace {

constexpr long kMostRedirects = 10;

// What libcurl's callbacks work on.
struct Exchange {
  const CurlLibrary& Curl;
  CURL* Handle;
  const ZlibLibrary& Zlib;
  const std::string& AuthorityFile;
  LastConnection& Last;
  BodyCollector Collector;
  std::optional<Unpacker> Unpacking = {};  // once the body begins
  bool ServerRefused = false;              // its certificate wasn't trusted

  bool Take(std::string_view piece) {
    if (!Unpacking) Unpacking.emplace(Zlib, CodingOfBody(Curl, Handle));
    return Collector.Arrived(piece.size()) &&
           Unpacking->Take(piece, [this](auto unpacked) { return Collector.Take(unpacked); });
  }
  bool Whole() const { return (!Unpacking || Unpacking->Whole()) && EndIsKnown(Curl, Handle); }
};

Exchange& ExchangeOf(void* data) {
  return *static_cast<Exchange*>(data);
}

std::size_t TakeBody(char* data, std::size_t, std::size_t size, void* exchange) {
  try {
    return ExchangeOf(exchange).Take({data, size}) ? size : CURL_WRITEFUNC_ERROR;
  } catch (const std::bad_alloc&) {  // must not pass through libcurl
    return CURL_WRITEFUNC_ERROR;
  }
}

std::size_t TakeHeader(char*, std::size_t, std::size_t size, void* exchange) {
  ExchangeOf(exchange).Collector.NoteProgress();
  return size;
}

// "host" of "host:443" and of "host".
std::string WithoutPort(const std::string& host) {
  const std::size_t cut = host.rfind(':');
  return cut == host.npos || host.ends_with(']') ? host : host.substr(0, cut);
}

bool IsTrusted(const Exchange& exchange) {
  const char* address = nullptr;
  curl_tlssessioninfo* tls = nullptr;
  exchange.Curl.easy_getinfo(exchange.Handle, CURLINFO_EFFECTIVE_URL, &address);
  exchange.Curl.easy_getinfo(exchange.Handle, CURLINFO_TLS_SSL_PTR, &tls);
  const auto parsed = ParseWebAddress(address == nullptr ? "" : address);
  if (!parsed) return false;
  return parsed->Protocol == Scheme::kHttp ||
         (tls != nullptr &&
          IsTrustedServer(tls->internals, WithoutPort(parsed->Host), exchange.AuthorityFile));
}

// After the handshake and before the first byte of the request: a server that isn't trusted learns
// nothing.
int CheckServer(void* data, char*, char*, int, int) {
  Exchange& exchange = ExchangeOf(data);
  exchange.ServerRefused = !IsTrusted(exchange);
  return exchange.ServerRefused ? CURL_PREREQFUNC_ABORT : CURL_PREREQFUNC_OK;
}

int SocketOpened(void* last, curl_socket_t socket, curlsocktype) {
  static_cast<LastConnection*>(last)->Socket = static_cast<int>(socket);
  return CURL_SOCKOPT_OK;
}

int SocketEnds(void* data, curl_socket_t socket) {
  LastConnection& last = *static_cast<LastConnection*>(data);
  if (last.Socket == static_cast<int>(socket)) {
    last.Ask();
    last.Socket = -1;
  }
  CloseSocket(static_cast<int>(socket));
  return 0;
}

int Watch(void* data, curl_off_t, curl_off_t received, curl_off_t, curl_off_t sent) {
  Exchange& exchange = ExchangeOf(data);
  exchange.Last.Ask();
  return exchange.Collector.StandsStill(received + sent) ? 1 : 0;
}

}  // namespace

void LastConnection::Ask() {
  Reached = Reached || (Socket >= 0 && IsConnected(Socket));
}

Session::Session(const CurlLibrary& curl, const Limits& limits, std::string authorityFile)
    : curl_(curl),
      zlib_(LoadZlib()),
      limits_(limits),
      authorityFile_(std::move(authorityFile)),
      end_(std::chrono::steady_clock::now() + limits.Total),
      handle_(curl.easy_init()),
      usable_(handle_ != nullptr) {
  // Turns cookies on for good. The name is forgotten before each exchange, so nothing is written; a
  // list of files to read, the other way to turn them on, is lost with each reset of the handle.
  Set(CURLOPT_COOKIEJAR, "");
}

Session::~Session() {
  if (handle_ != nullptr) curl_.easy_cleanup(handle_);
}

// An option that the loaded library doesn't know must not be missed in silence: most of them are
// here for safety.
template <typename Value>
void Session::Set(CURLoption option, Value value) {
  usable_ = usable_ && curl_.easy_setopt(handle_, option, value) == CURLE_OK;
}

// A library without such folders has none to be cleared.
void Session::ClearFolder(CURLoption option) {
  const CURLcode result = curl_.easy_setopt(handle_, option, static_cast<const char*>(nullptr));
  usable_ = usable_ && (result == CURLE_OK || result == CURLE_NOT_BUILT_IN);
}

void Session::SetSecurity() {
  Set(CURLOPT_SSL_VERIFYPEER, 1L);
  Set(CURLOPT_SSL_VERIFYHOST, 2L);
  Set(CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
  Set(CURLOPT_PROXY_SSL_VERIFYPEER, 1L);
  Set(CURLOPT_PROXY_SSL_VERIFYHOST, 2L);
  Set(CURLOPT_REDIR_PROTOCOLS_STR, "https");
  Set(CURLOPT_NETRC, static_cast<long>(CURL_NETRC_IGNORED));
  Set(CURLOPT_UNRESTRICTED_AUTH, 0L);
  Set(CURLOPT_DISALLOW_USERNAME_IN_URL, 1L);
  if (authorityFile_.empty()) return;
  // libcurl's own check then finds no addresses in certificates.
  if (ChecksServersItself()) Set(CURLOPT_SSL_VERIFYHOST, 0L);
  Set(CURLOPT_CAINFO, authorityFile_.c_str());
  Set(CURLOPT_PROXY_CAINFO, authorityFile_.c_str());
  ClearFolder(CURLOPT_CAPATH);
  ClearFolder(CURLOPT_PROXY_CAPATH);
}

std::chrono::milliseconds Session::TimeLeft() const {
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
      end_ - std::chrono::steady_clock::now());
  return std::max(left, std::chrono::milliseconds(0));
}

void Session::SetTimes() {
  // 0 would mean no limit.
  const auto inAll = std::max(TimeLeft(), std::chrono::milliseconds(1));
  const auto connect = std::clamp(limits_.Connect, std::chrono::milliseconds(1), inAll);
  Set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(connect.count()));
  Set(CURLOPT_TIMEOUT_MS, static_cast<long>(inAll.count()));
  Set(CURLOPT_NOSIGNAL, 1L);
  // A name server that doesn't answer must not hold up the end of the run.
  Set(CURLOPT_QUICK_EXIT, 1L);
}

void Session::SetCommon(const std::string& address) {
  // Keeps cookies and connections.
  if (handle_ != nullptr) curl_.easy_reset(handle_);
  Set(CURLOPT_URL, address.c_str());
  // libcurl's own unpacking doesn't notice a packed body that ends too early.
  if (zlib_.Loaded()) Set(CURLOPT_ACCEPT_ENCODING, "gzip, deflate");
  Set(CURLOPT_HTTP_CONTENT_DECODING, 0L);
  Set(CURLOPT_USERAGENT, "Quillbox");
  SetSecurity();
  SetTimes();
}

Answer Session::Get(const std::string& address, Allowed allowed) {
  SetCommon(address);
  Set(CURLOPT_PROTOCOLS_STR, allowed == Allowed::kHttpToo ? "https,http" : "https");
  Set(CURLOPT_FOLLOWLOCATION, 1L);
  Set(CURLOPT_MAXREDIRS, kMostRedirects);
  return Perform();
}

Answer Session::PostForm(const std::string& address, const std::string& form) {
  SetCommon(address);
  Set(CURLOPT_PROTOCOLS_STR, "https");
  Set(CURLOPT_FOLLOWLOCATION, 0L);
  Set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(form.size()));
  Set(CURLOPT_POSTFIELDS, form.c_str());
  return Perform();
}

Answer Session::GetWithToken(const std::string& address, const std::string& token) {
  SetCommon(address);
  Set(CURLOPT_PROTOCOLS_STR, "https");
  Set(CURLOPT_FOLLOWLOCATION, 0L);
  Set(CURLOPT_HTTPAUTH, static_cast<long>(CURLAUTH_BEARER));
  Set(CURLOPT_XOAUTH2_BEARER, token.c_str());
  return Perform();
}

Answer Session::Perform() {
  last_.Reached = false;
  Exchange exchange{curl_, handle_, zlib_, authorityFile_, last_, BodyCollector(limits_)};
  Set(CURLOPT_WRITEFUNCTION, &TakeBody);
  Set(CURLOPT_WRITEDATA, static_cast<void*>(&exchange));
  Set(CURLOPT_HEADERFUNCTION, &TakeHeader);
  Set(CURLOPT_HEADERDATA, static_cast<void*>(&exchange));
  Set(CURLOPT_XFERINFOFUNCTION, &Watch);
  Set(CURLOPT_XFERINFODATA, static_cast<void*>(&exchange));
  Set(CURLOPT_NOPROGRESS, 0L);
  Set(CURLOPT_SOCKOPTFUNCTION, &SocketOpened);
  Set(CURLOPT_SOCKOPTDATA, static_cast<void*>(&last_));
  Set(CURLOPT_CLOSESOCKETFUNCTION, &SocketEnds);
  Set(CURLOPT_CLOSESOCKETDATA, static_cast<void*>(&last_));
  if (ChecksServersItself()) {
    Set(CURLOPT_PREREQFUNCTION, &CheckServer);
    Set(CURLOPT_PREREQDATA, static_cast<void*>(&exchange));
  }
  Answer answer;
  answer.Outcome = Transfer::kNotSecure;
  if (!usable_) return answer;
  const CURLcode result = curl_.easy_perform(handle_);
  answer = Outcome(result);
  if (answer.Outcome == Transfer::kComplete && !exchange.Whole()) {
    answer.Outcome = Transfer::kNoAnswer;
  }
  if (exchange.ServerRefused) answer.Outcome = Transfer::kNotSecure;
  answer.Body = exchange.Collector.TakeBody();
  return answer;
}

Answer Session::Outcome(CURLcode result) const {
  const Connection connection{.Reached = last_.Reached || Figure<long>(CURLINFO_LOCAL_PORT) > 0,
                              .ProxyAnswer = Figure<long>(CURLINFO_HTTP_CONNECTCODE)};
  return {.Outcome = TransferOutcome(result, connection),
          .Status = Figure<long>(CURLINFO_RESPONSE_CODE),
          .ContentType = Text(CURLINFO_CONTENT_TYPE),
          .Address = Text(CURLINFO_EFFECTIVE_URL),
          .Redirect = Text(CURLINFO_REDIRECT_URL),
          .Body = {},
          .RetryAfter = std::chrono::seconds(Figure<curl_off_t>(CURLINFO_RETRY_AFTER))};
}

std::string Session::Text(CURLINFO what) const {
  const char* text = nullptr;
  const bool known = curl_.easy_getinfo(handle_, what, &text) == CURLE_OK && text != nullptr;
  return known ? text : "";
}

template <typename Number>
Number Session::Figure(CURLINFO what) const {
  Number figure = 0;
  return curl_.easy_getinfo(handle_, what, &figure) == CURLE_OK ? figure : 0;
}

}  // namespace quillbox

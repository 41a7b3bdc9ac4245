// Servers that want more than they should get.
#include <gmock/gmock.h>
#include <httplib.h>

#include <functional>
#include <mutex>
#include <thread>

#include "certificates/throwaway_authority.h"
#include "dl/support/dl_run.h"

namespace quillbox {
namespace {

constexpr std::size_t kMiB = std::size_t{1} << 20;
constexpr const char* kSignInPath = "/accounts/ServiceLoginAuth";

// A server of our own on a free port of the loopback interface, which notes what it is asked.
template <typename Server>
class Listening {
 public:
  template <typename... Arguments>
  explicit Listening(Arguments&&... arguments) : server_(std::forward<Arguments>(arguments)...) {
    port_ = server_.bind_to_any_port("127.0.0.1");
    server_.set_logger([this](const httplib::Request& request, const httplib::Response&) {
      const std::lock_guard lock(mutex_);
      requests_.push_back(request);
    });
  }
  ~Listening() {
    server_.stop();
    if (thread_.joinable()) thread_.join();
  }

  Server& Routes() { return server_; }
  void Listen() {
    thread_ = std::thread([this] { server_.listen_after_bind(); });
    while (!server_.is_running()) std::this_thread::yield();
  }
  std::string Host(const std::string& name) const { return name + ":" + std::to_string(port_); }
  std::vector<httplib::Request> Requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
  }

 private:
  Server server_;
  int port_ = 0;
  std::thread thread_;
  mutable std::mutex mutex_;
  std::vector<httplib::Request> requests_;
};

class HostileServer : public testing::Test {
 protected:
  HostileServer() {
    WriteWhole(authorityFile_, authority_.Pem());
    server_.Routes().Post(kSignInPath, [this](const auto&, auto& response) {
      response.set_header("Set-Cookie", "SID=1; Path=/; Secure");
      signedIn_(response);
    });
  }

  using Handler = httplib::Server::Handler;
  void At(const char* path, Handler handler) { server_.Routes().Get(path, std::move(handler)); }

  std::string Code(const std::string& request) {
    server_.Listen();
    run_.Run({request, authorityFile_});
    return run_.Log().value_or("no log");
  }
  std::string FetchSignedIn() {
    return Code(SignedIn(kEmail, kPassword, "https://" + server_.Host("localhost") + "/report"));
  }
  std::string FetchPlain() { return Code("https://" + server_.Host("localhost") + "/report"); }

  std::function<void(httplib::Response&)> signedIn_ = [](auto& response) {
    response.set_content("welcome", "text/plain");
  };
  DlRun run_;
  Folder folder_;
  const std::string authorityFile_ = folder_.Path("authority.pem");
  ThrowawayAuthority authority_{"test"};
  Certificate certificate_ = authority_.Issue("DNS:localhost,IP:127.0.0.1");
  Listening<httplib::SSLServer> server_{certificate_.Public.get(), certificate_.Key.get()};
};

TEST_F(HostileServer, TheFormIsNotSentOnToAnotherHost) {
  const std::string elsewhere = "https://" + server_.Host("127.0.0.1") + "/elsewhere";
  signedIn_ = [elsewhere](auto& response) { response.set_redirect(elsewhere, 307); };
  At("/elsewhere", [](const auto&, auto& response) { response.set_content("", "text/plain"); });
  At("/report", [](const auto&, auto& response) { response.set_content("r", "text/plain"); });
  EXPECT_EQ(FetchSignedIn(), "0");
  bool arrived = false;
  for (const httplib::Request& request : server_.Requests()) {
    if (request.path != "/elsewhere") continue;
    arrived = true;
    EXPECT_EQ(request.method, "GET");
    EXPECT_EQ(request.body, "");
    EXPECT_FALSE(request.has_header("Cookie")) << "the cookie belongs to the first host";
  }
  EXPECT_TRUE(arrived);
}

TEST_F(HostileServer, CookiesGoBackToTheirHost) {
  At("/report", [](const httplib::Request& request, auto& response) {
    response.set_content(request.get_header_value("Cookie"), "text/plain");
  });
  EXPECT_EQ(FetchSignedIn(), "0");
  EXPECT_EQ(run_.Data(), "SID=1");
}

TEST_F(HostileServer, NothingIsAskedOverHttp) {
  Listening<httplib::Server> open;
  open.Listen();
  const std::string address = "http://" + open.Host("localhost") + "/report";
  At("/report", [address](const auto&, auto& response) { response.set_redirect(address); });
  EXPECT_EQ(FetchSignedIn(), "2");
  EXPECT_THAT(open.Requests(), testing::IsEmpty());
  EXPECT_FALSE(run_.Data());
}

TEST_F(HostileServer, NothingIsAskedOverHttpAfterTheSignInEither) {
  Listening<httplib::Server> open;
  open.Listen();
  const std::string address = "http://" + open.Host("localhost") + "/welcome";
  signedIn_ = [address](auto& response) { response.set_redirect(address); };
  EXPECT_EQ(FetchSignedIn(), "2");
  EXPECT_THAT(open.Requests(), testing::IsEmpty());
}

TEST_F(HostileServer, RedirectsInACircleEnd) {
  At("/report", [](const auto&, auto& response) { response.set_redirect("/report"); });
  EXPECT_EQ(FetchPlain(), "2");
}

TEST_F(HostileServer, ARedirectToTheSignInIsARefusal) {
  At("/report", [](const auto&, auto& response) { response.set_redirect("/accounts/Login"); });
  At("/accounts/Login",
     [](const auto&, auto& response) { response.set_content("who are you?", "text/plain"); });
  EXPECT_EQ(FetchSignedIn(), "3");
}

void SendMegabytes(std::size_t count, httplib::Response& response) {
  response.set_chunked_content_provider("text/plain",
                                        [count](std::size_t offset, httplib::DataSink& sink) {
                                          const std::string piece(kMiB, 'x');
                                          if (offset >= count * kMiB) {
                                            sink.done();
                                            return true;
                                          }
                                          return sink.write(piece.data(), piece.size());
                                        });
}

TEST_F(HostileServer, ABodyThatFillsTheLimitIsTaken) {
  At("/report", [](const auto&, auto& response) { SendMegabytes(64, response); });
  EXPECT_EQ(FetchPlain(), "0");
  EXPECT_EQ(run_.Data().value_or("").size(), 64 * kMiB);
}

TEST_F(HostileServer, ABodyBeyondTheLimitIsRefused) {
  At("/report", [](const auto&, auto& response) { SendMegabytes(65, response); });
  EXPECT_EQ(FetchPlain(), "2");
  EXPECT_FALSE(run_.Data());
}

TEST_F(HostileServer, AnEmptyBodyIsASuccessWithAnEmptyFile) {
  At("/report", [](const auto&, auto& response) { response.set_content("", "text/plain"); });
  EXPECT_EQ(FetchSignedIn(), "0");
  EXPECT_EQ(run_.Data(), "");
}

TEST(PlainHttp, IsAskedWhenTheAddressSaysSo) {
  Listening<httplib::Server> open;
  open.Routes().Get("/version", [](const auto&, auto& response) {
    response.set_content("1.3.1\r\n", "text/plain");
  });
  open.Listen();
  const DlRun run;
  run.Run({"http://" + open.Host("127.0.0.1") + "/version"});
  EXPECT_EQ(run.Log(), "0");
  EXPECT_EQ(run.Data(), "1.3.1\r\n");
}

}  // namespace
}  // namespace quillbox

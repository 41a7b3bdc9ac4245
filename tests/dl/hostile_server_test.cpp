// Servers that are not what they say, or want more than they should get: nothing secret goes
// anywhere but to the host that was asked and has proved its name.
#include <gmock/gmock.h>
#include <openssl/ssl.h>

#include "dl/support/dl_run.h"
#include "dl/support/listening_server.h"

namespace quillbox {
namespace {

using std::chrono::hours;

constexpr const char* kGoodNames = "DNS:localhost,IP:127.0.0.1";

enum class Proof {
  kOfWish,
  kOfOtherAuthority,
  kUnknownToSystem,
  kOfAServer,
  kByOldProtocol,
  kNone
};

// The server that is asked, under the name "localhost".
struct HostileAnswer {
  const char* name;
  // As for Reply; {other} is a host that has proved its name but wasn't asked, {impostor} one that
  // can't prove it, {open} one that speaks http.
  const char* signInAnswer;
  const char* reportAnswer;
  const char* code;
  bool isProved = true;
  Proof proof = Proof::kOfWish;
  CertificateWish wish = {kGoodNames};
};

HostileAnswer Unproved(const char* name, const CertificateWish& wish,
                       Proof proof = Proof::kOfWish) {
  return {name, "200", "200", "4", false, proof, wish};
}

const HostileAnswer kUnproved[] = {
    Unproved("certificate of another authority", {kGoodNames}, Proof::kOfOtherAuthority),
    Unproved("certificate of an authority that the system doesn't know", {kGoodNames},
             Proof::kUnknownToSystem),
    Unproved("certificate for another name", {"DNS:elsewhere.test"}),
    Unproved("certificate for no name", {""}),
    Unproved("certificate for every name", {"DNS:*"}),
    Unproved("certificate for another address", {"IP:127.0.0.2"}),
    Unproved("expired certificate", {kGoodNames, hours(-48), hours(-24)}),
    Unproved("certificate of tomorrow", {kGoodNames, hours(24), hours(48)}),
    Unproved("a client's certificate", {.Names = kGoodNames, .Use = "clientAuth"}),
    Unproved("certificate signed by a server", {kGoodNames}, Proof::kOfAServer),
    Unproved("TLS 1.1", {kGoodNames}, Proof::kByOldProtocol),
    Unproved("no TLS at all", {kGoodNames}, Proof::kNone),
};

const HostileAnswer kProved[] = {
    {"all is well", "302\nLocation: /welcome", "200", "0"},
    {"form to another host, 302", "302\nLocation: {other}/x", "200", "0"},
    {"form to another host, 307", "307\nLocation: {other}/x", "200", "0"},
    {"form to another host, 308", "308\nLocation: {other}/x", "200", "0"},
    {"form to http", "307\nLocation: {open}/x", "200", "2"},
    {"form to an impostor", "307\nLocation: {impostor}/x", "200", "4"},
    {"form to a user's host", "307\nLocation: https://localhost@{host}/", "200", "1"},
    {"form to a file", "302\nLocation: file:///etc/hostname", "200", "2"},
    {"report to another host", "200", "302\nLocation: {other}/x", "0"},
    {"report to another host, no scheme", "200", "302\nLocation: //{host}/x", "0"},
    {"report to a host with backslashes", "200", "302\nLocation: \\\\{host}\\x", "0"},
    {"report to http", "200", "302\nLocation: {open}/x", "2"},
    {"report to an impostor", "200", "302\nLocation: {impostor}/x", "4"},
    {"report to a file", "200", "302\nLocation: file:///etc/hostname", "2"},
    {"report to ftp", "200", "302\nLocation: ftp://{host}/x", "2"},
    {"report in a circle", "200", "302\nLocation: /report", "2"},
    {"report to the sign-in", "200", "302\nLocation: /accounts/Login", "3"},
    {"asks for Basic", "200", "401\nWWW-Authenticate: Basic realm=\"x\"", "3"},
    {"names another service", "200", "200\nAlt-Svc: h2=\"{host}\"; ma=9", "0"},
    {"cookie for another host",
     "302\nLocation: {other}/x\nSet-Cookie: B=canary-cookie; Domain=127.0.0.1", "200", "0"},
};

void PrintTo(const HostileAnswer& c, std::ostream* out) {
  *out << c.name;
}

class HostileServer : public testing::TestWithParam<HostileAnswer> {
 protected:
  std::unique_ptr<httplib::Server> ServerOf(const HostileAnswer& c) const {
    if (c.proof == Proof::kNone) {
      auto plain = std::make_unique<httplib::Server>();
      plain->set_read_timeout(std::chrono::milliseconds(200));  // for a greeting that it can't read
      return plain;
    }
    return NewSecureServer([&](SSL_CTX& context) {
      ThrowawayAuthority signer = authority_;
      if (c.proof == Proof::kOfOtherAuthority) signer = ThrowawayAuthority("test");
      if (c.proof == Proof::kOfAServer) signer = ThrowawayAuthority(good_);
      const Certificate certificate = signer.Issue(c.wish);
      if (c.proof == Proof::kByOldProtocol) {
        SSL_CTX_set_security_level(&context, 0);
        SSL_CTX_set_min_proto_version(&context, TLS1_1_VERSION);
        SSL_CTX_set_max_proto_version(&context, TLS1_1_VERSION);
      }
      if (c.proof == Proof::kOfAServer) SSL_CTX_add1_chain_cert(&context, good_.Public.get());
      return SSL_CTX_use_certificate(&context, certificate.Public.get()) == 1 &&
             SSL_CTX_use_PrivateKey(&context, certificate.Key.get()) == 1;
    });
  }

  std::unique_ptr<httplib::Server> Asked(const HostileAnswer& c) const {
    auto server = ServerOf(c);
    server->Post("/accounts/ServiceLoginAuth", [this, c](const auto&, auto& response) {
      response.headers.emplace("Set-Cookie", "SID=canary-cookie; Path=/; Secure");
      Reply(c.signInAnswer, places_, response);
    });
    server->Get("/report", [this, c](const auto&, auto& response) {
      Reply(c.reportAnswer, places_, response);
    });
    return AnswerAll(std::move(server));
  }

  const ThrowawayAuthority authority_{"test"};
  const Certificate good_ = authority_.Issue({kGoodNames});
  const ListeningServer other_{AnswerAll(SecureServer(good_))};
  const ListeningServer impostor_{
      AnswerAll(SecureServer(ThrowawayAuthority("test").Issue({"DNS:localhost"})))};
  const ListeningServer open_{AnswerAll(std::make_unique<httplib::Server>())};
  const std::vector<std::pair<std::string, std::string>> places_ = {
      {"{host}", other_.Host("127.0.0.1")},
      {"{other}", "https://" + other_.Host("127.0.0.1")},
      {"{impostor}", "https://" + impostor_.Host("localhost")},
      {"{open}", "http://" + open_.Host("localhost")}};
};

TEST_P(HostileServer, GetsNoSecretOfAnother) {
  const HostileAnswer& c = GetParam();
  const ListeningServer asked(Asked(c));
  const DlRun run;
  run.Folder.Put("authority.pem", authority_.Pem());
  const std::string address = "https://" + asked.Host("localhost") + "/report";
  const bool isNamed = c.proof != Proof::kUnknownToSystem;
  ChildProcess dl(run.Start(
      {SignedIn(kEmail, kPassword, address), isNamed ? run.Folder.File("authority.pem") : ""}));
  // A library of Wine's own says a line of its own.
  EXPECT_THAT(dl.ReadAll(),
              testing::AnyOf("", testing::MatchesRegex(InWine() ? "GnuTLS error: [^\n]*\n" : "")));
  EXPECT_EQ(dl.Wait(), 0);
  // Windows sees at once that no TLS is spoken; Wine waits for more of it.
  const bool waits = InWine() && c.proof == Proof::kNone;
  EXPECT_EQ(run.Log(), waits ? "2" : c.code);
  EXPECT_EQ(run.Data().has_value(), std::string(c.code) == "0");

  EXPECT_EQ(asked.Heard(kPassword), c.isProved);
  EXPECT_EQ(asked.Heard("User-Agent: Quillbox"), c.isProved);
  EXPECT_THAT(impostor_.Requests(), testing::IsEmpty());
  EXPECT_THAT(open_.Requests(), testing::IsEmpty());
  for (const char* secret : {kPassword, "someone", "canary-cookie"}) {
    EXPECT_FALSE(other_.Heard(secret)) << secret;
    EXPECT_FALSE(!c.isProved && asked.Heard(secret)) << secret;
  }
  const std::string name = c.name;
  EXPECT_EQ(!other_.Requests().empty(),
            name.find("to another host") != name.npos || name == "cookie for another host");
}

INSTANTIATE_TEST_SUITE_P(Unproved, HostileServer, testing::ValuesIn(kUnproved));
INSTANTIATE_TEST_SUITE_P(Proved, HostileServer, testing::ValuesIn(kProved));

}  // namespace
}  // namespace quillbox

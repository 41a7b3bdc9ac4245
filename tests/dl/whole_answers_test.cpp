// Answers that are not known to be whole, and servers that would keep a run for ever.
#include <gmock/gmock.h>

#include "dl/support/dl_run.h"
#include "dl/support/grants.h"
#include "dl/support/raw_server.h"

namespace quillbox {
namespace {

using namespace std::string_literals;

const ThrowawayAuthority& Authority() {
  static const ThrowawayAuthority authority("test");
  return authority;
}

using Context = std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)>;

Context ServerContext() {
  Context context(SSL_CTX_new(TLS_server_method()), &SSL_CTX_free);
  const Certificate certificate = Authority().Issue({"DNS:localhost"});
  SSL_CTX_use_certificate(context.get(), certificate.Public.get());
  SSL_CTX_use_PrivateKey(context.get(), certificate.Key.get());
  return context;
}

TEST(Answers, AreTakenOnlyWhenTheirEndIsKnown) {
  struct Case {
    const char* head;  // behind the status
    const char* body;
    const char* secure;  // codes
    const char* plain;
  };
  const Case kCases[] = {
      {"Content-Length: 1", "x", "0", "0"},
      {"Content-Length: 0001", "x", "0", "0"},
      {"Content-Length: 1\r\nContent-Length: 1", "x", "0", "0"},
      {"Transfer-Encoding: chunked", "1\r\nx\r\n0\r\n\r\n", "0", "0"},
      {"Transfer-Encoding: chunked", "1\r\nx\r\n", "2", "2"},
      {"Transfer-Encoding: chunked\r\nContent-Length: 9", "1\r\nx\r\n0\r\n\r\n", "0", "0"},
      {"Content-Length: 1\r\nTransfer-Encoding: chunked", "1\r\nx\r\n", "2", "2"},
      {"Transfer-Encoding: identity", "x", "2", "2"},
      {"Transfer-Encoding: identity\r\nContent-Length: 2", "x", "2", "2"},
      {"Content-Length: 2", "x", "2", "2"},
      {"Content-Length: 18446744073709551617", "x", "2", "2"},
      {"Content-Length: 9223372036854775808", "x", "2", "2"},
      {"Content-Length: 99999999999999999999999", "x", "2", "2"},
      {"Content-Length: -1", "x", "2", "2"},
      {"Content-Length: +1", "x", "2", "2"},
      {"Content-Length: 0x1", "x", "2", "2"},
      {"Content-Length: 1 1", "x", "2", "2"},
      {"Content-Length: one", "x", "2", "2"},
      {"Content-Length:", "x", "2", "2"},
      {"Content-Length: 1\r\nContent-Length: 2", "x", "2", "2"},
      {"Content-Length: 1, 2", "x", "2", "2"},
      {"Connection: close", "x", "2", "2"},
  };
  const Context context = ServerContext();
  for (const bool secure : {true, false}) {
    const Case* asked = nullptr;
    const RawServer server(secure ? context.get() : nullptr, [&](const RawConnection& visitor) {
      visitor.Read();
      visitor.Write("HTTP/1.1 200 OK\r\n"s + asked->head + "\r\n\r\n" + asked->body);
    });
    for (const Case& c : kCases) {
      asked = &c;
      const DlRun run;
      run.Folder.Put("authority.pem", Authority().Pem());
      const std::string address = (secure ? "https://" : "http://") + server.Host() + "/x";
      EXPECT_EQ(run.CodeOf({address, run.Folder.File("authority.pem")}),
                secure ? c.secure : c.plain)
          << c.head << (secure ? ", secure" : ", plain");
    }
  }
}

int ChooseHttp2(SSL*, const unsigned char** chosen, unsigned char* size, const unsigned char*,
                unsigned, void*) {
  *chosen = reinterpret_cast<const unsigned char*>("h2");
  *size = 2;
  return SSL_TLSEXT_ERR_OK;
}

// Frames of HTTP/2: length, kind, flags, number of the stream.
const std::string kSettings = "\0\0\0\x04\0\0\0\0\0"s;
const std::string kStatus200 = "\0\0\x01\x01\x04\0\0\0\x01\x88"s;
const std::string kEmptyData = "\0\0\0\0\0\0\0\0\x01"s;

// Empty pieces of a body without an end, for as long as somebody takes them. libcurl takes them
// in one go, without a look at its limits.
void Flood(const RawConnection& visitor) {
  std::string pieces;
  for (int i = 0; i < 1000; ++i) pieces += kEmptyData;
  visitor.Read();
  visitor.Write(kSettings);
  visitor.Read();
  bool taken = visitor.Write(kStatus200);
  while (taken) taken = visitor.Write(pieces);
}

TEST(Runs, EndAtTheirLimitWhateverALibraryDoes) {
  const Context context = ServerContext();
  SSL_CTX_set_alpn_select_cb(context.get(), &ChooseHttp2, nullptr);
  const RawServer server(context.get(), &Flood);
  const DlRun run;
  run.Folder.Put("authority.pem", Authority().Pem());
  const std::string authority = run.Folder.File("authority.pem");
  const std::string limits = "700,700,700";
  const GrantHome home;
  std::vector<std::string> environment = home.WholeEnvironment(server.Host(), authority);
  environment.back() = "QUILLBOX_DL_LIMITS=" + limits;

  EXPECT_EQ(run.CodeOf({"https://" + server.Host() + "/x", authority, limits}), "2");
  EXPECT_FALSE(run.Data());
  for (const char* const secret : {kPassword, kGrantName}) {
    const Checked checked = Check(secret, environment);
    EXPECT_EQ(checked.Status, 2) << secret;
    EXPECT_THAT(checked.Said, testing::AnyOf(testing::HasSubstr("No answer came in time."),
                                             testing::HasSubstr("No usable answer came")));
  }
}

}  // namespace
}  // namespace quillbox

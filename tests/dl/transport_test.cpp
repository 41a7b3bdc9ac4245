// What lies between address and answer: address families, protocol versions, encodings, sizes.
#include <gmock/gmock.h>
#include <openssl/pem.h>
#include <zlib.h>

#include "dl/support/demo_service.h"
#include "dl/support/listening_program.h"
#include "dl/support/listening_server.h"

namespace quillbox {
namespace {

using namespace std::string_literals;

constexpr std::size_t kMiB = std::size_t{1} << 20;

TEST(Transport, AddressesOfIpv6AreServed) {
  if (ReadWhole("/proc/net/if_inet6").value_or("").empty())
    GTEST_SKIP() << "this machine has no IPv6";
  const DemoService service({"--listen", "::1"});
  ASSERT_THAT(service.Host(), testing::StartsWith("[::1]:"));
  const DlRun run;
  EXPECT_EQ(run.CodeOf(service.Signed()), "0");
  EXPECT_THAT(run.Data().value_or(""), testing::StartsWith("Date\t"));
}

// Certificate and key together, as PEM.
void WritePem(const Certificate& certificate, const std::string& path) {
  std::FILE* const file = std::fopen(path.c_str(), "w");
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(PEM_write_X509(file, certificate.Public.get()), 1);
  EXPECT_EQ(
      PEM_write_PrivateKey(file, certificate.Key.get(), nullptr, nullptr, 0, nullptr, nullptr), 1);
  std::fclose(file);
}

TEST(Transport, Http2IsSpokenWhereTheServerOffersIt) {
  const std::string program = QUILLBOX_NGHTTPD_PROGRAM;
  if (program.empty()) GTEST_SKIP() << "nghttpd is not installed";
  if (InWine()) GTEST_SKIP() << "the libcurl in it speaks no HTTP/2";
  const DlRun run;
  const TemporaryFolder& folder = run.Folder;
  const std::string pem = folder.File("server.pem");
  const ThrowawayAuthority authority("test");
  folder.Put("authority.pem", authority.Pem());
  WritePem(authority.Issue({"DNS:localhost"}), pem);
  std::filesystem::create_directories(folder.File("accounts"));
  folder.Put("accounts/ServiceLoginAuth", "signed in");
  folder.Put("report", "a\tb\n");
  ListeningProgram server([&](const std::string& port) {
    return std::vector{program, "-v"s, "-a"s, "127.0.0.1"s, "-d"s, folder.Path(), port, pem, pem};
  });
  const std::string address = "https://localhost:" + server.Port() + "/report";
  EXPECT_EQ(run.CodeOf({SignedIn(kEmail, kPassword, address), folder.File("authority.pem")}), "0");
  EXPECT_EQ(run.Data(), "a\tb\n");
  const std::string log = server.EndAndRead();
  EXPECT_THAT(log, testing::HasSubstr(":method: POST"));
  EXPECT_THAT(log, testing::HasSubstr(":path: /report"));
  EXPECT_THAT(log, testing::Not(testing::HasSubstr("[id=3]")))
      << "one connection carries the whole run; the first was the test's own";
}

constexpr int kGzip = 16 + MAX_WBITS;
constexpr int kZlib = MAX_WBITS;
constexpr int kBare = -MAX_WBITS;

std::string Packed(std::string text, int format, int level = 1) {
  z_stream stream{};
  deflateInit2(&stream, level, Z_DEFLATED, format, 8, Z_DEFAULT_STRATEGY);
  std::string packed(deflateBound(&stream, text.size()), '\0');
  stream.next_in = reinterpret_cast<Bytef*>(text.data());
  stream.avail_in = static_cast<uInt>(text.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  EXPECT_EQ(deflate(&stream, Z_FINISH), Z_STREAM_END);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return packed;
}

// Some 64 KiB even when packed, so that it comes in several pieces.
std::string Numbers() {
  std::string numbers;
  for (unsigned i = 0; i < 30'000; ++i) numbers += std::to_string(i * 2'654'435'761U) + "\n";
  return numbers;
}

// `body` with one byte of its last ones, counted from its end, turned into another.
std::string Damaged(std::string body, std::size_t fromEnd) {
  body[body.size() - fromEnd] ^= 1;
  return body;
}

std::string Cut(const std::string& body, std::size_t fromEnd) {
  return body.substr(0, body.size() - fromEnd);
}

std::string Repeated(const std::string& text, std::size_t times) {
  std::string all;
  while (times-- > 0) all += text;
  return all;
}

// The most memory that a process has held until its end, in KiB.
long PeakOf(pid_t process) {
  const std::string label = "VmHWM:";
  for (long peak = 0;; std::this_thread::sleep_for(std::chrono::milliseconds(1))) {
    const auto status = ReadWhole("/proc/" + std::to_string(process) + "/status").value_or("");
    const std::size_t at = status.find(label);
    if (at == std::string::npos) return peak;
    peak = std::stol(status.substr(at + label.size()));
  }
}

// The test's own server, secure, under the name of "localhost".
class Bodies : public testing::Test {
 protected:
  using Answers = std::function<void(const httplib::Request&, httplib::Response&)>;

  // `answers` GET requests; their paths end in the number of the case.
  void Serve(const Answers& answers) {
    auto routes = SecureServer(authority_.Issue({"DNS:localhost"}));
    routes->Get("/(.*)", answers);
    server_ = std::make_unique<ListeningServer>(std::move(routes));
    run_.Folder.Put("authority.pem", authority_.Pem());
  }

  // As Reply does, but the server doesn't pack the body by itself.
  static void ReplyAsItIs(const std::string& head, const std::string& body,
                          httplib::Response& response) {
    Reply(head, {}, response);
    response.set_content(body, "application/octet-stream");
  }

  DlStart Start(const std::string& path) const {
    return {"https://" + server_->Host("localhost") + path, run_.Folder.File("authority.pem")};
  }

  const ThrowawayAuthority authority_{"test"};
  const DlRun run_;
  std::unique_ptr<ListeningServer> server_;
};

TEST_F(Bodies, AreUnpackedAndTakenWholeUpTo64MiB) {
  struct Case {
    const char* name;
    std::string head;
    std::string body;
    std::optional<std::string> data;  // nothing: no answer
  };
  const std::string gzipped = "Content-Encoding: gzip\n";
  const std::string deflated = "content-encoding: Deflate\n";
  const std::string text = Numbers();
  const std::string full(64 * kMiB, ' ');
  const std::string mebibyte = Packed(std::string(kMiB, ' '), kGzip);
  const std::string gzippedFull = Repeated(mebibyte, 64);  // members unpack to one text
  const std::string gzip = Packed(text, kGzip);
  const std::string zlib = Packed(text, kZlib);
  const std::string bare = Packed(text, kBare);
  const std::string none = Packed("", kGzip);
  const Case kCases[] = {
      {"nothing", "", "", ""},
      {"as much as may be", "", full, full},
      {"a byte more", "", full + ' ', {}},
      {"gzip", gzipped, gzip, text},
      {"gzip by its old name", "Content-Encoding: X-GZIP\n", gzip, text},
      {"gzip beside no coding", "Content-Encoding: identity ,\tgzip\n", gzip, text},
      {"no coding said", "Content-Encoding: identity\n", gzip, gzip},
      {"three members", gzipped, gzip + none + gzip, text + text},
      {"nothing, said to be gzip", gzipped, "", ""},
      {"deflate", deflated, zlib, text},
      {"deflate without packing", deflated, Packed(text, kZlib, 0), text},
      {"bare deflate", deflated, bare, text},
      {"bare deflate without packing", deflated, Packed(text, kBare, 0), text},
      {"as much as may be, packed", gzipped, gzippedFull, full},
      {"a byte more, packed", gzipped, gzippedFull + Packed(" ", kGzip), {}},
      {"a bomb", gzipped, Repeated(mebibyte, 150), {}},
      {"longer packed than unpacked", gzipped, Packed(full, kGzip, 0), {}},
      {"gzip cut in its head", gzipped, gzip.substr(0, 1), {}},
      {"gzip cut before its check sum", gzipped, Cut(gzip, 8), {}},
      {"gzip without its last byte", gzipped, Cut(gzip, 1), {}},
      {"a second member without its last byte", gzipped, gzip + Cut(gzip, 1), {}},
      {"a second member cut", gzipped, gzip + Cut(gzip, 1), {}},
      {"a second member's first byte", gzipped, gzip + gzip[0], {}},
      {"deflate cut in half", deflated, Cut(zlib, zlib.size() / 2), {}},
      {"deflate without its last byte", deflated, Cut(zlib, 1), {}},
      {"bare deflate without its last byte", deflated, Cut(bare, 1), {}},
      {"gzip with a wrong check sum", gzipped, Damaged(gzip, 8), {}},
      {"gzip with a wrong length", gzipped, Damaged(gzip, 1), {}},
      {"deflate with a wrong check sum", deflated, Damaged(zlib, 1), {}},
      {"zeros behind gzip", gzipped, gzip + std::string(9, '\0'), {}},
      {"deflate twice", deflated, zlib + zlib, {}},
      {"more behind bare deflate", deflated, bare + 'x', {}},
      {"not packed at all", gzipped, "plain", {}},
      {"gzip, said to be deflate", deflated, gzip, {}},
      {"an unknown coding", "Content-Encoding: br\n", gzip, {}},
      {"gzip with a parameter", "Content-Encoding: gzip;q=1\n", gzip, {}},
      {"packed twice", "Content-Encoding: gzip, gzip\n", Packed(gzip, kGzip), {}},
      {"packed twice, said in two lines", gzipped + gzipped, Packed(gzip, kGzip), {}},
  };
  Serve([&](const httplib::Request& request, httplib::Response& response) {
    const Case& c = kCases[std::stoi(request.matches[1])];
    ReplyAsItIs("200\n" + c.head, c.body, response);
  });
  for (std::size_t i = 0; i < std::size(kCases); ++i) {
    const Case& c = kCases[i];
    ChildProcess dl(run_.Start(Start("/" + std::to_string(i))));
    EXPECT_LT(PeakOf(dl.Id()), 110'000) << c.name;
    dl.Wait();
    EXPECT_EQ(run_.Log(), c.data ? "0" : "2") << c.name;
    EXPECT_TRUE(run_.Data() == c.data) << c.name << ": " << run_.Data().value_or("").size();
  }
  EXPECT_TRUE(server_->Heard("Accept-Encoding: gzip, deflate")) << "packed answers are asked for";
}

TEST_F(Bodies, ARedirectDoesNotSayHowItsTargetIsPacked) {
  struct Case {
    const char *redirect, *target;
    std::string body;
  };
  const std::string text = "a\tb\n";
  const Case kCases[] = {
      {"br", "", text},
      {"gzip", "", text},
      {"", "gzip", Packed(text, kGzip)},
      {"gzip", "deflate", Packed(text, kZlib)},
  };
  Serve([&](const httplib::Request& request, httplib::Response& response) {
    const Case& c = kCases[request.path.back() - '0'];
    const std::string coding = "Content-Encoding: ";
    if (request.path.starts_with("/to")) {
      ReplyAsItIs("200\n" + coding + c.target, c.body, response);
    } else {
      ReplyAsItIs("302\nLocation: /to/" + request.path.substr(1) + "\n" + coding + c.redirect,
                  "elsewhere", response);
    }
  });
  for (std::size_t i = 0; i < std::size(kCases); ++i) {
    EXPECT_EQ(run_.CodeOf(Start("/" + std::to_string(i))), "0");
    EXPECT_EQ(run_.Data(), text) << kCases[i].redirect << " to " << kCases[i].target;
  }
}

TEST(Transport, PlainHttpIsSpokenWhenTheAddressSaysSo) {
  auto routes = std::make_unique<httplib::Server>();
  routes->Get("/version",
              [](const auto&, auto& response) { response.set_content("1.3.1\r\n", "text/plain"); });
  const ListeningServer open(std::move(routes));
  const DlRun run;
  EXPECT_EQ(run.CodeOf({"http://" + open.Host("127.0.0.1") + "/version"}), "0");
  EXPECT_EQ(run.Data(), "1.3.1\r\n");
}

}  // namespace
}  // namespace quillbox

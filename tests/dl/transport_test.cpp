// What lies between address and answer: address families, protocol versions, encodings, sizes.
#include <gmock/gmock.h>
#include <netinet/in.h>
#include <openssl/pem.h>
#include <sys/socket.h>
#include <unistd.h>
#include <zlib.h>

#include "dl/support/demo_service.h"
#include "dl/support/listening_program.h"
#include "dl/support/listening_server.h"

namespace quillbox {
namespace {

using namespace std::string_literals;

constexpr std::size_t kMiB = std::size_t{1} << 20;

bool HasIpv6() {
  sockaddr_in6 address{};
  address.sin6_family = AF_INET6;
  address.sin6_addr = in6addr_loopback;
  const int socket = ::socket(AF_INET6, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const bool bound =
      ::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  ::close(socket);
  return bound;
}

TEST(Transport, AddressesOfIpv6AreServed) {
  if (!HasIpv6()) GTEST_SKIP() << "this machine has no IPv6";
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

// `size` blanks in gzip's format, packed `times` over.
std::string Packed(std::size_t size, int times) {
  std::string bytes(size, ' ');
  for (int i = 0; i < times; ++i) {
    z_stream stream{};
    deflateInit2(&stream, 1, Z_DEFLATED, 15 + 16, 8, Z_DEFAULT_STRATEGY);
    std::string packed(deflateBound(&stream, bytes.size()), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(bytes.data());
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    EXPECT_EQ(deflate(&stream, Z_FINISH), Z_STREAM_END);
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    bytes = packed;
  }
  return bytes;
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

TEST(Transport, BodiesAreUnpackedAndTakenUpTo64MiB) {
  struct Case {
    const char* name;
    const char* encoding;  // empty: none
    std::string body;
    std::size_t size;  // unpacked
    const char* code;
  };
  const std::string report = Packed(1000, 1);
  const Case kCases[] = {
      {"nothing", "", "", 0, "0"},
      {"as much as may be", "", std::string(64 * kMiB, ' '), 64 * kMiB, "0"},
      {"a byte more", "", std::string(64 * kMiB + 1, ' '), 0, "2"},
      {"packed", "gzip", report, 1000, "0"},
      {"packed twice", "gzip, gzip", Packed(1000, 2), 1000, "0"},
      {"packed, as much as may be", "gzip", Packed(64 * kMiB, 1), 64 * kMiB, "0"},
      {"packed, a byte more", "gzip", Packed(64 * kMiB + 1, 1), 0, "2"},
      {"a bomb", "gzip", Packed(150 * kMiB, 1), 0, "2"},
      {"a bomb in a bomb", "gzip, gzip", Packed(150 * kMiB, 2), 0, "2"},
      {"not packed at all", "gzip", "plain", 0, "2"},
      {"packed in an unknown way", "x-unheard-of", report, 0, "2"},
  };
  const ThrowawayAuthority authority("test");
  auto routes = SecureServer(authority.Issue({"DNS:localhost"}));
  routes->Get("/(.*)", [&](const httplib::Request& request, httplib::Response& response) {
    const Case& c = kCases[std::stoi(request.matches[1])];
    if (*c.encoding != '\0') response.set_header("Content-Encoding", c.encoding);
    response.set_content(c.body, "application/octet-stream");
  });
  const ListeningServer server(std::move(routes));
  const DlRun run;
  run.Folder.Put("authority.pem", authority.Pem());
  for (std::size_t i = 0; i < std::size(kCases); ++i) {
    const std::string address = "https://" + server.Host("localhost") + "/" + std::to_string(i);
    ChildProcess dl(run.Start({address, run.Folder.File("authority.pem")}));
    EXPECT_LT(PeakOf(dl.Id()), 110'000) << kCases[i].name;
    dl.Wait();
    EXPECT_EQ(run.Log(), kCases[i].code) << kCases[i].name;
    EXPECT_EQ(run.Data().value_or("").size(), kCases[i].size) << kCases[i].name;
  }
  EXPECT_TRUE(server.Heard("Accept-Encoding: deflate, gzip")) << "packed answers are asked for";
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

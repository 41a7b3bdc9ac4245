// The proxy that the environment names is used.
#include <gmock/gmock.h>

#include "dl/support/demo_service.h"
#include "dl/support/dl_run.h"
#include "dl/support/local_proxy.h"

namespace quillbox {
namespace {

class Proxy : public testing::Test {
 protected:
  void SetUp() override {
    if (!LocalProxy::Installed()) GTEST_SKIP() << "tinyproxy is not installed";
  }

  std::string CodeThrough(const std::string& proxy) const {
    run_.Run({SignedIn(kEmail, kPassword, service_.Address(kContentReport)),
              service_.AuthorityFile(),
              "5000,5000,15000",
              {"https_proxy=" + proxy}});
    return run_.Log().value_or("no log");
  }

  DemoService service_{{"--account", std::string(kEmail) + ":" + kPassword}};
  DlRun run_;
};

TEST_F(Proxy, CarriesTheWholeExchange) {
  const LocalProxy proxy("");
  EXPECT_EQ(CodeThrough(proxy.Address()), "0");
  EXPECT_TRUE(run_.Data());
  EXPECT_THAT(proxy.Log(), testing::HasSubstr("CONNECT " + service_.Address("").substr(8)));
}

TEST_F(Proxy, TakesNameAndPassword) {
  const LocalProxy proxy("BasicAuth someone secret\n");
  std::string address = proxy.Address();
  EXPECT_EQ(CodeThrough(address), "1") << "without them the proxy refuses";
  EXPECT_EQ(CodeThrough(address.insert(7, "someone:secret@")), "0");
}

TEST_F(Proxy, ThatRefusesTheHostIs1) {
  const LocalProxy proxy("ConnectPort 1\n");
  EXPECT_EQ(CodeThrough(proxy.Address()), "1");
}

TEST_F(Proxy, ThatIsNotThereIs1) {
  EXPECT_EQ(CodeThrough("http://127.0.0.1:" + std::to_string(FreePort())), "1");
}

}  // namespace
}  // namespace quillbox

// The contract of the per-user store.
#include <gtest/gtest.h>

#include "ports/tried_host.h"

namespace quillbox {
namespace {

using namespace std::string_literals;

class StorePort : public PortTest {
 protected:
  bool Write(std::string section, std::string key, std::optional<std::string> value) {
    const SettingChange change{std::move(section), std::move(key), std::move(value)};
    return store_.Apply({&change, 1});
  }

  PerUserStore& store_ = host_->Store();
};

TEST_P(StorePort, KeepsABatchInItsOrderWithoutRegardToCase) {
  EXPECT_EQ(store_.Read("A", "one"), "");
  EXPECT_TRUE(store_.Apply({}));
  EXPECT_TRUE(Write("Accounts", "M\xfcller", "1"));
  const SettingChange changes[] = {{"ACCOUNTS", "m\xdcLLER", "2"}, {"A", "one", "1"},
                                   {"A", "absent", std::nullopt},  {"A", "two", "2"},
                                   {"a", "ONE", std::nullopt},     {"A", "two", "3"}};
  EXPECT_TRUE(store_.Apply(changes));
  for (PerUserStore* const store : {&store_, host_->SameStore().release()}) {
    EXPECT_EQ(store->Read("accounts", "M\xfcLLER"), "2");
    EXPECT_EQ(store->Read("A", "one"), "");
    EXPECT_EQ(store->Read("A", "two"), "3");
    if (store != &store_) delete store;
  }
  EXPECT_TRUE(Write("A", "absent", std::nullopt)) << "it is not there";
}

TEST_P(StorePort, CarriesEveryTextAsSectionKeyAndValue) {
  std::string all;
  for (int code = 0; code < 256; ++code) all += static_cast<char>(code);
  const std::string texts[] = {
      "General",         "a/b\\c", "[x]", "%",    "%41", "=",     " ",    " x ",      "\ty\t",
      "Pending",         "n\0l"s,  "\0"s, "\r\n", "",    "C:\\x", "\x7f", "\x81\x8d", "\xff",
      all.substr(0, 120)};
  std::vector<SettingChange> changes;
  for (const std::string& section : texts) {
    for (const std::string& key : texts) changes.push_back({section, key, section + "|" + key});
  }
  changes.push_back({"Values", "all", all + all});
  changes.push_back({"Values", "long", std::string(100'000, 'x')});
  ASSERT_TRUE(store_.Apply(changes));
  for (const SettingChange& change : changes) {
    EXPECT_EQ(store_.Read(change.Section, change.Key), *change.Value)
        << testing::PrintToString(change.Section) << testing::PrintToString(change.Key);
    ASSERT_TRUE(Write(change.Section, change.Key, "alone")) << change.Key;
    EXPECT_EQ(store_.Read(change.Section, change.Key), "alone");
  }
}

TEST_P(StorePort, SeesWhatAnotherProcessHasWritten) {
  const auto other = host_->SameStore();
  for (int i = 0; i < 20; ++i) {
    EXPECT_TRUE(Write("A", "key", std::to_string(i)));
    EXPECT_EQ(other->Read("A", "key"), std::to_string(i));
    const SettingChange change{"A", "key", std::to_string(100 + i)};
    EXPECT_TRUE(other->Apply({&change, 1}));
    EXPECT_EQ(store_.Read("A", "key"), change.Value);
  }
}

QUILLBOX_ON_ALL_HOSTS(StorePort);

}  // namespace
}  // namespace quillbox

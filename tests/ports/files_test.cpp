// The contract of Files, and of the atomic write that is made of its steps.
#include <gmock/gmock.h>

#include "config/atomic_write.h"
#include "ports/tried_host.h"

namespace quillbox {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FilesPort : public PortTest {
 protected:
  std::string At(const std::string& name) { return host_->File(name); }
  std::vector<std::string> All() { return files_.List(host_->Folder(), "*"); }

  Files& files_ = host_->Disk();
};

TEST_P(FilesPort, WritesAndReadsBackEveryByte) {
  std::string content;
  for (int i = 0; i < 300'000; ++i) content += static_cast<char>(i);
  content += "\r\n\n\x1a";
  EXPECT_TRUE(files_.WriteNew(At("a"), content));
  EXPECT_TRUE(files_.Flush(At("a")));
  EXPECT_TRUE(files_.Flush(host_->Folder()));
  EXPECT_EQ(files_.Read(At("a")), content);
  EXPECT_EQ(files_.Size(At("a")), content.size());
  EXPECT_TRUE(files_.Exists(At("a")));
  EXPECT_TRUE(files_.WriteNew(At("empty"), ""));
  EXPECT_EQ(files_.Read(At("empty")), "");
}

TEST_P(FilesPort, WhatIsNoFileReadsAsNothing) {
  for (const std::string& path : {At("absent"), host_->Folder(), std::string()}) {
    EXPECT_FALSE(files_.Exists(path)) << path;
    EXPECT_EQ(files_.Size(path), std::nullopt) << path;
    EXPECT_EQ(files_.Read(path), std::nullopt) << path;
  }
}

TEST_P(FilesPort, NamesAreTakenOnceAndGivenOn) {
  ASSERT_TRUE(files_.WriteNew(At("a"), "1"));
  EXPECT_FALSE(files_.WriteNew(At("a"), "2"));
  ASSERT_TRUE(files_.WriteNew(At("b"), "3"));
  EXPECT_TRUE(files_.Rename(At("b"), At("a")));
  EXPECT_EQ(files_.Read(At("a")), "3");
  EXPECT_TRUE(files_.Rename(At("a"), At("c")));
  EXPECT_FALSE(files_.Rename(At("absent"), At("c")));
  EXPECT_FALSE(files_.Rename(At("c"), host_->Folder()));
  EXPECT_THAT(All(), ElementsAre("c"));

  EXPECT_TRUE(files_.Remove(At("c")));
  EXPECT_TRUE(files_.Remove(At("c"))) << "it is not there any more";
  EXPECT_FALSE(files_.Exists(At("c")));
}

TEST_P(FilesPort, AFileThatIsReadOnlyIsNotReplaced) {
  ASSERT_TRUE(files_.WriteNew(At("a.ini"), "old"));
  host_->MakeReadOnly(At("a.ini"));
  ASSERT_TRUE(files_.WriteNew(At("b.ini"), "new"));
  EXPECT_FALSE(files_.Rename(At("b.ini"), At("a.ini")));
  EXPECT_FALSE(WriteAtomically(files_, At("a.ini"), "new"));
  EXPECT_EQ(files_.Read(At("a.ini")), "old");
  EXPECT_THAT(All(), ElementsAre("a.ini", "b.ini"));
}

TEST_P(FilesPort, AnAtomicWriteReplacesAndLeavesNothingBeside) {
  for (const char* const content : {"first", "second"}) {
    EXPECT_TRUE(WriteAtomically(files_, At("M\xc3\xbcller.ini"), content));
    EXPECT_EQ(files_.Read(At("M\xc3\xbcller.ini")), content);
    EXPECT_THAT(All(), ElementsAre("M\xc3\xbcller.ini"));
  }
}

TEST_P(FilesPort, ListsNamesThatMatchInTheOrderOfTheirBytes) {
  for (const char* const name :
       {"ding.wav", "DONG.WAV", "a.wave", "\xc3\x89t\xc3\xa9.wav", "\xd0\xb4.wav", "b.WaV", "c"}) {
    ASSERT_TRUE(files_.WriteNew(At(name), "")) << name;
  }
  const auto list = [&](const char* pattern) { return files_.List(host_->Folder(), pattern); };
  EXPECT_THAT(list("*.wav"), ElementsAre("DONG.WAV", "b.WaV", "ding.wav", "\xc3\x89t\xc3\xa9.wav",
                                         "\xd0\xb4.wav"));
  EXPECT_THAT(list("?.wav"), ElementsAre("b.WaV"));
  EXPECT_THAT(list("\xc3\xa9?\xc3\x89.*"), ElementsAre("\xc3\x89t\xc3\xa9.wav"));
  EXPECT_THAT(list("C"), ElementsAre("c"));
  EXPECT_THAT(files_.List(At("absent"), "*"), IsEmpty());
}

QUILLBOX_ON_ALL_HOSTS(FilesPort);

}  // namespace
}  // namespace quillbox

#include <gmock/gmock.h>

#include <thread>

#include "replay/replay_start.h"

namespace quillbox {
namespace {

std::string Request(int id) {
  return R"({"op":"convert","function":"ScrambleText","argument":"abc","id":)" +
         std::to_string(id) + "}";
}

std::string AnswerTo(int id) {
  return R"({"ok":true,"id":)" + std::to_string(id) + R"(,"result":"bdf"})";
}

TEST(BatchProcess, AnswersEachLineWhileTheClientWaits) {
  ChildProcess batch(ReplayStart({"batch"}));
  for (int i = 0; i < 3; ++i) {
    batch.Write(Request(i) + "\n");
    EXPECT_EQ(batch.ReadLine(), AnswerTo(i));
  }
  // A line that has begun doesn't hold back the answer to the one before.
  batch.Write(Request(3) + "\n" + Request(4).substr(0, 10));
  EXPECT_EQ(batch.ReadLine(), AnswerTo(3));
  batch.Write(Request(4).substr(10) + "\r\n");
  EXPECT_EQ(batch.ReadLine(), AnswerTo(4));
  batch.CloseInput();
  EXPECT_EQ(batch.ReadAll(), "");
  EXPECT_EQ(batch.Wait(), 0);
}

TEST(BatchProcess, GoesOnAfterErrorsAndEndsWithZero) {
  ChildProcess batch(ReplayStart({"batch"}));
  batch.Write("nope\n\n" + Request(1) + "\n" + Request(2));  // the last line has no end
  batch.CloseInput();
  EXPECT_THAT(batch.ReadLine(), testing::StartsWith(R"({"ok":false,"error":)"));
  EXPECT_THAT(batch.ReadLine(), testing::StartsWith(R"({"ok":false,"error":)"));
  EXPECT_EQ(batch.ReadAll(), AnswerTo(1) + "\n" + AnswerTo(2) + "\n");
  EXPECT_EQ(batch.ReadErrors(), "");
  EXPECT_EQ(batch.Wait(), 0);
}

TEST(BatchProcess, KeepsTheOrderOfManyAndLongLines) {
  constexpr int kRequests = 5000;
  ChildProcess batch(ReplayStart({"batch"}));
  std::thread writer([&batch] {
    std::string requests;
    for (int i = 0; i < kRequests; ++i) requests += Request(i) + "\n";
    batch.Write(requests);
    batch.Write(R"({"op":"convert","function":"KeepNumberChars","argument":")" +
                std::string(1000000, '1') + "\"}\n");
    batch.CloseInput();
  });
  int inOrder = 0;
  while (inOrder < kRequests && batch.ReadLine() == AnswerTo(inOrder)) ++inOrder;
  EXPECT_EQ(inOrder, kRequests);
  EXPECT_EQ(batch.ReadLine(), R"({"ok":true,"result":")" + std::string(1000000, '1') + "\"}");
  writer.join();
  EXPECT_EQ(batch.Wait(), 0);
}

}  // namespace
}  // namespace quillbox

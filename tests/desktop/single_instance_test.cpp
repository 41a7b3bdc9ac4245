#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QProcess>
#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <memory>
#include <vector>

#include "desktop/child_process.h"
#include "desktop/rounds.h"
#include "system/instance_gate.h"
#include "system/runtime_folder.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

using Processes = std::vector<std::unique_ptr<QProcess>>;

Processes StartAtOnce(int count) {
  Processes processes;
  for (int i = 0; i < count; ++i) {
    processes.push_back(std::make_unique<QProcess>());
    processes.back()->start(QUILLBOX_INSTANCE_PROBE, QStringList());
  }
  return processes;
}

// Waits until all but one have ended, which is the one that stays; null when there is no such one.
QProcess* TheOneThatStays(const Processes& processes) {
  QProcess* first = nullptr;
  for (const auto& process : processes) {
    while (process->state() != QProcess::NotRunning && !process->canReadLine()) {
      process->waitForReadyRead(100);
    }
    if (!process->canReadLine()) continue;
    if (first != nullptr || process->readLine() != "first\n") return nullptr;
    first = process.get();
  }
  return first;
}

int CountLaunches(QProcess& first, int expected) {
  int launches = 0;
  while (launches < expected && (first.canReadLine() || first.waitForReadyRead(5000))) {
    while (first.canReadLine()) launches += first.readLine() == "launched\n" ? 1 : 0;
  }
  return launches;
}

TEST(SingleInstance, OfThirtyStartsOneStaysAndHearsTheOthers) {
  constexpr int kStarts = 30;
  for (int round = 0; round < Rounds(); ++round) {
    const Processes processes = StartAtOnce(kStarts);
    QProcess* const first = TheOneThatStays(processes);
    ASSERT_NE(first, nullptr) << "round " << round;
    EXPECT_EQ(CountLaunches(*first, kStarts - 1), kStarts - 1) << "round " << round;
    // What it leaves when it is killed does not stop the next one.
    first->kill();
    first->waitForFinished();
  }
}

TEST(InstanceGate, IsPassedByOneUntilItIsGone) {
  const QTemporaryDir folder;
  auto first = std::make_unique<InstanceGate>(folder.path().toStdString());
  EXPECT_TRUE(first->Pass());
  EXPECT_TRUE(first->Pass());
  InstanceGate second(folder.path().toStdString());
  EXPECT_FALSE(second.Pass());
  first.reset();
  EXPECT_FALSE(second.Knock(0ms));
  EXPECT_TRUE(second.Pass());
}

TEST(InstanceGate, IsDeafToOtherUsers) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root can be another user";
  const QTemporaryDir folder;
  InstanceGate gate(folder.path().toStdString());
  ASSERT_TRUE(gate.Pass());
  fs::permissions(folder.path().toStdString(), fs::perms::all);
  fs::permissions(folder.path().toStdString() + "/quillbox.socket", fs::perms::all);
  const int heard = InChildAs(
      kNobody, [&] { return InstanceGate(folder.path().toStdString()).Knock(50ms) ? 1 : 0; });
  EXPECT_EQ(heard, 0);
  EXPECT_EQ(gate.AnswerKnocks(), 0);
}

// RuntimeFolder as a process of that user has it that is told this runtime folder.
fs::path RuntimeFolderTold(const fs::path& told) {
  const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
  qputenv("XDG_RUNTIME_DIR", told.c_str());
  const fs::path found = RuntimeFolder(InstanceGate::kLongestFolder);
  qputenv("XDG_RUNTIME_DIR", before);
  return found;
}

TEST(RuntimeFolder, IsNeverOneThatOthersCanWrite) {
  const QTemporaryDir temporary;
  const fs::path folder = temporary.path().toStdString() + "/ours";
  EXPECT_NE(RuntimeFolderTold(folder), folder) << "it is not there";
  fs::create_directories(folder);
  fs::permissions(folder, fs::perms::owner_all);
  EXPECT_EQ(RuntimeFolderTold(folder), folder);
  fs::permissions(folder, fs::perms::all);
  const fs::path other = RuntimeFolderTold(folder);
  EXPECT_NE(other, folder);
  EXPECT_TRUE(other.is_absolute());
  EXPECT_EQ(fs::status(other).permissions() & (fs::perms::group_write | fs::perms::others_write),
            fs::perms::none);
  if (::geteuid() != 0) return;
  fs::permissions(folder, fs::perms::owner_all);
  ASSERT_EQ(::chown(folder.c_str(), kNobody, kNobody), 0);
  EXPECT_NE(RuntimeFolderTold(folder), folder) << "it is another user's";
}

}  // namespace
}  // namespace quillbox

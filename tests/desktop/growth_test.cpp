// Whatever the program does over and over leaves nothing behind in its memory.
#include <gtest/gtest.h>

#include <QThread>
#include <algorithm>
#include <fstream>
#include <functional>
#include <iostream>

#include "config/setting_keys.h"
#include "desktop/docked_icons.h"
#include "desktop/fake_bus_service.h"
#include "desktop/quillbox_on_desktop.h"
#include "support/rounds.h"

namespace quillbox {
namespace {

struct Footprint {
  long OwnKiB = 0;   // pages that no other process shares
  long Handles = 0;  // room in the table of open files, which only grows
};

std::ostream& operator<<(std::ostream& out, const Footprint& size) {
  return out << size.OwnKiB << " KiB of own pages, room for " << size.Handles << " open files";
}

// Answers at once with a report in which the views rise from one refresh to the next.
constexpr char kFetchProgram[] = R"(
paths=${1%|*} log=${1##*|} data=${paths##*|}
cd "${0%/*}" && echo >> fetched
tr _ '\t' > "$data" <<END
Date_Page impressions_Clicks_Page CTR_Page eCPM_Earnings
$(date +%-m/%-d/%Y)_$(wc -l < fetched)_5_5.00%_2.50_0.25
Totals_3000_100_3.33%_2.00_6.00
Averages_100_3_3.33%_2.00_0.20
END
printf 0 > "$log")";

class GrowthTest : public QuillboxOnDesktop {
 protected:
  void FindIcon() {
    DockIcon();
    PointAtIcon();
    icon_ = DockedIcons(desktop_).front();
    PointElsewhere();
  }

  // From a tenth of the rounds on, when every cache has been filled.
  void ExpectNoGrowthOver(const std::function<void()>& act) {
    constexpr double kNoise = 1.05;
    const int rounds = Rounds();
    Footprint before;
    for (int round = 1; round <= rounds; ++round) {
      act();
      if (HasFatalFailure()) return;
      if (round == std::max(rounds / 10, 2)) before = Now();
    }
    const Footprint after = Now();
    std::cout << rounds << " rounds: " << before << ", then " << after << "\n";
    ASSERT_GT(before.OwnKiB, 0);
    EXPECT_LE(static_cast<double>(after.OwnKiB), kNoise * static_cast<double>(before.OwnKiB));
    EXPECT_LE(after.Handles, before.Handles);
  }

  void AtIcon(const QString& act) {
    Mouse(QString("mousemove %1 %2 ").arg(icon_.x()).arg(icon_.y()) + act);
  }

 private:
  Footprint Now() const {
    Footprint size;
    std::ifstream status("/proc/" + std::to_string(quillbox_->processId()) + "/status");
    for (std::string name; status >> name; status.ignore(4096, '\n')) {
      if (name == "RssAnon:") status >> size.OwnKiB;
      if (name == "FDSize:") status >> size.Handles;
    }
    return size;
  }

  QPoint icon_;
};

TEST_F(GrowthTest, Hovers) {
  FindIcon();
  ExpectNoGrowthOver([&] {
    AtIcon("sleep 0");
    ASSERT_TRUE(TooltipComes());
    PointElsewhere();
    ASSERT_TRUE(TooltipGoes());
  });
}

TEST_F(GrowthTest, Refreshes) {
  WriteScript("dl", kFetchProgram);
  Store(SettingBatch()
            .Write(kDataToDownload, kDownloadContent)
            .Write(kTraySingleAction, kActionRefresh));
  FindIcon();
  const auto fetched = [&] { return folder_.Content("fetched").size(); };
  ExpectNoGrowthOver([&] {
    const auto before = fetched();
    // A click during the end of the refresh before is in vain.
    for (int tries = 0; fetched() == before; ++tries) {
      ASSERT_LT(tries, 30);
      AtIcon("click 1");
      QThread::msleep(600);
    }
  });
  EXPECT_NE(Settings().find("5.00"), std::string::npos) << "nothing was evaluated";
}

}  // namespace
}  // namespace quillbox

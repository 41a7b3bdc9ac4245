// The section and key of every setting, and the texts in which lists are stored. No section or key
// is spelled anywhere else. Stored texts must not change.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace quillbox {

struct SettingKey {
  std::string_view Section;
  std::string_view Key;
};

// Booleans are the texts "True" and "False"; anything but "True" is off.
inline constexpr std::string_view kTrue = "True";
inline constexpr std::string_view kFalse = "False";
constexpr std::string_view BooleanText(bool on) {
  return on ? kTrue : kFalse;
}

inline constexpr SettingKey kCheckForNewVersion{"General", "CheckForNewVersion"};
inline constexpr SettingKey kCheckPrompted{"General", "CheckPrompted"};
inline constexpr SettingKey kRefreshTooltip{"General", "RefreshTooltip"};  // refresh at start-up
inline constexpr SettingKey kPause{"General", "Pause"};  // 30 s before the first refresh
inline constexpr SettingKey kLoad{"General", "Load"};    // start with the system
inline constexpr SettingKey kUse24Hour{"General", "Use24Hour"};

inline constexpr SettingKey kVersion{"Misc", "Version"};  // installed, "1.3.0"
inline constexpr SettingKey kRegTest{"Misc", "RegTest"};
inline constexpr std::string_view kRegTestValue = "Test";
inline constexpr SettingKey kRuns{"Misc", "Runs"};  // program starts; empty before the first
inline constexpr SettingKey kCheckDate{"Misc", "CheckDate"};        // short date form
inline constexpr SettingKey kCheckVersion{"Misc", "CheckVersion"};  // last one announced
inline constexpr SettingKey kLastDate{"Misc", "LastDate"};
inline constexpr SettingKey kLastOption{"Misc", "LastOption"};

// Three lists, joined, entry by entry one account; passwords scrambled.
inline constexpr SettingKey kAccounts{"AdSense", "Accounts"};
inline constexpr SettingKey kUsernames{"AdSense", "Usernames"};
inline constexpr SettingKey kPasswords{"AdSense", "Passwords"};
inline constexpr SettingKey kPrimaryAccount{"AdSense", "PrimaryAccount"};

inline constexpr SettingKey kAutoUpdateEnable{"AutoUpdate", "Enable"};
inline constexpr std::string_view kDisabledAsItIs = "False:";  // off, and stays as it is stored
inline constexpr SettingKey kAutoUpdateRate{"AutoUpdate", "Rate"};
inline constexpr SettingKey kAutoUpdateWhenConnected{"AutoUpdate", "WhenConnected"};

inline constexpr SettingKey kTrayIcon{"TrayIcon", "Icon"};  // full path, or kOwnIcon
inline constexpr std::string_view kOwnIcon = "default";
inline constexpr SettingKey kTrayAction{"TrayIcon", "Action"};
inline constexpr SettingKey kTraySingleAction{"TrayIcon", "SingleAction"};
inline constexpr SettingKey kShowBalloonWhen{"TrayIcon", "ShowBalloonWhen"};

inline constexpr SettingKey kTooltipValues{"TrayTooltip", "Values"};  // letters A to M
inline constexpr std::string_view kDefaultTooltipValues = "ABCDEFG";
inline constexpr SettingKey kDataToDownload{"TrayTooltip", "DataToDownload"};
inline constexpr SettingKey kShowDataByPage{"TrayTooltip", "ShowDataByPage"};
inline constexpr SettingKey kDisplayAllStats{"TrayTooltip", "DisplayAllStats"};

// In the order of SoundFiles in AppState.
inline constexpr std::array<SettingKey, 6> kSounds = {{
    {"Sounds", "ImpressionsChanged"},
    {"Sounds", "ClicksChanged"},
    {"Sounds", "RateChanged"},
    {"Sounds", "CPMChanged"},
    {"Sounds", "EarningsChanged"},
    {"Sounds", "Downloaded"},
}};
inline constexpr SettingKey kDownloadedSound = kSounds[5];

inline constexpr SettingKey kProxyUsername{"Proxy", "Username"};  // scrambled
inline constexpr SettingKey kProxyPassword{"Proxy", "Password"};  // scrambled
inline constexpr SettingKey kProxyServer{"Proxy", "Server"};
inline constexpr SettingKey kProxyPort{"Proxy", "Port"};

// The two keys of an account in section "Accounts".
class AccountKeys {
 public:
  explicit AccountKeys(std::string_view account)
      : account_(account), impressions_(account_ + " Impressions") {}

  // The keys live as long as this object.
  SettingKey Stats() const& { return {"Accounts", account_}; }
  SettingKey Impressions() const& { return {"Accounts", impressions_}; }
  SettingKey Stats() const&& = delete;
  SettingKey Impressions() const&& = delete;

 private:
  std::string account_;
  std::string impressions_;
};

// Texts of DataToDownload.
inline constexpr std::string_view kDownloadContent = "AdSense for Content";
inline constexpr std::string_view kDownloadSearch = "AdSense for Search";
inline constexpr std::string_view kDownloadReferrals = "Referrals";
inline constexpr std::string_view kDownloadAll = "All";
inline constexpr std::array kDownloads = {kDownloadContent, kDownloadSearch, kDownloadReferrals,
                                          kDownloadAll};
inline constexpr std::string_view kDownloadAllFormerly = "Both";

// Texts of ShowDataByPage.
inline constexpr std::string_view kByAdUnit = "Individual Ad Unit";
inline constexpr std::string_view kByPage = "Page";

// Texts of Action and SingleAction.
inline constexpr std::string_view kActionNone = "No Action";
inline constexpr std::string_view kActionOpenAccount = "Open primary AdSense account";
inline constexpr std::string_view kActionOptions = "Open Quillbox Options";
inline constexpr std::string_view kActionRefresh = "Refresh tooltip information";
inline constexpr std::string_view kActionVisit = "Visit Tarnwick Works";
inline constexpr std::array kActions = {kActionNone, kActionOpenAccount, kActionOptions,
                                        kActionRefresh, kActionVisit};
inline constexpr std::string_view kActionOpenAccountFormerly = "Open AdSense account";

// Texts of ShowBalloonWhen.
inline constexpr std::string_view kBalloonNever = "Never";
inline constexpr std::string_view kBalloonImpressions = "Page Impressions Changes";
inline constexpr std::string_view kBalloonClicks = "Clicks Changes";
inline constexpr std::string_view kBalloonRate = "Clickthrough Rate Changes";
inline constexpr std::string_view kBalloonCpm = "Effective CPM Changes";
inline constexpr std::string_view kBalloonEarnings = "Your Earnings Changes";
inline constexpr std::array kBalloonConditions = {kBalloonNever,  kBalloonImpressions,
                                                  kBalloonClicks, kBalloonRate,
                                                  kBalloonCpm,    kBalloonEarnings};

// The events of kSounds, in the same order; not stored.
inline constexpr std::array<std::string_view, 6> kSoundEvents = {
    kBalloonImpressions, kBalloonClicks,   kBalloonRate,
    kBalloonCpm,         kBalloonEarnings, "AdSense Statistics Downloaded"};

inline constexpr std::string_view kNoSound = "(None)";

struct UpdateRate {
  std::string_view Text;
  int Minutes;
};
inline constexpr std::array<UpdateRate, 18> kUpdateRates = {{
    {"Every minute", 1},
    {"Every 2 minutes", 2},
    {"Every 3 minutes", 3},
    {"Every 4 minutes", 4},
    {"Every 5 minutes", 5},
    {"Every 10 minutes", 10},
    {"Every 15 minutes", 15},
    {"Every 20 minutes", 20},
    {"Every 25 minutes", 25},
    {"Every 30 minutes", 30},
    {"Every 35 minutes", 35},
    {"Every 40 minutes", 40},
    {"Every 45 minutes", 45},
    {"Every hour", 60},
    {"Every 2 hours", 120},
    {"Every 3 hours", 180},
    {"Every 4 hours", 240},
    {"Every 5 hours", 300},
}};
inline constexpr std::string_view kDefaultUpdateRate = "Every 15 minutes";
inline constexpr int kDefaultUpdateMinutes = 15;  // for every other text

}  // namespace quillbox

#include "evaluation/evaluate_account_reports.h"

#include "evaluation/account_evaluation.h"
#include "evaluation/tray_stats.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/sounds.h"
#include "tray/tray_icon.h"

namespace quillbox {
namespace {

// All but the reports.
EvaluationInput ReadInput(const ProgramContext& program, const AccountKeys& keys) {
  const SettingsStore& store = program.Store;
  EvaluationInput input;
  input.DataToDownload = store.ReadSetting(kDataToDownload);
  input.LastDate = store.ReadSetting(kLastDate);
  input.Use24Hour = store.ReadSetting(kUse24Hour) == kTrue;
  input.ShowBalloonWhen = store.ReadSetting(kShowBalloonWhen);
  input.StoredStats = store.ReadSetting(keys.Stats());
  input.StoredHistory = store.ReadSetting(keys.Impressions());
  input.Now = program.Host.Time.LocalTime();
  return input;
}

// History and record in one change, so that no crash leaves them out of step.
void Store(const ProgramContext& program, const AccountKeys& keys,
           const EvaluationDecision& decision) {
  SettingBatch batch;
  batch.Write(keys.Impressions(), decision.History);
  if (decision.GatePassed) batch.Write(keys.Stats(), StoredRecord(decision.Stats));
  program.Store.WriteBatch(batch);
}

void TellPrimaryAccount(const ProgramContext& program, const std::string& account,
                        bool balloonWanted) {
  if (program.Store.ReadSetting(kPrimaryAccount) != account) return;
  UpdateTrayStats(program, account);
  if (!balloonWanted) return;
  std::string name = account;
  ShowBalloon(program, BuildStatsText(program, name));
}

void Play(const ProgramContext& program, std::size_t sound) {
  const std::string& file = program.State.SoundFiles[sound];
  if (file != kNoSound) program.Host.Speaker.PlaySoundFile(file);
}

void PlaySounds(const ProgramContext& program, const ChangeSet& changes) {
  for (std::size_t figure = 0; figure < kFigures; ++figure) {
    if (changes.Has(static_cast<Figure>(figure))) Play(program, figure);
  }
  Play(program, kFigures);  // for any change at all
}

}  // namespace

void EvaluateAccountReports(const ProgramContext& program, const std::string& contentFile,
                            const std::string& searchFile, const std::string& referralFile,
                            const std::string& account) {
  const AccountKeys keys(account);
  EvaluationInput input = ReadInput(program, keys);
  Files& disk = program.Host.Disk;
  if (Selects(input.DataToDownload, kDownloadContent)) input.Content = disk.Read(contentFile);
  if (Selects(input.DataToDownload, kDownloadSearch)) input.Search = disk.Read(searchFile);
  if (Selects(input.DataToDownload, kDownloadReferrals)) input.Referral = disk.Read(referralFile);

  const EvaluationDecision decision = EvaluateReports(input, program.Region);
  Store(program, keys, decision);
  if (!decision.GatePassed) return;
  TellPrimaryAccount(program, account, decision.BalloonWanted);
  if (decision.Changes.Empty()) return;
  PlaySounds(program, decision.Changes);
  program.Store.WriteSetting(kLastDate, decision.Stats.ReportDate);
}

}  // namespace quillbox

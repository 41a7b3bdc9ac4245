#include "quillbox-replay/evaluation_run.h"

#include "evaluation/evaluate_account_reports.h"
#include "evaluation/tray_stats.h"

namespace quillbox {

EvaluationEffects RunEvaluation(EvaluationHost& host, const ReportPaths& reports,
                                const std::string& account) {
  EvaluateAccountReports(host.Program, reports.Content, reports.Search, reports.Referral, account);
  EvaluationEffects effects{host.Tray.Tooltip, std::nullopt, host.Speaker.Files};
  if (host.Tray.BalloonShown) {
    // The tray record holds the text cut to its field. It was made of what is stored now, and the
    // store has not changed since but for the last date, which the text doesn't show.
    std::string name = account;
    effects.Balloon = BuildStatsText(host.Program, name);
  }
  return effects;
}

}  // namespace quillbox

#include "whole_report.h"

#include <utility>

#include "api/report_parts.h"
#include "api/report_query.h"
#include "request/limits.h"

namespace quillbox {
namespace {

// The service allows a hundred a minute. Half of them, each with half of what an answer can hold,
// make a table of the size that is the limit anyway.
constexpr std::size_t kMostQuestions = 64;

// Lines as they come in, part by part.
class Parts {
 public:
  Parts(GrantedService& service, const WantedReport& report) : service_(service), report_(report) {}

  // The whole of what `cut` is a part of.
  GrantedReport Join(GrantedReport cut) {
    const std::vector<DayRange> parts = PartsOf(cut.Answer);
    whole_.Answer = WithoutFigures(std::move(cut.Answer));
    whole_.Verdict = cut.Verdict;
    ServiceVerdict verdict = AddAll(parts);
    if (verdict.Code != ResultCode::kSuccess) return {verdict, {}};
    return std::move(whole_);
  }

 private:
  ServiceVerdict TooLong() const {
    return NotUsable("the report is too long", whole_.Verdict.Asked);
  }

  ServiceVerdict AddAll(const std::vector<DayRange>& parts) {
    if (parts.empty() || asked_ + parts.size() > kMostQuestions) return TooLong();
    for (const DayRange& days : parts) {
      ServiceVerdict verdict = Add(days);
      if (verdict.Code != ResultCode::kSuccess) return verdict;
    }
    return whole_.Verdict;
  }

  ServiceVerdict Add(const DayRange& days) {
    if (++asked_ > kMostQuestions) return TooLong();
    GrantedReport part = AskForReport(service_, report_, PartQuery(report_, days));
    if (part.Verdict.Code != ResultCode::kSuccess) return part.Verdict;
    if (part.Answer.Days != days)
      return NotUsable("the answer is for other days", whole_.Verdict.Asked);
    if (!part.Answer.IsWhole()) {
      const std::vector<DayRange> parts = PartsOf(part.Answer);
      part = {};  // its lines come again
      return AddAll(parts);
    }
    AddPart(whole_.Answer, std::move(part.Answer));
    return BytesOf(whole_.Answer.Lines) > Limits{}.BodyBytes ? TooLong() : whole_.Verdict;
  }

  GrantedService& service_;
  const WantedReport& report_;
  GrantedReport whole_;
  std::size_t asked_ = 1;  // the first answer came before
};

}  // namespace

GrantedReport MadeWhole(GrantedService& service, const WantedReport& report, GrantedReport first) {
  if (first.Verdict.Code != ResultCode::kSuccess || first.Answer.IsWhole()) return first;
  return Parts(service, report).Join(std::move(first));
}

}  // namespace quillbox

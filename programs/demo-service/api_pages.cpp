#include "api_pages.h"

#include <algorithm>

#include "api/report_json.h"
#include "error_answers.h"

namespace quillbox {
namespace {

GoodAnswer Json(const std::string& body) {
  return {200, body, "application/json; charset=UTF-8"};
}

GoodAnswer NoToken() {
  return ApiError(401,
                  "Request had invalid authentication credentials. Expected OAuth 2 access token.");
}

}  // namespace

ApiPages::ApiPages(const ServiceOptions& options, const std::set<std::string>& emails,
                   const DemoClock& clock)
    : options_(options.Api),
      seed_(options.Seed),
      publishers_(emails, options.Api.PublishersPerEmail, options.Api.ReadyPublishers),
      clock_(clock) {}

GoodAnswer ApiPages::Accounts(const FormFields& query, const std::string& email) const {
  if (email.empty()) return NoToken();
  try {
    CheckParameters(query, {"pageSize", "pageToken"});
  } catch (const BadReportRequest& problem) {
    return ApiError(400, problem.what());
  }
  const auto page = PublisherPageJson(publishers_.Of(email), FieldOf(query, "pageSize"),
                                      FieldOf(query, "pageToken"), options_.PageLimit);
  return page ? Json(*page) : ApiError(400, "pageSize or pageToken is wrong");
}

GoodAnswer ApiPages::Report(const FormFields& query, const std::string& publisher,
                            const std::string& email) const {
  if (email.empty()) return NoToken();
  const auto owner = publishers_.Find(publisher);
  if (!owner || owner->Email != email) {
    return ApiError(403, "The caller does not have permission");
  }
  try {
    const Moment now = clock_.Now();
    ReportRequest request = ParseReportRequest(query, now.Today);
    if (request.First < now.Today - options_.History) {
      return ApiError(400, "startDate lies too long ago");
    }
    request.Limit = std::min(request.Limit, options_.RowLimit);
    const ReportRows rows = MakeReportRows(request, seed_, owner->Ready ? email : "", now);
    const std::string currency = request.Currency.empty() ? options_.Currency : request.Currency;
    return Json(ReportJson(request, rows, currency, options_.Warnings));
  } catch (const BadReportRequest& problem) {
    return ApiError(400, problem.what());
  }
}

}  // namespace quillbox

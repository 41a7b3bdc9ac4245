#include "api/report_columns.h"

namespace quillbox {

RateColumns RateColumnsOf(const WantedReport& report) {
  // For search an ad request is a query, which is what the search report counts.
  if (report.Product == WantedProduct::kSearch) {
    return {"AD_REQUESTS", "AD_REQUESTS_CTR", "AD_REQUESTS_RPM"};
  }
  if (report.Unit == CountedBy::kPage) return {"PAGE_VIEWS", "PAGE_VIEWS_CTR", "PAGE_VIEWS_RPM"};
  return {"IMPRESSIONS", "IMPRESSIONS_CTR", "IMPRESSIONS_RPM"};
}

}  // namespace quillbox

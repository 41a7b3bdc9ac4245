#include "reports/figure_sources.h"

namespace quillbox {
namespace {

std::string ProductName(Product product) {
  switch (product) {
    case Product::kSearch:
      return "search";
    case Product::kReferrals:
      return "referrals";
    case Product::kContent:
      break;
  }
  return "content";
}

}  // namespace

std::string SourceName(const std::string& account, Product product, std::string_view channel) {
  const std::string source = account + "/" + ProductName(product);
  return channel.empty() ? source : source + "/" + std::string(channel);
}

}  // namespace quillbox

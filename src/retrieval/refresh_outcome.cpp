#include "retrieval/refresh_outcome.h"

#include "region/conversions.h"

namespace quillbox {
namespace {

std::string NoConnectionText(std::string_view serviceDomain) {
  return "Could not connect to " + std::string(serviceDomain) + "!";
}

std::string RefusedText(std::string_view username) {
  return "You have entered an incorrect username and/or password for the \"" +
         std::string(username) +
         "\" AdSense account in the \"AdSense\" tab of the Quillbox Options window.";
}

}  // namespace

std::string NoResponseText(std::string_view serviceDomain) {
  return "No response received from " + std::string(serviceDomain) +
         "!\r\n\r\nPlease verify that you are connected to the Internet.";
}

RefreshOutcome DecideRefreshOutcome(std::string_view contentCode, std::string_view otherCode,
                                    std::string_view username, std::string_view serviceDomain) {
  const double content = LeadingNumber(contentCode);
  if (content == 0 && LeadingNumber(otherCode) == 0) return {true, std::nullopt};
  if (content == 0 || content == 1 || content == 4) {
    return {false, NoConnectionText(serviceDomain)};
  }
  if (content == 2) return {false, NoResponseText(serviceDomain)};
  if (content == 3) return {false, RefusedText(username)};
  return {false, std::nullopt};
}

}  // namespace quillbox

#include "unpack/content_coding.h"

#include <algorithm>

#include "text/code_page.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

// libcurl leaves a piece of the line's end in an empty value.
constexpr std::string_view kBlanks = " \t\r\n";

std::string_view TakeName(std::string_view& list) {
  const std::size_t end = std::min(list.find(','), list.size());
  const std::string_view name = list.substr(0, end);
  list.remove_prefix(std::min(end + 1, list.size()));
  return Trimmed(name, kBlanks);
}

ContentCoding Named(std::string_view name) {
  if (name.empty() || EqualIgnoringCase(name, "identity")) return ContentCoding::kNone;
  if (EqualIgnoringCase(name, "gzip") || EqualIgnoringCase(name, "x-gzip")) {
    return ContentCoding::kGzip;
  }
  return EqualIgnoringCase(name, "deflate") ? ContentCoding::kDeflate : ContentCoding::kUnknown;
}

bool IsPlain(std::string_view transfer) {
  while (!transfer.empty()) {
    const std::string_view name = TakeName(transfer);
    if (!EqualIgnoringCase(name, "chunked") && Named(name) != ContentCoding::kNone) return false;
  }
  return true;
}

bool IsLength(std::string_view text) {
  constexpr std::size_t kMostDigits = 18;  // no number of them leaves 64 bits
  return !text.empty() && text.size() <= kMostDigits &&
         std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

ContentCoding ReadContentCoding(std::string_view content, std::string_view transfer) {
  ContentCoding coding = IsPlain(transfer) ? ContentCoding::kNone : ContentCoding::kUnknown;
  while (!content.empty()) {
    const ContentCoding named = Named(TakeName(content));
    if (named == ContentCoding::kNone) continue;
    coding = coding == ContentCoding::kNone ? named : ContentCoding::kUnknown;
  }
  return coding;
}

bool EndsInChunks(std::string_view transfer) {
  std::string_view last;
  while (!transfer.empty()) {
    if (const std::string_view name = TakeName(transfer); !name.empty()) last = name;
  }
  return EqualIgnoringCase(last, "chunked");
}

bool IsOneLength(std::string_view lengths) {
  const std::string_view first = TakeName(lengths);
  bool same = IsLength(first);
  while (!lengths.empty()) same = TakeName(lengths) == first && same;
  return same;
}

}  // namespace quillbox

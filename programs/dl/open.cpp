#include "commands.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "browser/loopback_server.h"
#include "consent_exchange.h"
#include "environment.h"
#include "request/answer.h"
#include "system/terminal.h"

namespace quillbox {
namespace {

int Fail(ResultCode code, const char* words) {
  std::fprintf(stderr, "%s\n", words);
  return static_cast<int>(code);
}

// What a head of HTTP can carry and what is an address, byte for byte.
bool IsOpenable(const std::string& address) {
  return address.starts_with("https://") &&
         std::ranges::all_of(address, [](char c) { return c > ' ' && c < '\x7F'; });
}

}  // namespace

int Open(unsigned fileMask) {
  const std::string address = ReadSecret("Address: ");
  if (!IsOpenable(address)) return Fail(ResultCode::kNoConnection, "That is no https address.");
  const Crypto crypto;
  if (!crypto.Loaded()) return Fail(ResultCode::kNoConnection, kNoCrypto);
  const auto page = RandomText(crypto);
  if (!page) return Fail(ResultCode::kNoAnswer, "No random numbers to be had.");
  LoopbackServer server;
  if (!server.Listens()) return Fail(ResultCode::kNoConnection, LoopbackServer::kNoPort);
  const auto end = LoopbackServer::Clock::now() + std::min(kOffered, TheLimits().Person);
  if (!OpenInBrowser(server, *page, address, end, fileMask)) {
    return Fail(ResultCode::kNoConnection, "The browser could not be opened.");
  }
  if (!server.AwaitOffered(end)) return Fail(ResultCode::kNoAnswer, "No browser came.");
  return 0;
}

}  // namespace quillbox

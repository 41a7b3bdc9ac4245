#include "oauth/browser_pages.h"

#include "text/html_text.h"

namespace quillbox {
namespace {

constexpr const char* kHead =
    "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">"
    "<meta name=\"viewport\" content=\"width=device-width\"><title>Quillbox</title><style>\n"
    ":root { color-scheme: light dark; }\n"
    "body { font: 1em/1.5 system-ui, sans-serif; max-width: 34em; margin: 12vh auto 2em;"
    " padding: 0 1.5em; }\n"
    "h1 { font-size: 1.4em; font-weight: 600; }\n"
    "button { display: block; width: 100%; margin: .6em 0; padding: .7em 1em; text-align: left;"
    " font: inherit; color: inherit; background: none; border: 1px solid #8888;"
    " border-radius: .5em; cursor: pointer; overflow-wrap: anywhere; }\n"
    "button:hover, button:focus-visible { border-color: #36c; background: #36c2; }\n"
    "small { display: block; opacity: .7; }\n"
    "</style></head><body><h1>";

std::string Page(const std::string& title, const std::string& body) {
  return kHead + title + "</h1>\n" + body + "</body></html>\n";
}

std::string ButtonOf(const PublisherAccount& account) {
  const std::string id = account.Name.substr(account.Name.find('/') + 1);
  const std::string title = account.Title.empty() ? id : account.Title;
  return "<button name=\"account\" value=\"" + HtmlText(account.Name) + "\">" + HtmlText(title) +
         "<small>" + HtmlText(id) + "</small></button>\n";
}

}  // namespace

std::string SentencePage(const std::string& sentence) {
  return Page("Quillbox", "<p>" + sentence + "</p>");
}

std::string ChoicePage(const std::string& state, std::span<const PublisherAccount> accounts) {
  std::string body =
      "<p>You have several publisher accounts. Choose the one whose reports Quillbox shall "
      "read.</p>\n<form action=\"/\"><input type=\"hidden\" name=\"state\" value=\"" +
      HtmlText(state) + "\">\n";
  for (const PublisherAccount& account : accounts) body += ButtonOf(account);
  return Page("Which account?", body + "</form>");
}

}  // namespace quillbox

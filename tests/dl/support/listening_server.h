// A web server of a test's own on a free port of the loopback interface, which notes what it is
// asked.
#pragma once

#include <httplib.h>

#include <memory>
#include <mutex>
#include <sstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "throwaway_authority.h"

namespace quillbox {

inline std::unique_ptr<httplib::Server> SecureServer(const Certificate& certificate) {
  return NewSecureServer([certificate](SSL_CTX& context) {
    return SSL_CTX_use_certificate(&context, certificate.Public.get()) == 1 &&
           SSL_CTX_use_PrivateKey(&context, certificate.Key.get()) == 1;
  });
}

// Sends what is written as "302\nLocation: {other}/x\n\nbody", with `places` put in: "{other}" and
// what it stands for.
inline void Reply(std::string text, const std::vector<std::pair<std::string, std::string>>& places,
                  httplib::Response& response) {
  for (const auto& [place, host] : places) {
    const std::size_t at = text.find(place);
    if (at != std::string::npos) text.replace(at, place.size(), host);
  }
  std::istringstream lines(text);
  std::string line;
  std::getline(lines, line);
  response.status = std::stoi(line);
  while (std::getline(lines, line) && !line.empty()) {
    const std::size_t colon = line.find(':');
    response.headers.emplace(line.substr(0, colon), line.substr(colon + 2));
  }
  response.set_content(std::string(std::istreambuf_iterator<char>(lines), {}), "text/plain");
}

// Gives everything without a route an answer.
inline std::unique_ptr<httplib::Server> AnswerAll(std::unique_ptr<httplib::Server> server) {
  const auto answer = [](const auto&, auto& response) { response.set_content("r", "text/plain"); };
  server->Get(".*", answer).Post(".*", answer);
  return server;
}

class ListeningServer {
 public:
  // `server`: with all its routes. Takes connections when this returns.
  explicit ListeningServer(std::unique_ptr<httplib::Server> server) : server_(std::move(server)) {
    port_ = server_->bind_to_any_port("127.0.0.1");
    server_->set_logger([this](const httplib::Request& request, const httplib::Response&) {
      const std::lock_guard lock(mutex_);
      requests_.push_back(request);
    });
    thread_ = std::thread([this] { server_->listen_after_bind(); });
    while (!server_->is_running()) std::this_thread::yield();
  }
  ~ListeningServer() {
    server_->stop();
    thread_.join();
  }

  std::string Host(const std::string& name) const { return name + ":" + std::to_string(port_); }

  std::vector<httplib::Request> Requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
  }

  // Whether `text` occurs anywhere in what it was asked.
  bool Heard(const std::string& text) const {
    for (const httplib::Request& request : Requests()) {
      std::string all = request.method + " " + request.target + "\n" + request.body;
      for (const auto& [name, value] : request.headers) all += "\n" + name + ": " + value;
      if (all.find(text) != std::string::npos) return true;
    }
    return false;
  }

 private:
  std::unique_ptr<httplib::Server> server_;
  int port_ = 0;
  std::thread thread_;
  mutable std::mutex mutex_;
  std::vector<httplib::Request> requests_;
};

}  // namespace quillbox

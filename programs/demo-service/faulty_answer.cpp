#include "faulty_answer.h"

#include <chrono>

#include "error_answers.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

constexpr auto kDripPause = 1000ms;
constexpr auto kStallLimit = 10min;

void SetHead(const GoodAnswer& good, httplib::Response& response) {
  response.status = good.Status;
  for (const auto& [name, value] : good.Headers) response.set_header(name, value);
}

void Send(const GoodAnswer& good, httplib::Response& response) {
  SetHead(good, response);
  response.set_content(good.Body, good.ContentType);
}

// The answer announces its whole length and ends after the half of it.
void CutOff(const GoodAnswer& good, httplib::Response& response) {
  SetHead(good, response);
  const std::string half = good.Body.substr(0, good.Body.size() / 2);
  response.set_content_provider(good.Body.size(), good.ContentType,
                                [half](std::size_t offset, std::size_t, httplib::DataSink& sink) {
                                  if (offset == 0 && !half.empty())
                                    return sink.write(half.data(), half.size());
                                  return false;
                                });
}

void Drip(const GoodAnswer& good, FaultSwitch& faults, httplib::Response& response) {
  SetHead(good, response);
  response.set_content_provider(
      good.Body.size(), good.ContentType,
      [body = good.Body, &faults](std::size_t offset, std::size_t, httplib::DataSink& sink) {
        faults.Hold(kDripPause);
        return sink.write(&body[offset], 1);
      });
}

}  // namespace

void Answer(const FaultRule& rule, const std::string& path, const GoodAnswer& good,
            FaultSwitch& faults, httplib::Response& response) {
  switch (rule.Kind) {
    case Fault::kRefuse:
      return Send(RefusalAt(path), response);
    case Fault::kStatus:
      return Send(ErrorAt(path, rule.Status), response);
    case Fault::kStall:
      faults.Hold(kStallLimit);
      return Send(ErrorAt(path, 503), response);
    case Fault::kDrip:
      return Drip(good, faults, response);
    case Fault::kCut:
      return CutOff(good, response);
    case Fault::kDowngrade:
      return response.set_redirect("http://localhost" + path);
    default:
      return Send(good, response);
  }
}

}  // namespace quillbox

// Rows, size and place of the tooltip window.
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "quillbox-replay/request.h"
#include "tooltip/tooltip_picture.h"

namespace quillbox {
namespace {

// Beyond this no length means anything, and sums would leave the range of their types.
constexpr double kLongest = 1e9;

double LengthOf(const JsonValue& value, const std::string& what) {
  const double length = NumberOf(value, what);
  if (std::fabs(length) > kLongest) {
    throw RequestError("member \"" + what + "\" can't hold lengths beyond 1000000000");
  }
  return length;
}

double LengthMember(const Request& request, std::string_view name) {
  return LengthOf(request.Member(name, JsonValue::Type::kNumber), request.PathOf(name));
}

// A stand-in for a font: every character is as wide as every other.
TooltipMeasure MeasureOf(const Request& request) {
  const Request measure = request.Object("measure");
  const double height = LengthMember(measure, "height");
  const auto fixed = [height](double width) {
    return [width, height](std::string_view text) {
      return TextSize{width * static_cast<double>(text.size()), height};
    };
  };
  return {fixed(LengthMember(measure, "description")), fixed(LengthMember(measure, "value"))};
}

void NumberOut(JsonWriter& answer, std::string_view name, double number) {
  answer.Name(name);
  answer.Number(number);
}

void WriteRow(JsonWriter& answer, const PlacedRow& row) {
  answer.BeginObject();
  NumberOut(answer, "line", static_cast<double>(row.Row.Line));
  answer.Name("description");
  answer.Text(row.Row.Description);
  answer.Name("value");
  answer.Text(row.Row.Value);
  NumberOut(answer, "left", row.Left);
  NumberOut(answer, "top", row.Top);
  NumberOut(answer, "valueLeft", row.ValueLeft);
  answer.EndObject();
}

void Layout(const Request& request, JsonWriter& answer) {
  const TooltipLayout layout = LayOutTooltip(request.Text("text"), MeasureOf(request));
  answer.Name("rows");
  answer.BeginArray();
  for (const PlacedRow& row : layout.Rows) WriteRow(answer, row);
  answer.EndArray();
  NumberOut(answer, "width", layout.Width);
  NumberOut(answer, "height", layout.Height);
}

template <std::size_t Count>
std::array<double, Count> Numbers(const Request& request, std::string_view name) {
  const std::vector<JsonValue>& items = request.Member(name, JsonValue::Type::kArray).Items;
  std::array<double, Count> numbers{};
  if (items.size() != Count) {
    throw RequestError("member \"" + request.PathOf(name) + "\" must hold " +
                       std::to_string(Count) + " numbers");
  }
  for (std::size_t i = 0; i < Count; ++i) {
    if (items[i].Kind != JsonValue::Type::kNumber) {
      throw RequestError("member \"" + request.PathOf(name) + "\" must hold numbers");
    }
    numbers[i] = LengthOf(items[i], request.PathOf(name));
  }
  return numbers;
}

// Of a rectangle on the screen.
int Pixels(double number) {
  constexpr double kMost = 1e6;
  if (number != std::nearbyint(number) || std::fabs(number) > kMost) {
    throw RequestError("member \"taskbar\" must hold whole numbers of pixels");
  }
  return static_cast<int>(number);
}

void Placement(const Request& request, JsonWriter& answer) {
  const auto bar = Numbers<4>(request, "taskbar");
  const auto screen = Numbers<2>(request, "screen");
  const auto window = Numbers<2>(request, "window");
  const std::optional<PixelPoint> place =
      PlaceTooltip({Pixels(bar[0]), Pixels(bar[1]), Pixels(bar[2]), Pixels(bar[3])},
                   {screen[0], screen[1]}, {window[0], window[1]});
  if (!place) {
    answer.Name("keep");
    answer.Truth(true);
    return;
  }
  NumberOut(answer, "x", place->X);
  NumberOut(answer, "y", place->Y);
}

constexpr Operation kTooltipOperations[] = {
    {"tooltipLayout", Layout},
    {"tooltipPlacement", Placement},
};

}  // namespace

std::span<const Operation> TooltipOperations() {
  return kTooltipOperations;
}

}  // namespace quillbox

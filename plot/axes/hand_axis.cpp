#include "plot/axes/hand_axis.h"

#include <algorithm>
#include <cmath>
#include <system_error>
#include <vector>

#include "plot/axes/axis_scale.h"
#include "text/float_chars.h"
#include "text/numbers.h"

namespace velorix {
namespace {

constexpr char Automatic[] = "auto", Logarithmic[] = "log", Backward[] = "reversed";
constexpr int MaxSteps = MaxTicks - 1;

std::string NumberText(const std::optional<double>& value) {
  return value ? PlainText(*value) : Automatic;
}

std::vector<std::string_view> WordsOf(std::string_view text) {
  std::vector<std::string_view> words;
  for (;;) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == text.npos) return words;
    text.remove_prefix(first);
    const std::size_t end = std::min(text.find(' '), text.size());
    words.push_back(text.substr(0, end));
    text.remove_prefix(end);
  }
}

}  // namespace

std::string FaultOf(const HandAxis& hand) {
  const auto& [lower, upper, step, log, reversed] = hand;
  if (log && ((lower && !(*lower > 0)) || (upper && !(*upper > 0))))
    return "The ends of a logarithmic axis are greater than 0.";
  if (lower && upper && !(*lower < *upper)) return "The lower end is below the upper one.";
  if (step && !(*step > 0)) return "The step is greater than 0.";
  if (!lower || !upper || !step) return {};
  const double length = log ? std::log10(*upper) - std::log10(*lower) : *upper - *lower;
  return length / *step <= MaxSteps ? ""
                                    : "An axis has at most " + std::to_string(MaxSteps) + " steps.";
}

std::string HandAxisText(const HandAxis& hand) {
  std::string text =
      NumberText(hand.Lower) + ' ' + NumberText(hand.Upper) + ' ' + NumberText(hand.Step);
  if (hand.Log) text += std::string(" ") + Logarithmic;
  if (hand.Reversed) text += std::string(" ") + Backward;
  return text;
}

std::optional<HandAxis> HandAxisOfText(std::string_view text) {
  const std::vector<std::string_view> words = WordsOf(text);
  if (words.size() < 3) return std::nullopt;
  HandAxis hand;
  if (!TakeHandNumber(words[0], hand.Lower) || !TakeHandNumber(words[1], hand.Upper) ||
      !TakeHandNumber(words[2], hand.Step))
    return std::nullopt;
  for (std::size_t i = 3; i < words.size(); ++i) {
    bool& word = words[i] == Logarithmic ? hand.Log : hand.Reversed;
    if (word || (words[i] != Logarithmic && words[i] != Backward)) return std::nullopt;
    word = true;
  }
  if (!FaultOf(hand).empty()) return std::nullopt;
  return hand;
}

bool TakeHandNumber(std::string_view text, std::optional<double>& value) {
  text = StripBlanks(text);
  if (text.empty() || text == Automatic) return value.reset(), true;
  double number = 0;
  const char* const end = text.data() + text.size();
  const auto read = FromChars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end || !std::isfinite(number)) return false;
  return value = number, true;
}

}  // namespace velorix

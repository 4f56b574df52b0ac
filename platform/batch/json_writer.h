#pragma once

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <string_view>

namespace velorix {

using Json = nlohmann::ordered_json;

/// Writes a JSON object as it comes, a field a line: a full store's JSON is far larger than the
/// store. Names and values are the library's; text that is no UTF-8 gets its replacement character.
class ObjectWriter {
 public:
  /// The object's own lines are indented by `depth` blanks.
  ObjectWriter(std::ostream& out, int depth) : out_(out), depth_(depth) { out_ << '{'; }

  void Add(std::string_view name, const Json& value) {
    Begin(name);
    out_ << Text(value);
  }
  /// A list of `count` elements, a line or more for each; `write(i)`, i from 0, writes one.
  template <class Write>
  void AddList(std::string_view name, int count, Write write) {
    BeginList(name);
    for (int i = 0; i < count; ++i) {
      NextElement();
      write(i);
    }
    EndList();
  }
  /// A list whose elements the caller writes, `NextElement` before each of them.
  void BeginList(std::string_view name) {
    Begin(name);
    out_ << '[';
    listed_ = false;
  }
  void NextElement() {
    NextLine(listed_ ? "," : "", depth_ + 2);
    listed_ = true;
  }
  void EndList() {
    if (listed_) NextLine("", depth_ + 1);
    out_ << ']';
  }
  /// A value that the caller writes.
  void Begin(std::string_view name) {
    NextLine(empty_ ? "" : ",", depth_ + 1);
    empty_ = false;
    out_ << Text(std::string(name)) << ": ";
  }
  void End() {
    NextLine("", depth_);
    out_ << '}';
  }

 private:
  static std::string Text(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
  }
  void NextLine(const char* before, int indent) {
    out_ << before << '\n' << std::string(static_cast<std::size_t>(indent), ' ');
  }

  std::ostream& out_;
  int depth_;
  bool empty_ = true, listed_ = false;
};

}  // namespace velorix

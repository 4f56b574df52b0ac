#include "app/tables/table_lines.h"

#include "text/lines.h"

namespace velorix {
namespace {

std::string Quoted(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == text.npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + "\"";
}

}  // namespace

std::string CsvLine(const std::vector<std::string>& cells) {
  std::string line = Quoted(cells.front());
  for (std::size_t i = 1; i < cells.size(); ++i) line += "," + Quoted(cells[i]);
  return line + "\r\n";
}

std::string TabbedLine(const std::vector<std::string>& cells) {
  std::string line = StripControls(cells.front());
  for (std::size_t i = 1; i < cells.size(); ++i) line += "\t" + StripControls(cells[i]);
  return line + "\n";
}

}  // namespace velorix

#include <gtest/gtest.h>

#include "datafiles/ams_layout.h"
#include "tests/datafiles/temp_folder.h"

namespace velorix {
namespace {

/// The rows of the page's table, as the layout has them.
std::string TableOfLayout() {
  std::ostringstream table;
  ForEachAmsRow([&](const auto& row) {
    table << "| " << row.Offset << " | " << row.Width << " | ";
    if (*row.Name != '\0') table << '`' << row.Name << '`';
    table << " | " << row.Kind << " |\n";
  });
  return table.str();
}

TEST(AmsPage, ItsTableIsTheLayout) {
  const std::string page = BytesOf(VELORIX_SOURCE_DIR "/docs/formats/ams.md");
  const std::string rule = "|---:|---:|---|---|\n";
  const std::size_t begin = page.find(rule);
  ASSERT_NE(begin, std::string::npos);
  const std::size_t from = begin + rule.size();
  EXPECT_EQ(page.substr(from, page.find("\n\n", from) + 1 - from), TableOfLayout());
}

}  // namespace
}  // namespace velorix

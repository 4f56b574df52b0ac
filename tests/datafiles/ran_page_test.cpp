#include <gtest/gtest.h>

#include "datafiles/ran_layout.h"
#include "tests/datafiles/temp_folder.h"

namespace velorix {
namespace {

/// The rows of a table of the page, as a layout has them.
template <class Layout>
std::string TableOf(const Layout& layout) {
  std::ostringstream table;
  ForEachRanRow(layout, [&](const auto& row) {
    table << "| " << row.Offset << " | " << row.Width << " | ";
    if (*row.Name != '\0') table << '`' << row.Name << '`';
    table << " | " << row.Kind << " |\n";
  });
  return table.str();
}

TEST(RanPage, ItsTwoTablesAreTheLayouts) {
  const std::string page = BytesOf(VELORIX_SOURCE_DIR "/docs/formats/ran.md");
  const std::string rule = "|---:|---:|---|---|\n";
  std::size_t at = 0;
  for (const std::string& table : {TableOf(RanHeaderLayout), TableOf(RanSpecimenLayout)}) {
    at = page.find(rule, at);
    ASSERT_NE(at, std::string::npos);
    at += rule.size();
    EXPECT_EQ(page.substr(at, page.find("\n\n", at) + 1 - at), table);
  }
}

}  // namespace
}  // namespace velorix

// The tables of the pages on the binary formats are the layouts that reader and writer walk.

#include <gtest/gtest.h>

#include "datafiles/ams_layout.h"
#include "datafiles/ran_layout.h"
#include "tests/datafiles/temp_folder.h"

namespace velorix {
namespace {

/// The rows of a page's table, as a layout has them.
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

void ExpectTables(const std::string& page, const std::vector<std::string>& tables) {
  const std::string text = BytesOf(VELORIX_SOURCE_DIR "/docs/formats/" + page);
  const std::string rule = "|---:|---:|---|---|\n";
  std::size_t at = 0;
  for (const std::string& table : tables) {
    at = text.find(rule, at);
    ASSERT_NE(at, std::string::npos) << page;
    at += rule.size();
    EXPECT_EQ(text.substr(at, text.find("\n\n", at) + 1 - at), table);
  }
}

TEST(Pages, TablesAreTheLayouts) {
  ExpectTables("ams.md", {TableOf(AmsLayout)});
  ExpectTables("ran.md", {TableOf(RanHeaderLayout), TableOf(RanSpecimenLayout)});
}

}  // namespace
}  // namespace velorix

// The tables of the pages on formats with fixed fields are the layouts that reader and writer walk.

#include <gtest/gtest.h>

#include "datafiles/ams_layout.h"
#include "datafiles/ged_file.h"
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

std::string PageOf(const char* name) {
  return BytesOf(VELORIX_SOURCE_DIR "/docs/formats/" + std::string(name));
}

TEST(Pages, TablesAreTheLayoutsAndGedFieldsLieWithoutGaps) {
  const std::string rule = "|---:|---:|---|---|\n";
  EXPECT_NE(PageOf("ams.md").find(rule + TableOf(AmsLayout) + "\n"), std::string::npos);
  for (const std::string& table : {TableOf(RanHeaderLayout), TableOf(RanSpecimenLayout)})
    EXPECT_NE(PageOf("ran.md").find(rule + table + "\n"), std::string::npos) << table;
  for (const auto fields : {GedHeaderFields(), GedSampleFields()}) {
    int end = 0;
    for (const GedField& field : fields) {
      EXPECT_EQ(field.Offset, end) << field.Name;
      end += field.Width;
      std::ostringstream row;
      row << "| " << field.Offset << " | " << field.Width << " | " << field.Name << " |";
      EXPECT_NE(PageOf("ged.md").find(row.str()), std::string::npos) << row.str();
    }
    EXPECT_EQ(end, GedLineLength);
  }
}

}  // namespace
}  // namespace velorix

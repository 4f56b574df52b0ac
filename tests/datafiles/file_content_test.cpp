#include "datafiles/formats/file_content.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>

#include "tests/datafiles/golden_record.h"
#include "tests/datafiles/temp_folder.h"
#include "text/paths.h"

namespace velorix {
namespace {

FileContent ContentOfText(const std::string& bytes) {
  return ContentOf(std::as_bytes(std::span(bytes)), bytes.size());
}

TEST(FileContent, KnowsEachExampleByItsContentAlone) {
  const std::map<std::string, ContentKind> kinds = {
      {"ams", ContentKind::Ams},  {"ran", ContentKind::Ran},        {"are", ContentKind::Ran},
      {"asc", ContentKind::Text}, {"ged", ContentKind::Geological}, {"AMS", ContentKind::Text},
      {"txt", ContentKind::Text}};
  int files = 0;
  for (const auto& entry :
       std::filesystem::recursive_directory_iterator(VELORIX_SOURCE_DIR "/examples")) {
    const std::string path = Utf8Of(entry.path());
    const auto kind = kinds.find(ExtensionOf(path));
    if (kind == kinds.end() || entry.path().filename() == "CMakeLists.txt") continue;
    ++files;
    EXPECT_EQ(ContentOfText(BytesOf(path)).Kind, kind->second) << path;
  }
  EXPECT_GT(files, 12);
  EXPECT_EQ(ContentOfText(golden::OnDisk()).Kind, ContentKind::Binary);  // no tensor about 1
}

TEST(FileContent, KnowsFilesOfOtherPrograms) {
  using namespace std::string_literals;
  const std::tuple<std::string, ContentKind, std::string> cases[] = {
      {"\x89PNG\r\n\x1A\n"s + std::string(640, '\1'), ContentKind::Foreign, "a PNG picture"},
      {"\xFF\xD8\xFF\xE0"s, ContentKind::Foreign, "a JPEG picture"},
      {"PK\3\4"s, ContentKind::Foreign, "a ZIP archive or an office document"},
      {"%PDF-1.7\n"s, ContentKind::Foreign, "a PDF document"},
      {"Site A\r\nfirst measured on Monday\r\n"s, ContentKind::Text, "a text"},
      {std::string(62, 'x') + "\r\n" + std::string(62, 'y') + "\r\n", ContentKind::Geological,
       "a geological file"},
      {"a\0b"s, ContentKind::Binary, "a binary file"},
      {""s, ContentKind::Unknown, ""},
      {std::string(640, '\xFF'), ContentKind::Unknown, ""}};
  for (const auto& [bytes, kind, name] : cases) {
    EXPECT_EQ(ContentOfText(bytes).Kind, kind) << name;
    EXPECT_EQ(ContentOfText(bytes).Name, name);
  }
}

TEST(FileContent, ASpecimensNameMayBeginAsAnotherFormatDoes) {
  for (const char* name : {"MZ12", "GIF8", "BM1", "Rar!"}) {
    std::string bytes = golden::OnDisk(name);
    for (int i = 0; i < 6; ++i) golden::PutFloat(bytes, 212 + 4 * static_cast<std::size_t>(i), 1);
    golden::PutShort(bytes, 544, 0);
    EXPECT_EQ(ContentOfText(bytes).Kind, ContentKind::Ams) << name;
    EXPECT_NE(ContentOfText(bytes.substr(0, 639)).Kind, ContentKind::Ams) << name;
  }
}

}  // namespace
}  // namespace velorix

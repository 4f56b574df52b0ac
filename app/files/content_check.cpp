#include "app/files/content_check.h"

#include <filesystem>
#include <fstream>
#include <string_view>
#include <vector>

#include "base/fault.h"
#include "datafiles/formats/file_content.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace velorix {
namespace {

FileContent ContentOfFile(const std::string& path) {
  std::vector<std::byte> head(ContentHead);
  std::ifstream in(PathOf(path), std::ios::binary);
  in.read(reinterpret_cast<char*>(head.data()), static_cast<std::streamsize>(head.size()));
  head.resize(static_cast<std::size_t>(in.gcount()));
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(PathOf(path), error);
  return ContentOf(head, error ? 0 : size);
}

bool IsDoubtful(const FileContent& content, const FileKind& kind) {
  if (content.Kind == ContentKind::Unknown) return false;
  // A binary file that is none of the known ones may be an odd one of its kind.
  if (content.Kind == ContentKind::Binary) return kind.Content == ContentKind::Text;
  return content.Kind != kind.Content;
}

bool Reads(const FileKind& kind, const std::string& path, const Settings& settings) {
  RecordArray records;
  try {
    return kind.Read(path, records, settings) && !records.Empty();
  } catch (const Fault&) {
    return false;
  }
}

/// Of kinds with the same content the one of the extension, else the first.
int FilterOfBinary(ContentKind content, int byName) {
  if (byName != 0 && KindOfFilter(byName).Content == content) return byName;
  for (int filter = 1; filter <= std::ssize(FileKinds()); ++filter)
    if (KindOfFilter(filter).Content == content) return filter;
  return 0;
}

int FilterOfText(const std::string& path, const Settings& settings) {
  const int byName = FilterOfExtension(ExtensionOf(path));
  std::vector<int> filters;
  if (byName != 0) filters.push_back(byName);
  for (int filter = 1; filter <= std::ssize(FileKinds()); ++filter)
    if (filter != byName) filters.push_back(filter);
  for (const int filter : filters) {
    const FileKind& kind = KindOfFilter(filter);
    if (kind.Content == ContentKind::Text && Reads(kind, path, settings)) return filter;
  }
  return 0;
}

}  // namespace

std::string ContentDoubt(const Session& session) {
  std::string doubts;
  for (std::size_t i = 0; i < session.Opened.size() && i < session.OpenFiles.size(); ++i) {
    const FileContent content = ContentOfFile(session.OpenFiles[i]);
    if (!IsDoubtful(content, KindOfFilter(session.Opened[i].Filter))) continue;
    doubts += (doubts.empty() ? "" : "; ") + FileNameOf(session.OpenFiles[i]) + " looks like " +
              content.Name;
  }
  if (doubts.empty()) return {};
  return PlainText(session.RecordCount()) + " records read; " + doubts;
}

bool IsPlainlyOther(const std::string& path, const FileKind& kind) {
  return IsDoubtful(ContentOfFile(path), kind);
}

int FilterOfContent(const std::string& path, const Settings& settings, std::string& why) {
  const int byName = FilterOfExtension(ExtensionOf(path));
  const FileContent content = ContentOfFile(path);
  int filter = 0;
  switch (content.Kind) {
    case ContentKind::Text:
      filter = FilterOfText(path, settings);
      break;
    case ContentKind::Unknown:  // the reader of the extension says what is wrong
    case ContentKind::Binary:
      filter = byName;
      break;
    default:
      filter = FilterOfBinary(content.Kind, byName);
      break;
  }
  if (filter != 0) return filter;
  why = *content.Name ? std::string("It looks like ") + content.Name + "." : "It is no data file.";
  return 0;
}

}  // namespace velorix

#include "datafiles/formats/file_content.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "datafiles/formats/ams_layout.h"
#include "datafiles/formats/ged_file.h"
#include "datafiles/formats/ran_layout.h"

namespace velorix {
namespace {

using Bytes = std::span<const std::byte>;

struct Signature {
  std::string_view Start;
  const char* Name;
};
using namespace std::string_view_literals;
constexpr Signature Signatures[] = {
    {"\x89PNG\r\n\x1A\n"sv, "a PNG picture"},
    {"\xFF\xD8\xFF"sv, "a JPEG picture"},
    {"GIF8"sv, "a GIF picture"},
    {"II*\0"sv, "a TIFF picture"},
    {"MM\0*"sv, "a TIFF picture"},
    {"\xD7\xCD\xC6\x9A"sv, "a metafile"},
    {"%PDF-"sv, "a PDF document"},
    {"%!PS"sv, "a PostScript document"},
    {"PK\3\4"sv, "a ZIP archive or an office document"},
    {"\xD0\xCF\x11\xE0"sv, "an office document"},
    {"\x1F\x8B"sv, "a compressed file"},
    {"7z\xBC\xAF\x27\x1C"sv, "a compressed file"},
    {"Rar!"sv, "a compressed file"},
    {"\x7F"
     "ELF"sv,
     "a program"},
    {"MZ"sv, "a program"},
    {"SQLite format 3\0"sv, "a database"},
    {"{\\rtf"sv, "a text document"},
    {"<!DOCTYPE html"sv, "a web page"},
    {"<html"sv, "a web page"},
    {"<?xml"sv, "an XML document"},
};

std::string_view TextOf(Bytes bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

bool IsTextByte(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code >= 32 || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\x1A';
}
/// Printable, with letters beyond ASCII no more than accents take.
bool IsText(std::string_view text) {
  const auto beyond = std::count_if(text.begin(), text.end(),
                                    [](char c) { return static_cast<unsigned char>(c) >= 128; });
  return std::all_of(text.begin(), text.end(), IsTextByte) && 4 * beyond <= std::ssize(text);
}

/// A name as files hold it: printable, then blanks or zeros.
bool IsName(std::string_view field) {
  const std::size_t end = std::min(field.find('\0'), field.size());
  return std::all_of(field.begin(), field.begin() + static_cast<std::ptrdiff_t>(end),
                     [](char c) { return static_cast<unsigned char>(c) >= 32; }) &&
         field.find_first_not_of('\0', end) == field.npos;
}

/// Six numbers of a normed tensor: the principal ones about 1.
bool IsTensor(const std::byte* at) {
  double sum = 0;
  for (int i = 0; i < 6; ++i) {
    const float k = LoadLittle<float>(at + 4 * i);
    if (!std::isfinite(k) || std::fabs(k) > 100) return false;
    if (i < 3) sum += static_cast<double>(k);
  }
  return sum == 0 || (sum > 0.03 && sum < 30);
}

bool IsAms(Bytes head, std::uintmax_t size) {
  constexpr int Name = 0, HasOrientation = 90, Tensor = 212, NoSpecimen = 544;
  if (head.size() < AmsRecordSize || size % AmsRecordSize != 0) return false;
  const auto isFlag = [&](int at) {
    const auto flag = LoadLittle<std::int16_t>(head.data() + at);
    return flag == 0 || flag == -1;
  };
  return IsName(TextOf(head.subspan(Name, 20))) && isFlag(HasOrientation) && isFlag(NoSpecimen) &&
         IsTensor(head.data() + Tensor);
}

bool IsRan(Bytes head, std::uintmax_t size) {
  constexpr int Site = 2, Tensor = 20;
  if (head.size() < 2 * RanRecordSize || size % RanRecordSize != 0) return false;
  const auto count = static_cast<std::uintmax_t>(LoadLittle<std::uint16_t>(head.data()));
  return count == size / RanRecordSize + 1 && IsName(TextOf(head.subspan(Site, 16))) &&
         IsTensor(head.data() + RanRecordSize + Tensor);
}

/// Lines of the length that geological files have.
bool IsGeological(std::string_view text) {
  int lines = 0;
  for (std::size_t end; (end = text.find('\n')) != text.npos;
       text.remove_prefix(end + 1), ++lines) {
    const std::size_t length = end > 0 && text[end - 1] == '\r' ? end - 1 : end;
    if (length != GedLineLength) return false;
  }
  return lines >= 2;
}

}  // namespace

FileContent ContentOf(Bytes head, std::uintmax_t size) {
  head = head.first(std::min(head.size(), ContentHead));
  if (IsAms(head, size)) return {ContentKind::Ams, "an AMS file"};
  if (IsRan(head, size)) return {ContentKind::Ran, "a RAN file"};
  const std::string_view text = TextOf(head);
  for (const Signature& signature : Signatures)
    if (text.starts_with(signature.Start)) return {ContentKind::Foreign, signature.Name};
  if (text.empty()) return {};
  if (!IsText(text))
    return text.find('\0') == text.npos ? FileContent{}
                                        : FileContent{ContentKind::Binary, "a binary file"};
  if (IsGeological(text)) return {ContentKind::Geological, "a geological file"};
  return {ContentKind::Text, "a text"};
}

}  // namespace velorix

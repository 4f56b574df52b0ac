#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace velorix {

/// What the content of a file plainly is. `Foreign` is a known kind of other programs' files.
enum class ContentKind { Unknown, Ams, Ran, Geological, Text, Binary, Foreign };

struct FileContent {
  ContentKind Kind = ContentKind::Unknown;
  const char* Name = "";  // "a PNG picture"; empty when unknown
};

/// So many first bytes are looked at.
inline constexpr std::size_t ContentHead = 4096;

/// What a file of `size` bytes that begins with `head` looks like. AMS and RAN files go before all
/// others: the name of a specimen may begin as another format does.
FileContent ContentOf(std::span<const std::byte> head, std::uintmax_t size);

}  // namespace velorix

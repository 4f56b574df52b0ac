#pragma once

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/datafiles/temp_folder.h"

namespace velorix {

/// Expects the bytes of a golden file of a room's tests. What changes them on purpose is looked at
/// and approved: VELORIX_APPROVE=1 writes the golden files again.
inline void ExpectGolden(const std::string& room, const std::string& name,
                         const std::string& bytes) {
  const std::string path = VELORIX_SOURCE_DIR "/tests/" + room + "/golden/" + name;
  if (std::getenv("VELORIX_APPROVE")) PutFile(path, bytes);
  EXPECT_TRUE(bytes == BytesOf(path)) << name << " is otherwise than approved";
}

}  // namespace velorix

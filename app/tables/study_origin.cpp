#include "app/tables/study_origin.h"

namespace velorix {

std::vector<std::string> OriginHeader() {
  return {"Level", "Bootstrap", "Replicates", "Seed", "Heading"};
}

std::vector<std::string> OriginCells(const StudyOrigin& origin) {
  const BootChoice& boot = origin.Boot;
  const bool any = boot.Method != BootMethod::None;
  return {LevelText(origin.Level), WordOf(boot.Method), any ? std::to_string(boot.Replicates) : "",
          any && boot.Seed ? std::to_string(*boot.Seed) : "", origin.Heading};
}

}  // namespace velorix

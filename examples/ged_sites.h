#pragma once

#include <utility>

#include "datafiles/formats/ged_file.h"
#include "examples/example_sites.h"

namespace velorix::examples {

/// The granite as it came from the instrument: nobody has typed its field measurements yet.
inline ExampleFile UnorientedFile() {
  ExampleFile file = GraniteFile();
  file.Name = "granite_unoriented.ams";
  for (SpecimenRecord& r : file.Records) {
    r.HasCoor[2] = false;
    r.OrientAz = r.OrientInc = 0;
    r.FoliName = r.LineName = Array1<std::string, 4>();
    r.FoliAz = r.FoliDip = r.LineTrend = r.LinePlunge = Array1<float, 4>();
  }
  return file;
}

/// Its field measurements; the loose blocks have none. Codes are one letter here.
inline std::string GraniteGedBytes() {
  const ExampleFile granite = GraniteFile();
  RecordArray samples;
  for (SpecimenRecord r : granite.Records) {
    if (!r.HasCoor[2]) continue;
    for (int slot = 1; slot <= 2; ++slot) {
      if (!r.FoliName[slot].empty()) r.FoliName[slot] = slot == 1 ? "S" : "T";
      if (!r.LineName[slot].empty()) r.LineName[slot] = slot == 1 ? "L" : "M";
    }
    std::swap(r.Lon, r.Lat);  // as the reader takes them
    samples.Add(r);
  }
  return GedText(samples);
}

}  // namespace velorix::examples

#pragma once

#include "datafiles/formats/ams_file.h"
#include "datafiles/formats/ams_layout.h"
#include "examples/example_record.h"
#include "examples/folded_sites.h"
#include "examples/granite_site.h"
#include "examples/published_sites.h"
#include "examples/u1359b_tensors.h"

namespace velorix::examples {

inline ExampleFile JelinekFile() {
  ExampleFile file{"jelinek1978.ams", {}};
  for (const PublishedTensor& t : Jelinek1978) {
    SpecimenRecord r = NewRecord(t.Name, "Jelinek 1978");
    Orient(r, 0, 0);
    constexpr double Assumed = 0.002;  // of the measurement; the paper gives none
    FillBlock(InPhaseOf(r), TensorOf(t.K), 1e-3, Assumed);
    file.Records.push_back(r);
  }
  return file;
}

inline ExampleFile Tr245File() {
  ExampleFile file{"tr245.ams", {}};
  for (const PublishedSpecimen& s : Tr245) {
    SpecimenRecord r = NewRecord(s.Tensor.Name, "TR245");
    Orient(r, s.Azimuth, s.Plunge);
    r.FoliName[1] = "S0";
    r.FoliAz[1] = Tr245DipDirection;
    r.FoliDip[1] = Tr245Dip;
    FillBlock(InPhaseOf(r), TensorOf(s.Tensor.K), 1e-3, s.Tensor.Sigma);
    file.Records.push_back(r);
  }
  return file;
}

/// The same eight specimens as a program would hand them over that has turned the tensors itself.
inline ExampleFile GeographicFile() {
  ExampleFile file = Tr245File();
  file.Name = "geographic.ams";
  for (std::size_t i = 0; i < file.Records.size(); ++i) {
    file.Records[i].SourceProgram = "Marlo";
    FillBlock(InPhaseOf(file.Records[i]), TensorOf(Tr245[i].Geographic), 1e-3,
              Tr245[i].Tensor.Sigma);
  }
  return file;
}

inline ExampleFile DikeFile() {
  ExampleFile file{"dike.ams", {}};
  for (const PublishedBulk& s : Dike) {
    SpecimenRecord r = NewRecord(s.Tensor.Name, "Scripps Beach");
    Orient(r, 0, 0);
    r.Lon = -117.25f;
    r.Lat = 32.87f;
    r.Rock = "Dike";
    r.Regio = "California";
    FillBlock(InPhaseOf(r), TensorOf(s.Tensor.K), s.Km, s.Tensor.Sigma);
    file.Records.push_back(r);
  }
  return file;
}

/// A core without a known azimuth: its own frame stands in for the geographic one, so that down is
/// down and only the declinations mean nothing.
inline ExampleFile CoreFile() {
  ExampleFile file{"u1359b.ams", {}};
  for (const PublishedTensor& t : U1359b) {
    SpecimenRecord r = NewRecord(t.Name, "U1359B");
    Orient(r, 0, 0);
    r.Lon = 143.96f;
    r.Lat = -64.9f;
    r.Rock = "Mud";
    r.Regio = "Antarctica";
    FillBlock(InPhaseOf(r), TensorOf(t.K), 3e-4, t.Sigma);
    file.Records.push_back(r);
  }
  return file;
}

inline std::vector<ExampleFile> ExampleFiles() {
  return {JelinekFile(), Tr245File(),   GeographicFile(), DikeFile(),
          CoreFile(),    GraniteFile(), FoldFile(true),   FoldFile(false)};
}

/// The bytes of a file as an instrument's program writes it. Our own writer leaves the standard
/// deviations of the principal values out; an instrument does not.
inline std::string FileBytes(const ExampleFile& file) {
  std::vector<std::byte> bytes(file.Records.size() * AmsRecordSize);
  for (std::size_t i = 0; i < file.Records.size(); ++i) {
    const SpecimenRecord& record = file.Records[i];
    std::byte* const at = bytes.data() + i * AmsRecordSize;
    EncodeAmsRecord(record, at);
    const ams::F32s<&SpecimenRecord::KSD> deviations{{"KSD", 200, 12}};
    const ams::F32s<&SpecimenRecord::KSDIm> deviationsIm{{"KSDIm", 344, 12}};
    deviations.Store(at + deviations.Offset, record);
    deviationsIm.Store(at + deviationsIm.Offset, record);
  }
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace velorix::examples

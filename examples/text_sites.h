#pragma once

#include "examples/example_sites.h"
#include "tensor/directions.h"
#include "text/numbers.h"

namespace velorix::examples {

// The specimens of tr245.ams as the text formats would bring them. No program of ours writes these.

/// Axis `k` of a block as declination and inclination of the lower hemisphere.
inline Direction AxisOf(const SpecimenRecord& r, int k) {
  Vector<3> v;
  for (int i = 1; i <= 3; ++i) v[i] = r.Vec[i][k];
  const DirectionAndLength d = VectorToDirection(v);
  return LowerHemisphere({d.Dec, d.Inc});
}

/// Three lines a specimen, from the smallest principal susceptibility to the largest, in 10^-6 SI.
inline std::string Si2bText() {
  std::string text;
  for (const SpecimenRecord& r : GeographicFile().Records)
    for (int k = 3; k >= 1; --k) {
      const Direction d = AxisOf(r, k);
      text += (k == 3 ? r.Name : std::string(r.Name.size(), '-')) + " " + std::to_string(4 - k) +
              FormatNumber(1e6 * r.Km * r.K[k], "0.00") + FormatNumber(d.Dec, "0.0") +
              FormatNumber(d.Inc, "0.0") + "\r\n";
    }
  return text;
}

/// A line a specimen: the tensor of trace 1, mean susceptibility and its error, the field.
inline std::string SpinText() {
  std::string text;
  for (const SpecimenRecord& r : Tr245File().Records) {
    text += r.Name;
    for (int i = 1; i <= 6; ++i) text += " " + PlainText(r.Tensor[i] / 3);
    text +=
        " " + PlainText(r.KmSD) + " " + PlainText(r.Km) + " 0 0 " + PlainText(r.Field) + " 0 0\r\n";
  }
  return text;
}

/// A printed report, a block a specimen.
inline std::string AscText() {
  const auto three = [](const Number& a, const Number& b, const Number& c, const char* picture) {
    return FormatNumber(a, picture) + " " + FormatNumber(b, picture) + " " +
           FormatNumber(c, picture);
  };
  std::string text;
  for (const SpecimenRecord& r : Tr245File().Records) {
    const std::string codes = "S0  " + PlainText(r.FoliAz[1]) + "/" + PlainText(r.FoliDip[1]);
    const std::string angles = three(r.E[1], r.E[2], r.E[3], "0.0");
    const auto direction = [&](bool dec) {
      std::string line = "  ";
      for (int k = 1; k <= 3; ++k)
        line += FormatNumber(dec ? AxisOf(r, k).Dec : AxisOf(r, k).Inc, "0") + " ";
      return line;
    };
    const char* const between = "\r\n\r\n";
    text += (r.Name + std::string(16, ' ')).substr(0, 16) + " ANISOTROPY OF SUSCEPTIBILITY" +
            between + "\r\n";
    text += "Azi " + PlainText(r.OrientAz) + "  Orient.par. :  6  0  6  0  Dem.fac. :  0" + between;
    text += "Dip " + PlainText(r.OrientInc) + "  Demag factor  : NO  Holder 0  T1 T2 0\r\n";
    text += "\r\n  Foliations and lineations\r\n\r\n\r\n" + codes + "  0/0  00  0/0  0/0" + between;
    text += "\r\nField   Mean      Standard  Tests for anisotropy\r\n";
    text += "[A/m]   susc.     error     F  F12  F23\r\n\r\n\r\n";
    text += PlainText(r.Field) + "  " + PlainText(r.Km) + "  " + PlainText(r.KmSD) + "  " +
            three(r.FTest[0], r.FTest[1], r.FTest[2], "0.0") + "\r\n";
    text += "\r\nPrincipal susceptibilities     Confidence angles\r\n\r\n\r\n\r\n\r\n";
    text += three(r.K[1], r.K[2], r.K[3], "0.0000") + "  " +
            three(r.E2[1], r.E2[2], r.E2[3], "0.0") + between;
    text += "+-" + three(r.KSD[1], r.KSD[2], r.KSD[3], "0.0000") + "  " + angles + "\r\n";
    for (int line = 1; line <= 11; ++line) text += line == 6 ? "Tensor\r\n" : "\r\n";
    text += "Specimen D" + direction(true) +
            three(r.Tensor[1], r.Tensor[2], r.Tensor[3], "0.00000") + "\r\n";
    text += "system   I" + direction(false) +
            three(r.Tensor[4], r.Tensor[5], r.Tensor[6], "0.00000") + between + "\f\r\n";
  }
  return text;
}

struct TextExample {
  const char* Name;
  std::string (*Text)();
};
/// In a folder of their own: only its capitals tell the second from an AMS file, and stepping
/// through a folder takes a name in any case.
inline constexpr TextExample TextExamples[] = {{"formats/tr245.asc", AscText},
                                               {"formats/tr245.AMS", Si2bText},
                                               {"formats/tr245.txt", SpinText}};

}  // namespace velorix::examples

#pragma once

#include <string>

namespace velorix {

// The calculator for planes and lines.

enum class CalculatorMode { Lineations, Foliations };

/// What the labels say: the kind of the directions given and of the one computed, and the note
/// where the two given are parallel.
struct CalculatorLabels {
  const char *Input1, *Input2, *Output, *Parallel;
};
CalculatorLabels LabelsOf(CalculatorMode mode);

/// Texts of the input fields, degrees: trend and plunge of a lineation, dip direction and dip of a
/// foliation.
struct CalculatorInput {
  std::string Dec1, Inc1, Dec2, Inc2;
};
/// Texts of the results, with one decimal. `Angle` is "smaller (larger)". `Note` is empty but for
/// parallel directions, equal or opposite: these have no plane and no line in common, so that `Dec`
/// and `Inc` mean nothing.
struct CalculatorResult {
  std::string Dec, Inc, Angle, Note;
};

/// The plane through two lineations or the line in which two foliations meet, and the angle that
/// the two enclose. Texts are read as 32-bit floats by their numeric prefix. "Overflow" beyond
/// that range.
CalculatorResult PlaneFromLineations(CalculatorMode mode, const CalculatorInput& input);

}  // namespace velorix

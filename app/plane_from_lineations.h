#pragma once

#include <string>

namespace velorix {

// The calculator for planes and lines.

enum class CalculatorMode { Lineations, Foliations };

/// What the labels say: the kind of the directions given and of the one computed.
struct CalculatorLabels {
  const char *Input1, *Input2, *Output;
};
CalculatorLabels LabelsOf(CalculatorMode mode);

/// Texts of the input fields, degrees: trend and plunge of a lineation, dip direction and dip of a
/// foliation.
struct CalculatorInput {
  std::string Dec1, Inc1, Dec2, Inc2;
};
/// Texts of the results, with one decimal. `Angle` is "smaller (larger)".
struct CalculatorResult {
  std::string Dec, Inc, Angle;
};

/// The plane through two lineations or the line in which two foliations meet, and the angle that
/// the two enclose. Texts are read as 32-bit floats by their numeric prefix. "Overflow" beyond
/// that range; "Invalid procedure call or argument" for parallel directions whose cosine rounds
/// beyond 1.
CalculatorResult PlaneFromLineations(CalculatorMode mode, const CalculatorInput& input);

}  // namespace velorix

#pragma once

#include <string>

#include "store/session.h"

namespace velorix {

/// One of the eight rows in which the factors in use are chosen.
struct FactorRow {
  std::string Name;   // the user's name for the factor, taken as it is
  int Position = -1;  // in the list of formulas, from 0; -1 for no selection
};
using FactorRows = Array1<FactorRow, FactorSlots>;

/// The rows for the settings; an index that is not in the list, 0 for one, selects nothing.
FactorRows FactorRowsOf(const Settings& settings);

/// Takes the rows into the settings and writes them. The values in the records stay as they are.
/// A file that can't be written is a fault; the session has the choice then.
void ChangeFactors(Session& session, const FactorRows& rows);

/// What the letters in the formulas mean.
inline constexpr char FactorLetters[] =
    "k1, k2, k3: principal susceptibilities, the greatest first; k: their mean\n"
    "n1, n2, n3: their natural logarithms; n: the mean of these";

}  // namespace velorix

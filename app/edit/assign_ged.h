#pragma once

#include <string>
#include <vector>

#include "app/edit/edit_grid.h"

namespace velorix {

/// What "AssignGED" found.
struct GedMatches {
  std::vector<char> Rows;                // for each row of the grid whether it was matched
  int Count = 0;                         // of matched rows
  int Strikes = 0;                       // that entered as dip directions
  std::vector<std::string> Without;      // names of records that no sample has
  std::vector<std::string> CaseDiffers;  // those of them that a sample has in other letter cases
  std::vector<std::string> Repeated;     // names of samples behind an earlier one of the same name
};

/// Puts into each record's row, as one step, what the first sample of exactly the record's name
/// says: the orientation unless both angles are 0, and each slot's foliation and lineation when one
/// of the two has a code; the code "0" is none. A foliation with a code is a strike in the sample
/// when its P4 is 90, and enters as a dip direction: the strike and 90, less 360 from 360 on. Rows
/// without a sample stay. Linear in records and samples.
GedMatches AssignGed(EditGrid& grid, const RecordArray& records, const RecordArray& samples);
/// What they come to, in one line.
std::string MatchLine(const GedMatches& matches);

/// The same straight to the store: what the window does without its user.
GedMatches AssignGedToStore(RecordArray& records, const RecordArray& samples);

/// The first `limit` names, and how many more there are.
std::string ListedNames(const std::vector<std::string>& names, std::size_t limit,
                        const char* between);

}  // namespace velorix

#pragma once

#include "app/velorix.h"

namespace velorix {

/// Asks for a name and writes the whole store there, disregarded records too.
void SaveAs(Velorix& velorix);
/// As `SaveAs`, with the selected records only.
void SaveSelectedAs(Velorix& velorix);
/// Writes the store over the open file, as a RAN file whatever the file was.
void SaveFile(Velorix& velorix);

}  // namespace velorix

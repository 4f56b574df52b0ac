#pragma once

namespace velorix {

inline constexpr char ProgramTitle[] = "Velorix5";
inline constexpr char ReleaseLine[] = "06-April-2018";

/// The program's version, as in "5.0.0".
extern const char* const Version;

}  // namespace velorix

#pragma once

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "app/state/host.h"

namespace velorix {

/// Full path of the running program, UTF-8; from the system where it says so, else from `argv0`.
std::string ExecutablePath(const std::string& argv0);

/// What the program asks of this system. `AppFolder` is the folder of the executable when it can be
/// written and is no installation's, otherwise the user's data folder for this program, which is
/// made if it can be. An installation's is the `bin` of a prefix that has `share/velorix` too.
/// `DataRoot` is Zelmor/Data in the user's home, on Windows the fixed C:\Zelmor\Data.
Host MakeHost(const std::string& executablePath);

/// Waits until what was written to the file is on the device. No error where the device or the file
/// system has no such operation.
std::error_code FlushToDevice(const std::filesystem::path& path);

/// Names of the regular files in `folder`, but for hidden ones, with `extension`, in any case, in
/// the order in which file dialogs show them: `NameBefore`. A folder that can't be read has none.
std::vector<std::string> ListFolder(const std::string& folder, const std::string& extension);

/// Whether name `a` stands before `b`: letters regardless of case, runs of digits by their value.
bool NameBefore(const std::string& a, const std::string& b);

}  // namespace velorix

// Reading the inputs of a command: a file, or standard input for "-".
#pragma once

#include <string>
#include <vector>

namespace varnex::cli {

// The name under which an input is reported: the path, or "<stdin>" for "-".
std::string DisplayName(const std::string& path);

// The whole content of the file, or of standard input for "-". A file that cannot be read is a
// Failure naming the reason ("doc.xml: No such file or directory").
std::string ReadInput(const std::string& path);

// Standard input can be read only once: more than one "-" among the paths is a UsageError.
void RequireStandardInputOnce(const std::vector<std::string>& paths);

}  // namespace varnex::cli

// The commands of the varnex tool that read and transform transport documents.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace varnex::cli {

// Runs one command on its arguments (files, "-" for standard input). Answers the exit status;
// automation errors reach the caller.
int RunDocumentCommand(const std::string& command, const std::vector<std::string>& args, std::ostream& out,
                       std::ostream& err);

// True for the names RunDocumentCommand knows.
bool IsDocumentCommand(const std::string& command);

}  // namespace varnex::cli

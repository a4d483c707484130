#include "cli/output.hpp"

#include <cerrno>
#include <cstring>
#include <iostream>

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <unistd.h>

#include "cli/failures.hpp"

namespace varnex::cli {

Output::Output(const std::string& path) : path_(path == "-" ? "" : path), stream_(&std::cout) {
  if (path_.empty()) return;
  file_.open(path_, std::ios::binary | std::ios::trunc);
  if (!file_) throw Failure(fmt::format("{}: {}", path_, std::strerror(errno)));
  stream_ = &file_;
}

bool Output::IsTerminal() const { return path_.empty() && isatty(STDOUT_FILENO) == 1; }

void Output::Finish() {
  stream_->flush();
  if (!*stream_) throw Failure(fmt::format("{}: the output could not be written", path_.empty() ? "<stdout>" : path_));
}

void AddOutputOption(CLI::App& command, std::string& path) {
  command.add_option("-o,--output", path, "write to FILE instead of standard output")->option_text("FILE");
}

}  // namespace varnex::cli

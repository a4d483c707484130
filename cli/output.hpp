// Where a command writes: standard output, or the file named with -o.
#pragma once

#include <fstream>
#include <ostream>
#include <string>

namespace CLI {
class App;
}

namespace varnex::cli {

class Output {
 public:
  // "" or "-": standard output. A file that cannot be opened is a Failure naming the reason.
  explicit Output(const std::string& path);
  std::ostream& stream() { return *stream_; }
  // True when the output is a terminal (colour is then worth writing).
  bool IsTerminal() const;
  // Flushes; a write that failed is a Failure.
  void Finish();

 private:
  std::string path_;
  std::ofstream file_;
  std::ostream* stream_;
};

// Adds "-o,--output FILE" to a command.
void AddOutputOption(CLI::App& command, std::string& path);

}  // namespace varnex::cli

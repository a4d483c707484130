// What the library needs for a loaded document, to compare the varnex tool's peak memory with:
// reads a file into a string, loads it through TransportDoc, releases the string, and prints
// the peak and the current resident memory of the process (Linux, from /proc/self/status) and
// the time the load took.
//
//   document_memory FILE
#include <chrono>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "varnex/transport.hpp"

namespace {

// A "VmHWM:" or "VmRSS:" line of /proc/self/status, in kB.
long StatusKilobytes(const std::string& field) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind(field, 0) == 0) return std::stol(line.substr(field.size()));
  }
  return -1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: document_memory FILE\n";
    return 2;
  }
  const long before = StatusKilobytes("VmRSS:");
  varnex::Transport transport;
  const auto start = std::chrono::steady_clock::now();
  {
    std::ifstream file(argv[1], std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    transport.TransportDoc(text);
  }
  const std::chrono::duration<double> load = std::chrono::steady_clock::now() - start;
  std::cout << "components at the top: " << transport.CountCompChildren(0) << "\n"
            << "load: " << load.count() << " s\n"
            << "resident before: " << before << " kB\n"
            << "resident with the loaded document: " << StatusKilobytes("VmRSS:") << " kB\n"
            << "peak while loading: " << StatusKilobytes("VmHWM:") << " kB\n";
  return 0;
}

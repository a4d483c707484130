#include "cli/input_file.hpp"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>

#include <fmt/format.h>

#include "cli/failures.hpp"

namespace varnex::cli {
namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

[[noreturn]] void FailReading(const std::string& path, int error) {
  throw Failure(fmt::format("{}: {}", DisplayName(path), std::strerror(error)));
}

// Reads what is left of the stream, in blocks (its size is not known beforehand).
std::string ReadAll(std::FILE* file, const std::string& path) {
  std::string text;
  std::size_t used = 0;
  for (;;) {
    text.resize(used + (used < (1u << 16) ? (1u << 16) : used));
    const std::size_t got = std::fread(text.data() + used, 1, text.size() - used, file);
    used += got;
    if (used < text.size()) break;
  }
  if (std::ferror(file)) FailReading(path, errno);
  text.resize(used);
  return text;
}

}  // namespace

std::string DisplayName(const std::string& path) { return path == "-" ? "<stdin>" : path; }

std::string ReadInput(const std::string& path) {
  if (path == "-") return ReadAll(stdin, path);
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) FailReading(path, EISDIR);
  std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
  if (!file) FailReading(path, errno);
  // A regular file is read into a string of its exact size: no spare capacity beside the text.
  const auto size = std::filesystem::file_size(path, error);
  if (error || size == 0) return ReadAll(file.get(), path);
  std::string text(size, '\0');
  const std::size_t got = std::fread(text.data(), 1, text.size(), file.get());
  if (std::ferror(file.get())) FailReading(path, errno);
  text.resize(got);
  return text;
}

void RequireStandardInputOnce(const std::vector<std::string>& paths) {
  int readers = 0;
  for (const std::string& path : paths) readers += path == "-" ? 1 : 0;
  if (readers > 1) throw UsageError("standard input (-) can be read only once");
}

}  // namespace varnex::cli

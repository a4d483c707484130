#include "cli/component_path.hpp"
#include "cli/upper_name.hpp"

#include <algorithm>
#include <charconv>
#include <unordered_map>

#include <fmt/format.h>

#include "cli/failures.hpp"

namespace varnex::cli {
namespace {

// Splits "LINE[2]" into its name and position (1 when no position is given; 0 when it is not a number).
std::pair<std::string, long> ParseStep(std::string_view step) {
  long position = 1;
  if (step.ends_with("]")) {
    const std::size_t open = step.rfind('[');
    if (open != std::string_view::npos) {
      const std::string_view digits = step.substr(open + 1, step.size() - open - 2);
      const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), position);
      if (error != std::errc() || end != digits.data() + digits.size()) position = 0;
      step = step.substr(0, open);
    }
  }
  return {UpperName(step), position};
}

}  // namespace

std::vector<std::string> StepsFor(const std::vector<std::string>& names) {
  std::unordered_map<std::string_view, long> totals;
  for (const std::string& name : names) ++totals[name];
  std::unordered_map<std::string_view, long> seen;
  std::vector<std::string> steps;
  steps.reserve(names.size());
  for (const std::string& name : names) {
    const long position = ++seen[name];
    steps.push_back(totals[name] > 1 ? fmt::format("{}[{}]", name, position) : name);
  }
  return steps;
}

std::vector<Child> ChildrenOf(Transport& transport, Long parent) {
  const ChildRange range = transport.Children(parent);
  std::vector<Child> children;
  children.reserve(static_cast<std::size_t>(std::max<Long>(range.size(), 0)));
  std::vector<std::string> names;
  for (ChildInfo info : range) {
    names.push_back(info.name);
    children.push_back({info.handle, std::move(info.name), info.status, info.type, {}});
  }
  std::vector<std::string> steps = StepsFor(names);
  for (std::size_t i = 0; i < children.size(); ++i) children[i].step = std::move(steps[i]);
  return children;
}

Long ResolvePath(Transport& transport, std::string_view path) {
  Long handle = 0;
  std::string walked;
  std::size_t at = 0;
  while (at < path.size()) {
    if (path[at] == '/') {
      ++at;
      continue;
    }
    const std::size_t end = std::min(path.find('/', at), path.size());
    const std::string_view step = path.substr(at, end - at);
    const auto [name, position] = ParseStep(step);
    walked += '/';
    walked += step;
    Long found = 0;
    long seen = 0;
    for (const ChildInfo& child : transport.Children(handle)) {
      if (UpperName(child.name) == name && ++seen == position) {
        found = child.handle;
        break;
      }
    }
    if (found == 0) throw Failure(fmt::format("no component at {}", walked));
    handle = found;
    at = end;
  }
  return handle;
}

}  // namespace varnex::cli

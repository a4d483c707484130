// varnex validate FILE: every problem that keeps the library from reading the document as its
// writer meant, with its place and path; exit 1 when there is an error, 0 with warnings only.
#include <memory>
#include <string>

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <pugixml.hpp>

#include "cli/commands.hpp"
#include "cli/document_checks.hpp"
#include "cli/document_text.hpp"
#include "cli/failures.hpp"
#include "cli/input_file.hpp"
#include "cli/output.hpp"

namespace varnex::cli {
namespace {

struct ValidateOptions {
  std::string file;
  std::string output;
};

// Line and column of offsets that mostly come in increasing order: each is counted on from the last.
class PositionFinder {
 public:
  explicit PositionFinder(std::string_view text) : text_(text) {}
  TextPosition At(std::size_t offset) {
    if (offset < offset_) {
      offset_ = 0;
      position_ = {1, 1};
    }
    const TextPosition step = PositionOf(text_.substr(offset_), offset - offset_);
    position_ = step.line > 1 ? TextPosition{position_.line + step.line - 1, step.column}
                              : TextPosition{position_.line, position_.column + step.column - 1};
    offset_ = offset;
    return position_;
  }

 private:
  std::string_view text_;
  std::size_t offset_ = 0;
  TextPosition position_{1, 1};
};

int RunValidate(const ValidateOptions& options) {
  const std::string name = DisplayName(options.file);
  const std::string text = ReadInput(options.file);
  CheckWellFormed(text, name);
  pugi::xml_document document;
  document.load_buffer(text.data(), text.size(),
                       pugi::parse_default | pugi::parse_declaration | pugi::parse_doctype | pugi::parse_pi |
                           pugi::parse_comments,
                       pugi::encoding_utf8);
  Output output(options.output);
  std::ostream& out = output.stream();
  PositionFinder positions(text);
  long errors = 0, warnings = 0;
  for (const Finding& finding : CheckDocument(document)) {
    (finding.error ? errors : warnings) += 1;
    out << name;
    if (finding.offset >= 0) {
      const TextPosition at = positions.At(static_cast<std::size_t>(finding.offset));
      out << ':' << at.line << ':' << at.column;
    }
    out << (finding.error ? ": error: " : ": warning: ");
    if (!finding.path.empty()) out << finding.path << ": ";
    out << finding.what << '\n';
  }
  out << fmt::format("{}: {} error{}, {} warning{}\n", name, errors, errors == 1 ? "" : "s", warnings,
                     warnings == 1 ? "" : "s");
  output.Finish();
  return errors > 0 ? kExitFailure : 0;
}

}  // namespace

void AddValidateCommand(CLI::App& app, Action& action) {
  auto options = std::make_shared<ValidateOptions>();
  CLI::App* command = app.add_subcommand("validate", "check that the library reads the document as its writer meant");
  command->add_option("FILE", options->file, "the document (- for standard input)")->required();
  AddOutputOption(*command, options->output);
  command->callback([&action, options] { action = [options] { return RunValidate(*options); }; });
}

}  // namespace varnex::cli

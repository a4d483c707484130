#include "cli/document_loader.hpp"

#include <fmt/format.h>

#include "cli/document_text.hpp"
#include "cli/failures.hpp"
#include "cli/input_file.hpp"

namespace varnex::cli {

std::string ReadDocumentText(const std::string& path) {
  std::string text = ReadInput(path);
  CheckWellFormed(text, DisplayName(path));
  DropProlog(text);
  return text;
}

std::unique_ptr<Transport> LoadDocument(const std::string& path) {
  auto transport = std::make_unique<Transport>();
  {
    const std::string text = ReadDocumentText(path);
    transport->TransportDoc(text);
  }
  if (transport->CountCompChildren(0) == 0) {
    Warn(fmt::format("{}: no components under the root <{}>", DisplayName(path), transport->RootName()));
  }
  return transport;
}

std::string ReadIncomingText(const std::string& path, Transport& target) {
  std::string text = ReadDocumentText(path);
  const std::string root = RootElementName(text);
  if (root != target.RootName()) {
    throw Failure(fmt::format("{}: the root <{}> is not the document's root <{}>: nothing would be taken from it",
                              DisplayName(path), root, target.RootName()));
  }
  return text;
}

}  // namespace varnex::cli

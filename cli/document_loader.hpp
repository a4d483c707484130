// Loading the documents that commands work on.
#pragma once

#include <memory>
#include <string>

#include "varnex/transport.hpp"

namespace varnex::cli {

// The text of the input, checked and with its prolog left out, ready for the library.
std::string ReadDocumentText(const std::string& path);

// A Transport holding the document of the input. The text is released once loaded. A non-empty
// input that yields no components gets a warning naming the root found.
std::unique_ptr<Transport> LoadDocument(const std::string& path);

// Text to be merged into, or copied back onto, `target`: read and checked as above, and a Failure
// when its root is not named like the target's, since the library would then take nothing from it.
std::string ReadIncomingText(const std::string& path, Transport& target);

}  // namespace varnex::cli

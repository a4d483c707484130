// Writes the seed corpora: the sample document in every mode, small hostile documents, and the
// same texts framed the way each target reads its input.
//   make_seeds OUTPUT_FOLDER   (writes OUTPUT_FOLDER/<target>/<n>)
#include <filesystem>
#include <fstream>

#include "fuzz_support.hpp"

namespace {

namespace fs = std::filesystem;

void Write(const fs::path& folder, int& counter, const std::string& bytes) {
  fs::create_directories(folder);
  std::ofstream(folder / ("seed-" + std::to_string(++counter)), std::ios::binary) << bytes;
}

// A string as FuzzedDataProvider::ConsumeRandomLengthString reads it back: backslashes doubled,
// ended by a backslash and another character.
std::string Framed(const std::string& text) {
  std::string out;
  for (char c : text) out += c == '\\' ? std::string("\\\\") : std::string(1, c);
  return out + "\\n";
}

std::vector<std::string> Documents() {
  using namespace varnex;
  Transport transport;
  fuzz::BuildSample(transport);
  std::vector<std::string> documents{transport.TransportDoc(), transport.GenerateTransportDoc(tmShort),
                                     transport.GenerateTransportDoc(tmMedium)};
  documents.push_back(
      "<TALVEN><COMPONENT><SITE STATUS=\"MODIFIED\"><PROPERTIES><NAME xml:space=\"preserve\" "
      "STATUS=\"MODIFIED\" ORIGINAL=\" a \"> b </NAME></PROPERTIES><COLLECTION><VISITS><COMPONENT>"
      "<VISIT STATUS=\"DELETED\"/></COMPONENT></VISITS></COLLECTION></SITE></COMPONENT></TALVEN>");
  documents.push_back("<TALVEN><COMPONENT><TALVEN><COMPONENT><TALVEN/></COMPONENT></TALVEN></COMPONENT></TALVEN>");
  documents.push_back("<?xml version=\"1.0\"?><!-- c --><TALVEN><?pi x?><![CDATA[t]]></TALVEN>");
  documents.push_back("<!DOCTYPE a [<!ENTITY e \"x\">]><a>&e;&#x41;</a>");
  return documents;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const fs::path out = argv[1];
  const std::vector<std::string> documents = Documents();
  int n = 0;
  for (const std::string& document : documents) Write(out / "load_fuzz", n, document);
  n = 0;
  for (const std::string& document : documents) {
    Write(out / "merge_fuzz", n, std::string("\x00\x02", 2) + document);  // merge under handle 2
    Write(out / "merge_fuzz", n, std::string("\x01\x02", 2) + document);  // update
  }
  n = 0;
  for (const std::string& text : {std::string("SITE"), std::string("NOTE"), std::string("NOTE/TEXT"),
                                  std::string("@*"), std::string("<?xml version=\"1.0\"?><N/>"),
                                  std::string("<!-- c --><N/>"), std::string("<?p?><N/>")}) {
    Write(out / "lookup_fuzz", n, Framed(text) + Framed("NOTE") + std::string("\x01\x01", 2));
  }
  n = 0;
  for (const std::string& document : documents) {
    Write(out / "binding_fuzz", n, Framed("DATE,RESULT") + Framed("yes") + document + std::string("\x01\x02\x0b", 3));
  }
  // Operation sequences are plain bytes; a few short runs of each operation start them off.
  n = 0;
  for (int op = 0; op < 35; op += 5) {
    std::string bytes;
    for (int i = 0; i < 24; ++i) bytes += static_cast<char>((op * 7 + i * 13) & 0xFF);
    Write(out / "operations_fuzz", n, bytes);
  }
  return 0;
}

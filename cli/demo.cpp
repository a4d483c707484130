// The demo walks through a typical exchange: load a stored document, edit it, send the changes,
// take the answer back, clear the marks.
#include "cli/demo.hpp"

#include <memory>
#include <string>

#include "cli/provider_table.hpp"
#include "cli/sample_document.hpp"
#include "cli/tree_printer.hpp"
#include "varnex/varnex.hpp"

namespace varnex::cli {
namespace {

void Step(std::ostream& out, const char* title) { out << "\n== " << title << "\n"; }

}  // namespace

int RunDemo(std::ostream& out) {
  Transport transport;

  Step(out, "1. Load the stored document");
  transport.TransportDoc(kSampleDocument);
  PrintTree(transport, 0, out);
  std::string code, description;
  const Long states = transport.FindDomainByName("states");
  out << "domain " << transport.GetDomain(states, code, description) << " (" << description << ") has "
      << transport.CountDomItems(states) << " items\n";

  Step(out, "2. Edit: change a value, delete a visit, add one");
  const Long site = transport.FindChildCompByName(0, "site");
  transport.ModifyCompProperty(site, transport.FindCompPropertyByName(site, "state"), "CLOSED");
  const Long visits = transport.FindChildCompByName(site, "visits");
  std::string name;
  enComponentStatus status = csNormal;
  enComponentType type = ctComponent;
  transport.DeleteComponent(transport.GetCompChild(visits, 2, name, status, type));
  const Long visit = transport.AddComponent(visits, "Visit", csNew);
  transport.AddCompProperty(visit, "Date", "2026-11-22");
  transport.AddCompProperty(visit, "Inspector", "Chen");
  transport.AddCompProperty(visit, "Passed", "1");
  PrintTree(transport, 0, out);

  Step(out, "3. Send only the changes");
  out << transport.GenerateTransportDoc(tmShort) << "\n";

  Step(out, "4. The other side answers with the full document; copy its values back");
  std::string answer = transport.GenerateTransportDoc(tmMedium);
  answer.replace(answer.find("Chen"), 4, "Chen (confirmed)");
  transport.UpdateDocument(answer);
  PrintTree(transport, visits, out);

  Step(out, "5. The exchange is done: clear the marks (new components keep theirs, deleted ones go)");
  transport.ResetStatus();
  out << transport.TransportDoc() << "\n";

  Step(out, "6. Show the visits in a grid, through a data source and its provider");
  auto collection = std::make_shared<DataCollection>();
  collection->Data(transport.GetComponentXML(visits));
  DataCollectionSource source;
  source.Data(collection);
  source.DataTypes({vbString, vbString, vbBoolean});  // PASSED shows as a Boolean column
  WriteTextTable(*source.GetDataMember(), out);
  return 0;
}

}  // namespace varnex::cli

// Long random sequences of operations, valid and invalid, on one document: every call either
// answers or raises an automation error, and the document's text always loads again.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "runtime/xml.hpp"
#include "varnex/varnex.hpp"

namespace varnex {
namespace {

class RandomOperations {
 public:
  explicit RandomOperations(unsigned seed) : random_(seed) {}

  void Run(int steps) {
    for (int i = 0; i < steps; ++i) {
      try {
        Step();
      } catch (const AutomationError&) {
        // refusals are fine; anything else escapes and fails the test
      }
    }
  }

  Transport transport;

 private:
  Long Handle() { return Pick(-1, transport.CountCompChildren(0) + 12); }
  Long Pick(Long low, Long high) { return std::uniform_int_distribution<Long>(low, high)(random_); }
  std::string Name() {
    static const char* names[] = {"site", "visit", "TALVEN", "PROPERTIES", "component", "collection",
                                  "ATTACHMENTS", "prototype", "a b", "", "1x", "*", "x:y"};
    return names[Pick(0, 12)];
  }
  std::string Value() {
    static const char* values[] = {"", " ", "plain", "<&>\"'", "line\r\nbreak", "  padded  ", "é"};
    return values[Pick(0, 6)];
  }
  std::string Text() {
    switch (Pick(0, 5)) {
      case 0: return transport.GenerateTransportDoc(tmFull);
      case 1: return transport.GenerateTransportDoc(tmShort);
      case 2: return transport.GenerateTransportDoc(tmMedium);
      case 3: return "<TALVEN><COMPONENT><A STATUS=\"NEW\"><PROPERTIES><P>1</P></PROPERTIES></A></COMPONENT></TALVEN>";
      case 4: return "<broken";
      default: return "<NOTE persist=\"true\"><X/></NOTE>";
    }
  }

  void Step() {
    std::string s1, s2;
    enComponentStatus status;
    enComponentType type;
    const Boolean flag = static_cast<Boolean>(Pick(-1, 1));
    switch (Pick(0, 27)) {
      case 0: transport.AddComponent(Handle(), Name(), static_cast<enComponentStatus>(Pick(0, 4))); break;
      case 1: transport.AddCollection(Handle(), Name()); break;
      case 2: transport.GetComponent(Handle(), s1, status, type); break;
      case 3: transport.GetCompChild(Handle(), Pick(-1, 6), s1, status, type, flag); break;
      case 4: transport.FindChildCompByName(Handle(), Name()); break;
      case 5: transport.GetComponentXML(Handle()); break;
      case 6: transport.ChildOfCollection(Handle()); break;
      case 7: transport.RemoveComponentStatus(Handle()); break;
      case 8: transport.AddCompProperty(Handle(), Name(), Value(), static_cast<enComponentStatus>(Pick(0, 4)), Value()); break;
      case 9: transport.GetCompProperty(Handle(), Pick(-1, 5), s1, status, s2); break;
      case 10: transport.ModifyCompProperty(Handle(), Pick(-1, 5), Value()); break;
      case 11: transport.GetCompPropStatus(Handle(), Pick(-1, 5)); break;
      case 12: transport.AddCompAttribute(Handle(), Name(), Value()); break;
      case 13: transport.AddCompAttachment(Handle(), Text(), flag); break;
      case 14: transport.GetCompAttachment(Handle(), Name()); break;
      case 15: transport.AddCompPrototypeProperty(Handle(), Name(), Value()); break;
      case 16: transport.GetCompPrototypeProperties(Handle()); break;
      case 17: transport.DeleteComponent(Handle(), flag); break;
      case 18: transport.ResetStatus(); break;
      case 19: transport.GenerateTransportDoc(static_cast<enTransportMode>(Pick(0, 3))); break;
      case 20: transport.MergeDocument(Text(), Handle()); break;
      case 21: transport.UpdateDocument(Text()); break;
      case 22: transport.AddDomainProperty(Pick(0, 3), Pick(0, 3), Name(), Value()); break;
      case 23: transport.AddDomainItem(Pick(0, 3)); break;
      case 24: transport.AddDomain(Name(), Value(), Value()); break;
      case 25: transport.AddPropDomain(Name(), Value()); break;
      case 26: transport.FindCompPropertyByName(Handle(), Name()); break;
      default:
        if (Pick(0, 20) == 0) transport.TransportDoc(Text());
        break;
    }
  }

  std::mt19937 random_;
};

TEST(RandomOperations, NeverCrashAndLeaveADocumentThatLoads) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    RandomOperations run(seed);
    run.Run(400);
    pugi::xml_document reloaded;
    const std::string text = run.transport.TransportDoc();
    EXPECT_TRUE(text.empty() || xml::LoadText(reloaded, text)) << "seed " << seed << ": " << text;
  }
}

}  // namespace
}  // namespace varnex

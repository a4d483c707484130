// Sequences of public calls decoded from the input: arbitrary handles (cut-out ones included),
// names, values, flags and modes. After every step the document's text must load again.
#include "fuzz_support.hpp"

namespace varnex::fuzz {
namespace {

class Sequence {
 public:
  explicit Sequence(FuzzedDataProvider& input) : input_(input) {}

  void Run() {
    for (int step = 0; step < 64 && input_.remaining_bytes() > 0; ++step) {
      Try([&] { Step(); });
      if (CheckReloads(transport_) > kLargestDocument) return;
    }
  }

 private:
  Long Handle() { return fuzz::Handle(input_, LastHandle(transport_)); }
  Long Small() { return input_.ConsumeIntegralInRange<Long>(-2, 6); }
  std::string Name() { return fuzz::Name(input_); }
  std::string Value() { return input_.ConsumeRandomLengthString(32); }
  Boolean Flag() { return input_.ConsumeIntegralInRange<Boolean>(-2, 1); }
  template <typename Enum>
  Enum Mode() { return static_cast<Enum>(input_.ConsumeIntegralInRange<Long>(-1, 4)); }
  std::string Text() {
    switch (input_.ConsumeIntegralInRange<int>(0, 4)) {
      case 0: return transport_.GenerateTransportDoc(tmFull);
      case 1: return transport_.GenerateTransportDoc(tmShort);
      case 2: return transport_.GenerateTransportDoc(tmMedium);
      default: return input_.ConsumeRandomLengthString(256);
    }
  }

  void Step() {
    std::string s1, s2;
    enComponentStatus status;
    enComponentType type;
    switch (input_.ConsumeIntegralInRange<int>(0, 34)) {
      case 0: transport_.AddComponent(Handle(), Name(), Mode<enComponentStatus>()); break;
      case 1: transport_.AddCollection(Handle(), Name()); break;
      case 2: transport_.GetComponent(Handle(), s1, status, type); break;
      case 3: transport_.GetCompChild(Handle(), Small(), s1, status, type, Flag()); break;
      case 4: transport_.FindChildCompByName(Handle(), Name()); break;
      case 5: transport_.GetComponentXML(Handle()); break;
      case 6: transport_.ChildOfCollection(Handle()); break;
      case 7: transport_.RemoveComponentStatus(Handle()); break;
      case 8: transport_.AddCompProperty(Handle(), Name(), Value(), Mode<enComponentStatus>(), Value()); break;
      case 9: transport_.GetCompProperty(Handle(), Small(), s1, status, s2); break;
      case 10: transport_.ModifyCompProperty(Handle(), Small(), Value()); break;
      case 11: transport_.GetCompPropStatus(Handle(), Small()); break;
      case 12: transport_.AddCompAttribute(Handle(), Name(), Value()); break;
      case 13: transport_.AddCompAttachment(Handle(), Text(), Flag()); break;
      case 14: transport_.GetCompAttachment(Handle(), Name()); break;
      case 15: transport_.AddCompPrototypeProperty(Handle(), Name(), Value()); break;
      case 16: transport_.GetCompPrototypeProperties(Handle()); break;
      case 17: transport_.DeleteComponent(Handle(), Flag()); break;
      case 18: transport_.ResetStatus(); break;
      case 19: transport_.GenerateTransportDoc(Mode<enTransportMode>()); break;
      case 20: transport_.MergeDocument(Text(), Handle()); break;
      case 21: transport_.UpdateDocument(Text()); break;
      case 22: transport_.AddDomainProperty(Small(), Small(), Name(), Value()); break;
      case 23: transport_.AddDomainItem(Small()); break;
      case 24: transport_.AddDomain(Name(), Value(), Value()); break;
      case 25: transport_.AddPropDomain(Name(), Value()); break;
      case 26: transport_.FindCompPropertyByName(Handle(), Name()); break;
      case 27: transport_.CountCompChildren(Handle(), Flag()); break;
      case 28: transport_.CountCompProperties(Handle()); break;
      case 29: transport_.GetCompAttribute(Handle(), Name()); break;
      case 30: transport_.RootName(Name()); break;
      case 31: transport_.TransportDoc(Text()); break;
      case 32: transport_.GetDomItemProperty(Small(), Small(), Small(), s1); break;
      case 33: transport_.GetPropDomain(Small(), s1); break;
      default: transport_.GetComponentStatus(Handle()); break;
    }
  }

  FuzzedDataProvider& input_;
  Transport transport_;
};

}  // namespace
}  // namespace varnex::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  varnex::fuzz::LimitOperations();
  FuzzedDataProvider input(data, size);
  varnex::fuzz::Sequence(input).Run();
  return 0;
}

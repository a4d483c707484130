// Long random sequences of public calls, valid and invalid, on one document: every call answers
// or raises an automation error, the document's text always loads again, and the indexes kept up
// as the document changes answer as a full rebuild. After every call they are compared with
// indexes rebuilt from scratch: at a rebuild point (a stale index brought up to date, as any read
// does) with the rebuild of the document as it then is; between rebuild points with what the last
// rebuild found, whatever the document did since.
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "runtime/xml.hpp"
#include "support/internals.hpp"
#include "transport/node_status.hpp"
#include "transport/root_wrappers.hpp"
#include "varnex/varnex.hpp"

namespace varnex {
namespace {

// What a full rebuild of the child index finds: per parent, the live and the deleted children.
struct ChildRebuild {
  std::map<Long, std::vector<Long>> live, deleted;

  explicit ChildRebuild(const Transport::Impl& impl) {
    xml::WalkElements(impl.root, [&](pugi::xml_node wrapper) {
      if (!xml::ElementNamed(wrapper, "COMPONENT") && !xml::ElementNamed(wrapper, "COLLECTION")) return true;
      const pugi::xml_node parent = wrapper.parent();
      const bool root_named = xml::LocalNameIs(parent, impl.root_name);
      const Long key = root_named ? 0 : impl.HandleOf(parent);
      if (key == 0 && !root_named) return true;
      const pugi::xml_node name = wrapper.first_child();
      (GetNodeStatus(name) == csDeleted ? deleted : live)[key].push_back(impl.HandleOf(name));
      return true;
    });
  }
};

// What a full rebuild of the property index finds, or the failure of a second list under a key.
struct PropertyRebuild {
  std::map<Long, std::vector<pugi::xml_node>> lists;
  bool duplicate = false;

  explicit PropertyRebuild(const Transport::Impl& impl) {
    bool unkeyed = false;
    xml::WalkElements(impl.root, [&](pugi::xml_node element) {
      if (duplicate || xml::LocalNameIs(element, "ATTACHMENTS")) return false;
      if (!xml::ElementNamed(element, "PROPERTIES")) return true;
      const Long key = impl.HandleOf(element.parent());
      if (key == 0 ? unkeyed : lists.count(key) != 0) duplicate = true;
      if (key == 0) {
        unkeyed = true;
      } else {
        for (pugi::xml_node child : element.children()) lists[key].push_back(child);
      }
      return true;
    });
  }
};

class IndexEquivalence {
 public:
  // `wide` adds the reads, names and values of the robustness run to the calls of the plain one.
  IndexEquivalence(unsigned seed, bool wide) : random_(seed), wide_(wide) {}

  // Runs the calls, checking the indexes after each one; stops at the first difference.
  void Run(int steps) {
    for (step_ = 0; step_ < steps && !::testing::Test::HasFailure(); ++step_) {
      Transport::Impl& impl = testing::Indexes(transport_);
      const bool stale_before = impl.child_indexes_dirty || impl.prop_indexes_dirty;
      try {
        Step();
      } catch (const AutomationError&) {
        // refusals are part of the sequence
      }
      Transport::Impl& after = testing::Indexes(transport_);
      // A call that brought a stale index up to date may change the document afterwards, out
      // of sight of its index: what that index holds is known again at the next rebuild point.
      if (stale_before && !(after.child_indexes_dirty && after.prop_indexes_dirty)) {
        if (!after.child_indexes_dirty) children_.reset();
        if (!after.prop_indexes_dirty) properties_.reset();
      }
      CheckHeld();
      CheckRootWrappers();
      if (Pick(0, 3) != 0) BringUpToDateAndCheck();
    }
  }

  std::string Text() { return transport_.TransportDoc(); }

 private:
  Long Pick(Long low, Long high) { return std::uniform_int_distribution<Long>(low, high)(random_); }
  Long Handle() { return Pick(-1, testing::Indexes(transport_).last_handle + 1); }
  std::string Name() {
    static const char* const names[] = {"site", "visit", "line", "TALVEN", "talven", "PROPERTIES", "component",
                                        "COLLECTION", "ATTACHMENTS", "prototype", "DOMAIN", "", "a b", "1x", "*", "x:y"};
    return names[Pick(0, wide_ ? 15 : 12)];
  }
  std::string Value() {
    static const char* const values[] = {"", "x", "plain", " padded ", "DELETED", "deleted ", "<&>\"'", "line\r\nbreak", "é"};
    return values[Pick(0, wide_ ? 8 : 5)];
  }
  enComponentStatus Status() { return static_cast<enComponentStatus>(Pick(0, 4)); }
  std::string Fragment() {
    static const char* const fragments[] = {
        "<NOTE persist=\"true\"><TEXT>remark</TEXT></NOTE>",
        "<TALVEN><COMPONENT><X STATUS=\"DELETED\"/></COMPONENT><COLLECTION><Y/></COLLECTION></TALVEN>",
        "<PROPERTIES><A>1</A></PROPERTIES>",
        "<COMPONENT><Z/></COMPONENT>",
        "<broken",
    };
    return fragments[Pick(0, 4)];
  }
  std::string Document() {
    const Long pick = Pick(0, 5);  // 0 to 2: the own document as each mode gives it
    if (pick <= tmMedium) return transport_.GenerateTransportDoc(static_cast<enTransportMode>(pick));
    switch (pick) {
      case 3:
        return "<TALVEN><COMPONENT><A STATUS=\"DELETED\"><PROPERTIES><P>1</P><Q STATUS=\"NEW\">2</Q></PROPERTIES>"
               "<COLLECTION><B><COMPONENT><C STATUS=\"NEW\"/></COMPONENT><COMPONENT><D/></COMPONENT></B>"
               "</COLLECTION></A></COMPONENT><COMPONENT><E/></COMPONENT></TALVEN>";
      case 4:
        return "<TALVEN><COLLECTION><F><PROTOTYPE><PROPERTIES><G/></PROPERTIES><COMPONENT><H/></COMPONENT>"
               "</PROTOTYPE><ATTACHMENTS><PROPERTIES/></ATTACHMENTS></F></COLLECTION></TALVEN>";
      default: return "<TALVEN><COMPONENT><SITE><PROPERTIES>loose<P>1</P></PROPERTIES></SITE></COMPONENT></TALVEN>";
    }
  }

  void Step() {
    std::string s1, s2;
    enComponentStatus status;
    enComponentType type;
    const Boolean flag = static_cast<Boolean>(Pick(-1, 1));
    Transport& t = transport_;
    Long choice = Pick(0, wide_ ? 34 : 27);
    if (!wide_ && choice == 27) choice = 34;  // the plain run's last choice is the rare new root
    calls_.push_back(std::to_string(choice));
    switch (choice) {
      case 0: case 1: case 2: t.AddComponent(Handle(), Name(), Status()); break;
      case 3: t.AddCollection(Handle(), Name()); break;
      case 4: case 5: t.AddCompProperty(Handle(), Name(), Value(), Status(), Value()); break;
      case 6: t.ModifyCompProperty(Handle(), Pick(0, 4), Value()); break;
      case 7: t.DeleteComponent(Handle(), flag); break;
      case 8: t.ResetStatus(); break;
      case 9: t.RemoveComponentStatus(Handle()); break;
      case 10: t.AddCompAttribute(Handle(), Pick(0, 1) ? "STATUS" : "status", Value()); break;
      case 11: t.AddCompAttachment(Handle(), Fragment(), flag); break;
      case 12: t.AddCompPrototypeProperty(Handle(), Name(), Value()); break;
      case 13: t.MergeDocument(Document(), Handle()); break;
      case 14: t.UpdateDocument(Document()); break;
      case 15: t.AddDomain(Name(), Value(), Value()); break;
      case 16: t.AddDomainItem(Pick(0, 3)); break;
      case 17: t.AddDomainProperty(Pick(0, 3), Pick(0, 3), Name(), Value()); break;
      case 18: t.AddPropDomain(Name(), Value()); break;
      case 19: t.GetCompChild(Handle(), Pick(0, 5), s1, status, type, flag); break;
      case 20: t.CountCompChildren(Handle(), flag); break;
      case 21: t.GetCompProperty(Handle(), Pick(0, 4), s1, status, s2); break;
      case 22: t.CountCompProperties(Handle()); break;
      case 23: CheckComponentXML(Handle()); break;
      case 24: t.GetCompAttribute(Handle(), "STATUS"); break;
      case 25: t.GetCompPrototypeProperties(Handle()); break;
      case 26:
        if (Pick(0, 30) == 0) Renew([&] { t.TransportDoc(!wide_ || Pick(0, 1) ? Document() : Fragment()); });
        break;
      case 27: t.GetComponent(Handle(), s1, status, type); break;
      case 28: t.FindChildCompByName(Handle(), Name()); break;
      case 29: t.ChildOfCollection(Handle()); break;
      case 30: t.GetCompPropStatus(Handle(), Pick(-1, 5)); break;
      case 31: t.GetCompAttachment(Handle(), Name()); break;
      case 32: t.GenerateTransportDoc(static_cast<enTransportMode>(Pick(0, 3))); break;
      case 33: t.FindCompPropertyByName(Handle(), Name()); break;
      default:
        if (Pick(0, 60) == 0) Renew([&] { t.RootName(Pick(0, 1) ? "TALVEN" : "COMPONENT"); });
        break;
    }
  }

  // A new document comes with new, empty indexes: what they hold is known at the next rebuild.
  template <typename Body>
  void Renew(Body&& body) {
    children_.reset();
    properties_.reset();
    body();
  }

  // Between rebuild points, an index not marked stale holds what the last rebuild found.
  void CheckHeld() {
    Transport::Impl& impl = testing::Indexes(transport_);
    if (!impl.child_indexes_dirty && children_) CompareChildren(*children_, "held");
    if (!impl.prop_indexes_dirty && properties_) CompareProperties(*properties_, "held");
  }

  // A rebuild point, as any read makes it: the indexes must equal a rebuild of the document.
  void BringUpToDateAndCheck() {
    Transport::Impl& impl = testing::Indexes(transport_);
    if (impl.child_indexes_dirty) {
      impl.CheckAndRebuildChildIndexes();
      children_.emplace(impl);
      CompareChildren(*children_, "rebuilt");
    }
    if (impl.prop_indexes_dirty) {
      PropertyRebuild expected(impl);
      bool failed = false;
      try {
        impl.CheckAndRebuildPropIndexes();
      } catch (const AutomationError& error) {
        failed = true;
        EXPECT_EQ(error.number(), errDuplicateKey) << Where("property rebuild");
      }
      ASSERT_EQ(failed, expected.duplicate) << Where("property rebuild");
      if (failed) {
        properties_.reset();
      } else {
        properties_.emplace(std::move(expected));
        CompareProperties(*properties_, "rebuilt");
      }
    }
  }

  // The kept-up indexes read out in the form of a rebuild, and compared with one.
  void CompareChildren(const ChildRebuild& expected, const char* when) {
    const Transport::Impl& impl = testing::Indexes(transport_);
    std::map<Long, std::vector<Long>> live, deleted;
    for (Long parent = 0; parent <= impl.last_handle + 1; ++parent) {
      for (Long k = 1; k <= impl.children.LiveCount(parent); ++k) live[parent].push_back(impl.children.LiveAt(parent, k));
      for (Long k = 1; k <= impl.children.DeletedCount(parent); ++k) {
        deleted[parent].push_back(impl.children.DeletedItem(parent, k));
      }
    }
    ASSERT_EQ(live, expected.live) << Where(when) << ", live children";
    ASSERT_EQ(deleted, expected.deleted) << Where(when) << ", deleted children";
  }

  void CompareProperties(const PropertyRebuild& expected, const char* when) {
    const Transport::Impl& impl = testing::Indexes(transport_);
    std::map<Long, std::vector<pugi::xml_node>> lists;
    for (Long handle = 1; handle <= impl.last_handle + 1; ++handle) {
      for (Long k = 1; k <= impl.properties.Count(handle); ++k) lists[handle].push_back(impl.properties.At(handle, k));
    }
    ASSERT_TRUE(lists == expected.lists) << Where(when) << ", property lists";
  }

  // The top-level wrappers, found without a walk where the document allows, as the walk finds them.
  void CheckRootWrappers() {
    const Transport::Impl& impl = testing::Indexes(transport_);
    try {
      ASSERT_EQ(impl.OwnRootWrappers(),
                SelectRootWrappers(impl.root, impl.root_name, impl.domain_section, impl.property_domain_section))
          << Where("top-level wrappers");
    } catch (const AutomationError&) {
      // a root name that XPath refuses fails both ways
    }
  }

  // The component's text with every "DOMAIN" under an element named like the root and the first
  // "PROPERTY_DOMAINS" under one, found by a walk of the whole document.
  void CheckComponentXML(Long handle) {
    const std::string answer = transport_.GetComponentXML(handle);
    const Transport::Impl& impl = testing::Indexes(transport_);
    pugi::xml_document expected;
    pugi::xml_node top = expected.append_child(impl.root_name.c_str());
    top.append_copy(impl.handles.NodeOf(handle).parent());
    pugi::xml_node links;
    xml::WalkElements(impl.root, [&](pugi::xml_node element) {
      if (element.name() != impl.root_name) return true;
      for (pugi::xml_node child : element.children()) {
        if (xml::ElementNamed(child, "DOMAIN")) top.append_copy(child);
        if (!links && xml::ElementNamed(child, "PROPERTY_DOMAINS")) links = child;
      }
      return true;
    });
    if (links) top.append_copy(links);
    EXPECT_EQ(answer, xml::Serialize(expected)) << Where("GetComponentXML");
  }

  std::string Where(const char* what) const {
    std::string calls;
    for (std::size_t i = calls_.size() > 12 ? calls_.size() - 12 : 0; i < calls_.size(); ++i) calls += " " + calls_[i];
    return std::string(what) + " after call " + std::to_string(step_) + " (the last calls:" + calls + ")\n" +
           xml::Serialize(testing::Indexes(const_cast<Transport&>(transport_)).document->document());
  }

  Transport transport_;
  std::mt19937 random_;
  bool wide_;
  int step_ = 0;
  std::vector<std::string> calls_;
  std::optional<ChildRebuild> children_ = ChildRebuild(testing::Indexes(transport_));
  std::optional<PropertyRebuild> properties_ = PropertyRebuild(testing::Indexes(transport_));
};

TEST(IndexEquivalence, RandomCallsNeverCrashAndKeptUpIndexesAnswerAsAFullRebuild) {
  for (unsigned seed = 1; seed <= 16; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    IndexEquivalence run((seed - 1) % 8 + 1, seed > 8);
    run.Run(1500);
    if (::testing::Test::HasFailure()) break;
    const std::string text = run.Text();
    pugi::xml_document reloaded;
    EXPECT_TRUE(text.empty() || xml::LoadText(reloaded, text)) << text;
  }
}

}  // namespace
}  // namespace varnex

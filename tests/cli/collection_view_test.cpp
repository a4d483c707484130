// The tool's view of a collection answers as a DataCollection loaded with the same collection,
// and paths name the components they should.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "cli/collection_view.hpp"
#include "cli/component_path.hpp"
#include "cli/failures.hpp"
#include "support/errors.hpp"
#include "support/provider_cells.hpp"
#include "varnex/varnex.hpp"

namespace varnex::cli {
namespace {

// A first collection whose items differ: a deleted one, one with other properties, one without.
constexpr const char* kDocument =
    "<TALVEN><COMPONENT><HEAD><PROPERTIES><A>h</A></PROPERTIES></HEAD></COMPONENT>"
    "<COLLECTION><ROWS>"
    "<COMPONENT><ROW><PROPERTIES><A>1</A><B>x</B></PROPERTIES></ROW></COMPONENT>"
    "<COMPONENT><ROW STATUS=\"DELETED\"><PROPERTIES><A>2</A><B>y</B></PROPERTIES></ROW></COMPONENT>"
    "<COMPONENT><ROW><PROPERTIES><C>3</C><A>4</A></PROPERTIES></ROW></COMPONENT>"
    "<COMPONENT><ROW/></COMPONENT>"
    "</ROWS></COLLECTION>"
    "<COLLECTION><OTHER/></COLLECTION></TALVEN>";

std::vector<std::vector<std::string>> Cells(IDataCollection& data) {
  auto source = std::make_shared<DataCollectionSource>();
  source->Data(std::shared_ptr<IDataCollection>(&data, [](IDataCollection*) {}));
  source->Fields("A,B,C");
  source->DataTypes({});
  return testing::ProviderCells(*source->GetDataMember());
}

TEST(CollectionViewTest, AnswersAsADataCollectionOfTheFirstCollection) {
  Transport transport;
  transport.TransportDoc(kDocument);
  CollectionView view(transport, FirstCollection(transport));
  DataCollection loaded;
  loaded.Data(kDocument);

  ASSERT_EQ(view.Count(), loaded.Count());
  ASSERT_EQ(view.CountPropertyNames(), loaded.CountPropertyNames());
  for (Long i = 1; i <= loaded.CountPropertyNames(); ++i) EXPECT_EQ(view.PropertyNames(i), loaded.PropertyNames(i));
  EXPECT_EQ(Cells(view), Cells(loaded));
  for (const Long position : {0, -1, 5}) {
    EXPECT_EQ(testing::ErrorOf([&] { view.Item(Variant(position)); }).number(), errSubscriptOutOfRange) << position;
  }
  EXPECT_THROW(view.PropertyNames(3), AutomationError);
}

// Where a DataCollection would load nothing at all, the view keeps the first of the values.
TEST(CollectionViewTest, ARepeatedPropertyNameKeepsItsFirstValue) {
  Transport transport;
  transport.TransportDoc("<TALVEN><COLLECTION><ROWS><COMPONENT><ROW><PROPERTIES><A>5</A><A>6</A></PROPERTIES>"
                         "</ROW></COMPONENT></ROWS></COLLECTION></TALVEN>");
  CollectionView view(transport, FirstCollection(transport));
  EXPECT_EQ(view.Item(Variant(1))->Count(), 1);
  EXPECT_EQ(view.Item(Variant(1))->Item(Variant("A")).AsString(), "5");
}

TEST(ComponentPathTest, PathsNameComponentsByNameAndPosition) {
  Transport transport;
  transport.TransportDoc(kDocument);
  // Live rows come first, then the deleted one.
  for (const auto& [path, handle] : std::vector<std::pair<const char*, Long>>{
           {"/", 0}, {"/HEAD", 1}, {"/rows", 2}, {"/ROWS/ROW", 3}, {"/ROWS/ROW[1]", 3}, {"/ROWS/ROW[2]", 5},
           {"/ROWS/ROW[4]", 4}, {"/OTHER", 7}}) {
    EXPECT_EQ(ResolvePath(transport, path), handle) << path;
  }
  for (const char* path : {"/ROWS/ROW[5]", "/ROWS/ROW[0]", "/ROWS/ROW[x]", "/ROWS/ROW[1x]", "/NONE", "/HEAD/ROW"}) {
    EXPECT_THROW(ResolvePath(transport, path), Failure) << path;
  }
  EXPECT_EQ(ChildrenOf(transport, 2).back().step, "ROW[4]");
}

}  // namespace
}  // namespace varnex::cli

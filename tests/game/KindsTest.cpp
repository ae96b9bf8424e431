// What views, pictures and sounds have in common, on each of them.
#include "zorvex/picture/AGIPictures.h"
#include "zorvex/sound/AGISounds.h"
#include "zorvex/view/AGIViews.h"

namespace zorvex::test {
namespace {

template <class Resource>
class Kinds : public testing::Test {};

using AllKinds = testing::Types<AGIView, AGIPicture, AGISound>;
TYPED_TEST_SUITE(Kinds, AllKinds);

TYPED_TEST(Kinds, AFileNameBecomesAnIDOfSixtyFourCharacters) {
    const TempDir dir;
    TypeParam object;
    object.Export(dir.Native() + "/" + Repeated(35, "\xC3\xA9x"));
    EXPECT_EQ(object.ID(), Repeated(32, "\xC3\xA9x"));
    object.Import(dir.File(Repeated(35, "\xC3\xA9x")));
    EXPECT_EQ(object.ID(), Repeated(32, "\xC3\xA9x"));
}

}  // namespace
}  // namespace zorvex::test

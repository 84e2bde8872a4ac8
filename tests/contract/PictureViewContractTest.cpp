// A field that shows a picture, as far as the program alone can tell.

#include "contract/FormsBench.h"

#include "platform/IPictureView.h"

#include <array>

namespace portico::test {
namespace {

using namespace std::string_literals;

constexpr std::array PictureControls{ControlDesign{.Kind = ControlKind::PictureView, .Name = u"picture"}};
constexpr FormDesign PictureWindow{.Name = u"frmPicture", .Caption = u"Picture", .Controls = PictureControls};

/// Three by two pixels, all red.
const std::string Red = "\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\0\x03\0\0\0\x02\x08\x02\0\0\0\x12\x16\xF1\x4D\0\0\0\x10IDA"
                        "T\x78\xDA\x63\xF8\xCF"
                        "\xC0\0\x41\x0C\x70\x16\0\x41\xD2\x05\xFB\x6F\xF1\x16\xC7\0\0\0\0IEND\xAE\x42\x60\x82"s;

class PictureViewContract : public FormsContract {
protected:
  Ref<IForm> Loaded = Forms().Load(PictureWindow);
  IPictureView& View = FindControl<IPictureView>(*Loaded, u"picture");
};

INSTANTIATE_TEST_SUITE_P(AllForms, PictureViewContract, testing::ValuesIn(AllFormsBenches()), FormsBenchName);

TEST_P(PictureViewContract, ShowsAWholePicture) {
  EXPECT_EQ(View.Kind(), ControlKind::PictureView);
  EXPECT_TRUE(View.Show({.Bytes = Red, .Format = "png", .Width = 3, .Height = 2}));
  EXPECT_TRUE(View.Show({.Bytes = Red, .Format = "png", .Width = 3, .Height = 2}));
  View.Copy();
}

TEST_P(PictureViewContract, RefusesOneThatIsCutOff) {
  const std::string cut = Red.substr(0, Red.size() - 13);
  EXPECT_FALSE(View.Show({.Bytes = cut, .Format = "png", .Width = 3, .Height = 2}));
  EXPECT_FALSE(View.Show({.Bytes = Red.substr(0, 40), .Format = "png", .Width = 3, .Height = 2}));
  EXPECT_TRUE(View.Show({.Bytes = Red, .Format = "png", .Width = 3, .Height = 2})) << "it is of use again";
}

TEST_P(PictureViewContract, FitsItsFieldUnlessItIsTold) {
  EXPECT_TRUE(View.FitsField());
  View.FitsField(false);
  EXPECT_FALSE(View.FitsField());
}

TEST_P(PictureViewContract, IsPlacedInAWindow) {
  View.Move(15, 30, 3000, 1500);
  EXPECT_EQ(View.Left(), 15);
  EXPECT_EQ(View.Top(), 30);
  EXPECT_EQ(View.Width(), 3000);
  EXPECT_EQ(View.Height(), 1500);
}

} // namespace
} // namespace portico::test

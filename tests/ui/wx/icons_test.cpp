// The program's own pictures.
#include "ui/wx/icons.h"

#include "tests/ui/wx/stage.h"

namespace varnhold::ui::wx {
namespace {

class IconsTest : public WxTest, public testing::WithParamInterface<const char*> {};

/// How many pixels of the picture cover at least half of what is under them.
int coveredPixels(const wxImage& image) {
  int covered = 0;
  for (int y = 0; y < image.GetHeight(); ++y) {
    for (int x = 0; x < image.GetWidth(); ++x) covered += image.GetAlpha(x, y) >= 128 ? 1 : 0;
  }
  return covered;
}

TEST_P(IconsTest, IsDrawnAtEachScaleOfAScreen) {
  const auto picture = icon(GetParam());
  ASSERT_TRUE(picture.IsOk());
  const auto size = picture.GetDefaultSize();
  for (const double scale : {1.0, 1.5, 2.0}) {
    const wxSize wanted(wxRound(size.x * scale), wxRound(size.y * scale));
    EXPECT_EQ(picture.GetPreferredBitmapSizeAtScale(scale), wanted);
    const auto image = picture.GetBitmap(wanted).ConvertToImage();
    ASSERT_EQ(image.GetSize(), wanted);
    ASSERT_TRUE(image.HasAlpha());
    EXPECT_GT(coveredPixels(image), wanted.x * wanted.y / 5);
  }
}

INSTANTIATE_TEST_SUITE_P(AllPictures, IconsTest,
                         testing::Values("computer", "group", "add-system", "remove-system", "upgrade",
                                         "configure", "search", "create-group", "delete-group",
                                         "app-varnhold", "app-tessmark", "information", "warning",
                                         "splash-varnhold", "splash-tessmark", "keep-snaps-yes",
                                         "keep-snaps-no"));

TEST_F(IconsTest, HasNothingUnderAnotherName) {
  EXPECT_FALSE(icon("no such picture").IsOk());
  EXPECT_TRUE(windowIcon("no such picture").IsEmpty());
}

TEST_F(IconsTest, GivesAWindowItsPictureInSeveralSizes) {
  const auto icons = windowIcon("app-varnhold");
  EXPECT_EQ(icons.GetIconOfExactSize(wxSize(16, 16)).GetWidth(), 16);
  EXPECT_EQ(icons.GetIconOfExactSize(wxSize(32, 32)).GetWidth(), 32);
}

TEST_F(IconsTest, TakesThePicturesOfAListInTheirOrder) {
  const ImageList list({"computer", "keep-snaps-no"});
  EXPECT_EQ(picturesOf(&list).size(), 2u);
  EXPECT_TRUE(picturesOf(nullptr).empty());
}

}  // namespace
}  // namespace varnhold::ui::wx
